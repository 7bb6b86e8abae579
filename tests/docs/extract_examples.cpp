// Makes a test source of a page: what stands under no entry is kept at file scope, every other block is the body of a
// test. What fails to compile or to hold is told with file and line of the page.
//
//   extract_examples PAGE.md OUT.cpp [ROOT]     names PAGE.md relative to ROOT
#include "tests/docs/page.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

std::string readAll(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  if (!file)
    throw std::runtime_error("cannot be read");
  return text.str();
}

// A test's name of what a heading says: runs of other characters become one underscore.
std::string identifier(const std::string& text) {
  std::string name;
  for (const char c : text) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0)
      name += c;
    else if (!name.empty() && name.back() != '_')
      name += '_';
  }
  return name;
}

void writeCode(std::ostream& out, const docs::Example& example, const std::string& page) {
  out << "#line " << example.line << " \"" << page << "\"\n" << example.code;
}

void writeTests(std::ostream& out, const docs::Entry& entry, const std::string& suite, const std::string& page) {
  for (std::size_t i = 0; i < entry.examples.size(); ++i) {
    out << "\nTEST(" << suite << ", " << identifier(entry.names.front()) << (i == 0 ? "" : "_" + std::to_string(i + 1))
        << ") {\n";
    writeCode(out, entry.examples[i], page);
    out << "}\n";
  }
}

// The standard assert goes away in builds for speed; this one never does. It is defined behind all includes, since
// <cassert> defines its own anew each time.
constexpr char kAssert[] = "#undef assert\n#define assert(...) ASSERT_TRUE((__VA_ARGS__))\n";

std::string testSource(const docs::Page& page, const std::string& name, const std::string& unit) {
  std::ostringstream out;
  out << "#include <gtest/gtest.h>\n";
  for (const docs::Example& example : page.fileScope)
    writeCode(out, example, name);
  out << kAssert;
  for (const docs::Entry& entry : page.entries)
    writeTests(out, entry, "Docs_" + unit, name);
  return out.str();
}

} // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: extract_examples PAGE.md OUT.cpp [ROOT]\n", stderr);
    return EXIT_FAILURE;
  }
  const fs::path path = argv[1];
  try {
    const std::string name = (argc > 3 ? path.lexically_relative(argv[3]) : path).generic_string();
    std::ofstream out(argv[2], std::ios::binary);
    out << testSource(docs::readPage(readAll(path)), name, path.stem().string());
    return out.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", argv[1], error.what());
    return EXIT_FAILURE;
  }
}

#include "tests/console/console_run.h"
#include "console/app/command_loop.h"
#include "console/app/registry.h"
#include "console/prompts/selection.h"

#include "drawing/dump.h"
#include "drawing/file.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace tests {
namespace {

morvane::HostOptions forgetfulHost() {
  morvane::HostOptions options;
  options.keepsConfig = false;
  return options;
}

} // namespace

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

std::string filled(std::string text, const Names& names) {
  for (const auto& [from, to] : names)
    text = replaced(text, from, to);
  return text;
}

Outcome expectRun(const std::string& line, const Names& names, int status, const std::string& part) {
  std::vector<std::string> arguments;
  std::istringstream stream(line);
  for (std::string word; stream >> word;)
    arguments.push_back(filled(word, names));
  const Outcome run = runMorvane(arguments);
  EXPECT_EQ(run.status, status) << line << "\n" << run.shown;
  EXPECT_NE(run.shown.find(filled(part, names)), std::string::npos) << line << "\n" << run.shown;
  return run;
}

TestSession::TestSession()
    : session_({forgetfulHost(), [this](const OdString& text) { shown_ += text.toUtf8Lossless(); },
                [this](const OdString& text) { shown_ += text.toUtf8Lossless(); }, false}) {}

console::Status TestSession::run(const std::string& script) {
  session_.host().input().clearSources();
  session_.answerFrom(std::make_shared<morvane::ScriptSource>(script));
  session_.forgetStatus();
  console::runCommands(session_, console::allCommands());
  return session_.status();
}

std::string TestSession::dump() {
  return drawing::canonicalDump(database());
}

OdDbObjectIdArray TestSession::objects() {
  return console::objectsOf(database().getModelSpaceId());
}

std::string Scratch::write(const std::string& name, const std::string& bytes) const {
  std::ofstream(path(name), std::ios::binary) << bytes;
  return path(name);
}

std::string Scratch::save(const OdDbDatabase& database, const std::string& name) const {
  EXPECT_EQ(drawing::writeDrawing(database, path(name)).result, eOk);
  return path(name);
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace tests

#include "tests/console/console_run.h"
#include "console/command_loop.h"
#include "console/selection.h"

#include "DbDump.h"

#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace console_tests {
namespace {

morvane::HostOptions forgetfulHost() {
  morvane::HostOptions options;
  options.keepsConfig = false;
  return options;
}

} // namespace

TestSession::TestSession()
    : session_({forgetfulHost(), [this](const OdString& text) { shown_ += text.toUtf8Lossless(); },
                [this](const OdString& text) { shown_ += text.toUtf8Lossless(); }, false}) {}

console::Status TestSession::run(const std::string& script) {
  session_.host().input().clearSources();
  session_.answerFrom(std::make_shared<morvane::ScriptSource>(script));
  session_.forgetStatus();
  console::runCommands(session_);
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

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

} // namespace console_tests

// Runs of the console in process: the whole program with a command line, or a session that a test looks into.
#pragma once

#include "console/session/session.h"
#include "tests/support/program_run.h"
#include "tests/support/scratch_folder.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tests {

// What stands for what in a line: "$F" for a path.
using Names = std::vector<std::pair<std::string, std::string>>;
std::string replaced(std::string text, const std::string& from, const std::string& to);
std::string filled(std::string text, const Names& names);
// The words of the line, each with its names filled in; the status and a part of what is shown are expected of the run.
Outcome expectRun(const std::string& line, const Names& names, int status, const std::string& part);

// A session that answers from scripts. Its output is captured.
class TestSession {
public:
  TestSession();
  console::Session& session() { return session_; }
  OdDbDatabase& database() { return session_.database(); }
  // Runs the commands and answers the status of this script alone; a blank line is an empty answer.
  console::Status run(const std::string& script);
  std::string takeShown() { return std::exchange(shown_, {}); }
  std::string dump();
  OdDbObjectIdArray objects(); // of model space

private:
  std::string shown_;
  console::Session session_;
};

class Scratch : public ScratchFolder {
public:
  std::string path(const std::string& name) const { return at(name); }
  // Both answer the path.
  std::string write(const std::string& name, const std::string& bytes) const;
  std::string save(const OdDbDatabase& database, const std::string& name) const;
};

std::string readFile(const std::string& path); // fails the test when there is none

inline constexpr char kRoom[] = "examples/drawings/room.dxf";

} // namespace tests

// The program behind main(): what the command line asks for, and the exit status.
#pragma once

#include "morvane/host.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace console {

// Where a run reads and writes. What is empty or null is that of the process.
struct ProgramEnvironment {
  morvane::HostOptions host;
  std::function<void(const OdString&)> commandLine;
  std::function<void(const OdString&)> results;
  std::istream* input = nullptr; // read as a script
};

// The arguments come without the program's name, in bytes.
int runProgram(const std::vector<std::string>& arguments, const ProgramEnvironment& environment = {});

} // namespace console

// The whole console program in process; for tests that link it.
#pragma once

#include "console/app/program.h"

#include <sstream>
#include <string>
#include <vector>

namespace tests {

struct Outcome {
  int status = 0;
  std::string shown;   // what a user sees: command line and results in their order
  std::string results; // the results alone
};

// `input` is its standard input; the user's configuration is empty and forgotten, unless a file is named.
inline Outcome runMorvane(const std::vector<std::string>& arguments, const std::string& input = {},
                          const std::string& configFile = {}) {
  Outcome run;
  std::istringstream stream(input);
  console::ProgramEnvironment environment;
  environment.host.keepsConfig = !configFile.empty();
  environment.host.configFile = configFile;
  environment.input = &stream;
  environment.commandLine = [&](const OdString& text) { run.shown += text.toUtf8Lossless(); };
  environment.results = [&](const OdString& text) {
    run.shown += text.toUtf8Lossless();
    run.results += text.toUtf8Lossless();
  };
  run.status = console::runProgram(arguments, environment);
  return run;
}

} // namespace tests

// Subcommands of the program: jobs of one line that run what the commands run.
#pragma once

#include "console/session/session.h"
#include "console/subcommands/options.h"

#include <functional>
#include <memory>
#include <vector>

namespace console::subcommands {

class Subcommand {
public:
  virtual ~Subcommand();
  virtual void describe(OptionTable& program) = 0;
  virtual bool isChosen() const = 0;
  virtual void check() = 0; // throws the usage Failure for options that cannot be
  virtual Status run(const SessionOptions& settings) = 0;
};

std::unique_ptr<Subcommand> makeSubcommand();       // morvane make
std::unique_ptr<Subcommand> convertSubcommand();    // morvane convert
std::unique_ptr<Subcommand> reportSubcommand();     // morvane report
std::unique_ptr<Subcommand> auditSubcommand();      // morvane audit
std::unique_ptr<Subcommand> purgeSubcommand();      // morvane purge
std::unique_ptr<Subcommand> renameSubcommand();     // morvane rename
std::unique_ptr<Subcommand> insertSubcommand();     // morvane insert
std::unique_ptr<Subcommand> attributesSubcommand(); // morvane attributes
std::unique_ptr<Subcommand> previewSubcommand();    // morvane preview
std::unique_ptr<Subcommand> graphSubcommand();      // morvane graph
std::unique_ptr<Subcommand> wblockSubcommand();     // morvane wblock
std::vector<std::unique_ptr<Subcommand>> allSubcommands();

[[noreturn]] void refuseUsage(MessageText format, const char* option, const std::string& value);
OdDb::DwgVersion versionOption(const std::string& value); // of --as; empty: unknown

} // namespace console::subcommands

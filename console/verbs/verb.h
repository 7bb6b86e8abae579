// Sub-verbs of the program: jobs of one line that run what the commands run.
#pragma once

#include "console/session/session.h"
#include "console/verbs/options.h"

#include <functional>
#include <memory>
#include <vector>

namespace console::verbs {

class Verb {
public:
  virtual ~Verb();
  virtual void describe(OptionTable& program) = 0;
  virtual bool isChosen() const = 0;
  virtual void check() = 0; // throws the usage Failure for options that cannot be
  virtual Status run(const SessionOptions& settings) = 0;
};

std::unique_ptr<Verb> makeVerb();       // morvane make
std::unique_ptr<Verb> convertVerb();    // morvane convert
std::unique_ptr<Verb> reportVerb();     // morvane report
std::unique_ptr<Verb> auditVerb();      // morvane audit
std::unique_ptr<Verb> purgeVerb();      // morvane purge
std::unique_ptr<Verb> renameVerb();     // morvane rename
std::unique_ptr<Verb> insertVerb();     // morvane insert
std::unique_ptr<Verb> attributesVerb(); // morvane attributes
std::unique_ptr<Verb> previewVerb();    // morvane preview
std::unique_ptr<Verb> graphVerb();      // morvane graph
std::unique_ptr<Verb> wblockVerb();     // morvane wblock
std::vector<std::unique_ptr<Verb>> allVerbs();

[[noreturn]] void refuseUsage(MessageId id, const char* option, const std::string& value);
OdDb::DwgVersion versionOption(const std::string& value); // of --as; empty: unknown

} // namespace console::verbs

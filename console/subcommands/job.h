// One run of a sub-verb: a drawing in, work, a drawing out, and what is reported of it.
#pragma once

#include "console/drawings/drawing_io.h"
#include "console/messages/json.h"
#include "console/session/session.h"

#include <functional>
#include <string>

namespace console::subcommands {

struct JobFiles {
  std::string in;
  std::string out; // empty: nothing is written
  OdDb::DwgVersion version = OdDb::kVersionUnknown;
  bool force = false;
  drawing::WriteOptions::Form form = drawing::WriteOptions::kAsRead;
};

struct Job {
  const char* name;
  JobFiles files;
  bool json = false;
  // Runs as one step; adds what a machine wants to know to the results. Empty: nothing is changed.
  std::function<void(Session&, Json& results)> work;
  std::function<void(Session&)> printSummary; // what was done, once the drawing is saved; may be empty
  // Takes the report of the reading, whose issues are not listed then; may be empty.
  std::function<void(const drawing::Report&)> readReport = nullptr;
  std::function<void(Session&)> before = nullptr; // checks what can be checked before anything is read; may be empty
  bool isInteractive = false;                     // the user is asked for what is not given
};

// Reads, works, writes, and prints one JSON object when that was asked for.
Status runJob(SessionOptions settings, const Job& job);

} // namespace console::subcommands

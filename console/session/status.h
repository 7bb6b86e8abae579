// How a program run ended: the exit status of the process.
#pragma once

namespace console {

enum class Status {
  Done = 0,
  Refused = 1, // or failed
  Usage = 2,
  Unreadable = 3,
  Repaired = 4, // done, but something was repaired or lost
  Cancelled = 5,
  SaveFailed = 6 // the file on disk is unchanged
};

// The one that stands for both: a failed save before an unreadable file, that before a refusal, then a cancel, then a
// repair.
Status worse(Status one, Status other);

} // namespace console

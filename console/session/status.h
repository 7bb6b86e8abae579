// How a program run ended: the exit status of the process.
#pragma once

namespace console {

enum class Status {
  kDone = 0,
  kRefused = 1, // or failed
  kUsage = 2,
  kUnreadable = 3,
  kRepaired = 4, // done, but something was repaired or lost
  kCancelled = 5,
  kSaveFailed = 6 // the file on disk is unchanged
};

// The one that stands for both: a failed save before an unreadable file, that before a refusal, then a cancel, then a
// repair.
Status worse(Status one, Status other);

} // namespace console

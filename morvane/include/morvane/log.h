// The log. Records of a higher level are more important; those below the level of the log are not written.
#pragma once

#include "morvane/export.h"

#include <memory>
#include <string>

// Writes a record if its level is not below mrvn_log_level(); no effect without a host. Texts are UTF-8; null is empty.
MORVANE_API void mv_Log(int level, int line, const char* function, const char* text);
// Level of the current host's log; kDefaultLogLevel without a host.
MORVANE_API int mrvn_log_level();

namespace morvane {

// Level of a new log.
inline constexpr int kDefaultLogLevel = 6;

// A record: level, source line and function, text.
struct LogRecord {
  int level = 0;
  int line = 0;
  std::string function;
  std::string text;
};

// Receives the records of a log.
class MORVANE_API LogSink {
public:
  virtual ~LogSink();
  virtual void write(const LogRecord& record) = 0; // called for records that are not below the level
};

// A log.
class MORVANE_API Log {
public:
  Log(); // writes to standard error
  // Lowest level that is written.
  int level() const { return level_; }
  void setLevel(int level) { level_ = level; }
  // Where records are written: null: standard error; a file, to which they are appended: false, and nothing changed, if
  // it does not open.
  void setSink(std::shared_ptr<LogSink> sink);
  bool setFile(const std::string& path);
  void write(const LogRecord& record); // writes a record unless it is below the level

private:
  int level_ = kDefaultLogLevel;
  std::shared_ptr<LogSink> sink_;
};

} // namespace morvane

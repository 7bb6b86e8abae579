// The log. The higher a level the weightier the record; records below the set level are not wanted.
#pragma once

#include "morvane/export.h"

#include <memory>
#include <string>

// Writes a record when its level is not below mrvn_log_level(); nothing without a host. Texts are UTF-8.
MORVANE_API void mv_Log(int level, int line, const char* function, const char* text);
MORVANE_API int mrvn_log_level();

namespace morvane {

inline constexpr int kDefaultLogLevel = 6;

struct LogRecord {
  int level = 0;
  int line = 0;
  std::string function;
  std::string text;
};

class MORVANE_API LogSink {
public:
  virtual ~LogSink();
  virtual void write(const LogRecord& record) = 0;
};

class MORVANE_API Log {
public:
  Log();
  int level() const { return level_; }
  void setLevel(int level) { level_ = level; }
  void setSink(std::shared_ptr<LogSink> sink); // null: standard error
  bool setFile(const std::string& path);       // appends; false when the file does not open, the sink is then kept
  void write(const LogRecord& record);

private:
  int level_ = kDefaultLogLevel;
  std::shared_ptr<LogSink> sink_;
};

} // namespace morvane

// Hosts for tests of command modules. Each is installed while it exists and leaves nothing on the machine: its
// configuration is in memory, its output is captured.
#pragma once

#include "morvane/host.h"
#include "morvane/host_api.h"

#include <vector>

namespace morvane {

// Stores the records of the log.
class MORVANE_API CapturedLog : public LogSink {
public:
  void write(const LogRecord& record) override { records_.push_back(record); }
  const std::vector<LogRecord>& records() const { return records_; } // in order

private:
  std::vector<LogRecord> records_;
};

// A host whose answers are set by the test.
class MORVANE_API ScriptedHost {
public:
  // Without answers, which cancels every prompt, or with complete answers, one for each prompt; the escape character
  // alone cancels.
  ScriptedHost();
  explicit ScriptedHost(std::vector<OdString> answers);
  virtual ~ScriptedHost();
  ScriptedHost(const ScriptedHost&) = delete;
  ScriptedHost& operator=(const ScriptedHost&) = delete;

  Host& host() { return host_; } // the installed host
  // Replace all input that has not been read, by answers or by a script.
  void answerWith(std::vector<OdString> answers);
  void answerFromScript(std::string utf8);
  // Answers that have not been read (0 for a script); output since the last call; records of the log.
  std::size_t remainingAnswers() const { return answers_ == nullptr ? 0 : answers_->remaining(); }
  OdString takeOutput() { return output_->take(); }
  const std::vector<LogRecord>& logRecords() const { return log_->records(); }

private:
  Host host_;
  std::shared_ptr<CapturedSink> output_;
  std::shared_ptr<CapturedLog> log_;
  std::shared_ptr<ListSource> answers_;
};

// Makes host calls fail. A loop over failCall(1), failCall(2) ... until allPassed() tests the state after a failure at
// every call of a command.
class MORVANE_API FaultyHost : public ScriptedHost {
public:
  FaultyHost(); // no call fails
  // Set which call from now on fails once: the n-th (1: the next), the n-th of an operation, none. They reset
  // allPassed() and calls().
  void failCall(int n);
  void failOperation(std::string operation, int n = 1);
  void failNothing();
  // Whether no call has failed, and the names of all calls, since then.
  bool allPassed() const { return !failed_; }
  const std::vector<std::string>& calls() const { return calls_; }

private:
  bool admit(const char* operation);
  void watch(std::string operation, int n);
  std::string operation_; // empty: any
  int remaining_ = 0;
  bool failed_ = false;
  std::vector<std::string> calls_;
};

} // namespace morvane

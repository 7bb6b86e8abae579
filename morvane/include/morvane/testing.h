// Hosts for the tests of command modules. Each is installed for its lifetime and keeps nothing behind: its
// configuration is in memory, its output is captured.
#pragma once

#include "morvane/host.h"
#include "morvane/host_api.h"

#include <vector>

namespace morvane {

// Keeps the records of the log.
class MORVANE_API CapturedLog : public LogSink {
public:
  void write(const LogRecord& record) override { records_.push_back(record); }
  const std::vector<LogRecord>& records() const { return records_; }

private:
  std::vector<LogRecord> records_;
};

class MORVANE_API ScriptedHost {
public:
  ScriptedHost();
  // Whole answers, one for each prompt. The escape character alone cancels.
  explicit ScriptedHost(std::vector<OdString> answers);
  virtual ~ScriptedHost();
  ScriptedHost(const ScriptedHost&) = delete;
  ScriptedHost& operator=(const ScriptedHost&) = delete;

  Host& host() { return host_; }
  // Drops what was not read yet.
  void answerWith(std::vector<OdString> answers);
  void answerFromScript(std::string utf8);
  std::size_t remainingAnswers() const { return answers_ == nullptr ? 0 : answers_->remaining(); }
  // What was printed since the last call.
  OdString takeOutput() { return output_->take(); }
  const std::vector<LogRecord>& logRecords() const { return log_->records(); }

private:
  Host host_;
  std::shared_ptr<CapturedSink> output_;
  std::shared_ptr<CapturedLog> log_;
  std::shared_ptr<ListSource> answers_;
};

// Makes host calls fail. A loop over failCall(1), failCall(2) ... until allPassed() shows what a command leaves behind
// wherever the host gives out.
class MORVANE_API FaultyHost : public ScriptedHost {
public:
  FaultyHost();
  void failCall(int n);                                 // the n-th call from now, 1 the next; counting starts anew
  void failOperation(std::string operation, int n = 1); // the n-th call of this operation from now
  void failNothing();
  bool allPassed() const { return !failed_; } // no call has failed since the last of the above
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

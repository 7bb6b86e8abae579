// Keeps the command line tidy: what begins with a line break begins a new line, but leaves no empty one.
#pragma once

#include "morvane/output.h"

#include <functional>

namespace console {

class LineSink : public morvane::OutputSink {
public:
  explicit LineSink(std::function<void(const OdString&)> writer) : writer_(std::move(writer)) {}
  void write(const OdString& text) override;
  void freshLine();                      // ends a line that was begun
  void atLineStart() { begun_ = false; } // the line was ended otherwise, by the Enter key of the user

private:
  std::function<void(const OdString&)> writer_;
  bool begun_ = false;
};

} // namespace console

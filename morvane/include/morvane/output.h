// What the host prints, and where it goes.
#pragma once

#include "OdString.h"
#include "morvane/export.h"

#include <memory>

namespace morvane {

// Takes the text of the command line.
class MORVANE_API OutputSink {
public:
  virtual ~OutputSink();
  virtual void write(const OdString& text) = 0;
};

// Standard error in UTF-8; a character that UTF-8 cannot hold is shown as U+FFFD.
class MORVANE_API ConsoleSink : public OutputSink {
public:
  void write(const OdString& text) override;
};

// Keeps the text, for tests and transcripts.
class MORVANE_API CapturedSink : public OutputSink {
public:
  void write(const OdString& text) override { text_ += text; }
  const OdString& text() const { return text_; }
  OdString take();

private:
  OdString text_;
};

// The one way to the command line. Never holds null.
class MORVANE_API Output {
public:
  Output();
  void setSink(std::shared_ptr<OutputSink> sink); // null: standard error
  void print(const OdString& text) { sink_->write(text); }

private:
  std::shared_ptr<OutputSink> sink_;
};

} // namespace morvane

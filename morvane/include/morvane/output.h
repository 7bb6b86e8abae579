// Output of the host.
#pragma once

#include "OdString.h"
#include "morvane/export.h"

#include <memory>

namespace morvane {

// Receives the text of the command line.
class MORVANE_API OutputSink {
public:
  virtual ~OutputSink();
  virtual void write(const OdString& text) = 0; // text may be part of a line or several lines
};

// Standard error in UTF-8; a character that has no UTF-8 becomes U+FFFD.
class MORVANE_API ConsoleSink : public OutputSink {
public:
  void write(const OdString& text) override;
};

// Stores the text, for tests and transcripts.
class MORVANE_API CapturedSink : public OutputSink {
public:
  void write(const OdString& text) override { text_ += text; }
  // The text so far; take also removes it.
  const OdString& text() const { return text_; }
  OdString take();

private:
  OdString text_;
};

// The command line of a host.
class MORVANE_API Output {
public:
  Output();                                                // standard error
  void setSink(std::shared_ptr<OutputSink> sink);          // null: standard error
  void print(const OdString& text) { sink_->write(text); } // writes the text to the sink

private:
  std::shared_ptr<OutputSink> sink_;
};

} // namespace morvane

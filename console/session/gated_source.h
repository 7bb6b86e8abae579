// A source whose next line can be held back, so that only what is left of the line before it answers.
#pragma once

#include "morvane/input.h"

namespace console {

class GatedSource : public morvane::InputSource {
public:
  explicit GatedSource(std::shared_ptr<morvane::InputSource> source) : source_(std::move(source)) {}
  void hold(bool held) { held_ = held; } // held back, reading is a cancel that takes nothing
  morvane::ReadStatus readLine(const OdString& prompt, OdString& line) override {
    return held_ ? morvane::ReadStatus::kCancelled : source_->readLine(prompt, line);
  }
  bool isScript() const override { return source_->isScript(); }
  bool showsPrompt() const override { return source_->showsPrompt(); }

private:
  std::shared_ptr<morvane::InputSource> source_;
  bool held_ = false;
};

} // namespace console

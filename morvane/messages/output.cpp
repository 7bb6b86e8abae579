#include "morvane/output.h"

#include <cstdio>
#include <string>

namespace morvane {
namespace {

bool encodable(wchar_t ch) {
  return (ch >= 0 && ch < 0xD800) || (ch > 0xDFFF && ch <= 0x10FFFF);
}

} // namespace

OutputSink::~OutputSink() = default;

void ConsoleSink::write(const OdString& text) {
  std::wstring shown(text.visible());
  for (wchar_t& ch : shown) {
    if (!encodable(ch))
      ch = 0xFFFD;
  }
  const std::string bytes = OdString(std::move(shown)).toUtf8();
  std::fwrite(bytes.data(), 1, bytes.size(), stderr);
  std::fflush(stderr);
}

OdString CapturedSink::take() {
  return std::exchange(text_, OdString());
}

Output::Output() : sink_(std::make_shared<ConsoleSink>()) {}

void Output::setSink(std::shared_ptr<OutputSink> sink) {
  sink_ = sink != nullptr ? std::move(sink) : std::make_shared<ConsoleSink>();
}

} // namespace morvane

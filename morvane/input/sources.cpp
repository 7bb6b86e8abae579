#include "morvane/files/read_file.h"
#include "morvane/input.h"

#include <algorithm>
#include <istream>
#include <utility>

namespace morvane {
namespace {

std::string_view withoutReturn(std::string_view line) {
  if (line.ends_with('\r'))
    line.remove_suffix(1);
  return line;
}

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

} // namespace

InputSource::~InputSource() = default;

CoordinateFrame::~CoordinateFrame() = default;

StreamSource::StreamSource(std::istream& stream, bool script) : stream_(stream), script_(script) {}

ReadStatus StreamSource::readLine(const OdString&, OdString& line) {
  std::string bytes;
  do {
    if (!std::getline(stream_, bytes))
      return ReadStatus::kEnd;
    if (!std::exchange(started_, true) && bytes.starts_with(kByteOrderMark))
      bytes.erase(0, kByteOrderMark.size());
  } while (script_ && bytes.starts_with(';'));
  line = OdString::fromUtf8(withoutReturn(bytes));
  return ReadStatus::kLine;
}

ScriptSource::ScriptSource(std::string utf8) : text_(std::move(utf8)) {
  if (std::string_view(text_).starts_with(kByteOrderMark))
    at_ = kByteOrderMark.size();
}

std::shared_ptr<ScriptSource> ScriptSource::fromFile(const std::string& path) {
  auto bytes = files::readWhole(path);
  return bytes ? std::make_shared<ScriptSource>(std::move(*bytes)) : nullptr;
}

bool ScriptSource::nextLine(std::string_view& line) {
  if (at_ >= text_.size())
    return false;
  const auto end = std::min(text_.find('\n', at_), text_.size());
  line = withoutReturn(std::string_view(text_).substr(at_, end - at_));
  at_ = end + 1;
  return true;
}

ReadStatus ScriptSource::readLine(const OdString&, OdString& line) {
  std::string_view bytes;
  do {
    if (!nextLine(bytes))
      return ReadStatus::kEnd;
  } while (bytes.starts_with(';'));
  line = OdString::fromUtf8(bytes);
  return ReadStatus::kLine;
}

ListSource::ListSource(std::vector<OdString> answers, bool script) : answers_(std::move(answers)), script_(script) {}

ReadStatus ListSource::readLine(const OdString&, OdString& line) {
  if (at_ == answers_.size())
    return ReadStatus::kEnd;
  line = answers_[at_++];
  return ReadStatus::kLine;
}

} // namespace morvane

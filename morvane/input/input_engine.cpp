#include "morvane/input.h"
#include "morvane/input/keyword_list.h"
#include "morvane/input/point_parser.h"
#include "morvane/input/trimmed.h"
#include "morvane/messages/texts.h"
#include "morvane/output.h"
#include "morvane/result_codes.h"
#include "morvane/units.h"

#include <algorithm>

namespace morvane {
namespace {

constexpr int kNoEmptyAnswer = 1;
constexpr int kUnchecked = 8;
constexpr int kAnyText = 128;

constexpr std::wstring_view kEscape = L"\x1b";

// Callers' buffers end at the first zero, so an answer does too.
std::wstring untilZero(const OdString& line) {
  return std::wstring(line.visible());
}

// How many characters in front are a text in double quotes; 0 where it is not closed, or goes on behind them.
std::size_t quotedPart(const std::wstring& line) {
  const auto close = line.empty() || line[0] != L'"' ? std::wstring::npos : line.find(L'"', 1);
  const bool ends =
      close != std::wstring::npos && (close + 1 == line.size() || line.find_first_of(L" \t", close) == close + 1);
  return ends ? close + 1 : 0;
}

} // namespace

struct InputEngine::Level {
  std::shared_ptr<InputSource> source;
  std::optional<std::wstring> rest; // of a line whose first part answered an earlier input
};

struct InputEngine::Armed {
  int flags = 0;
  input::KeywordList keywords;
  bool has(int flag) const { return (flags & flag) != 0; }
};

InputEngine::InputEngine(Output& output) : output_(output) {}
InputEngine::~InputEngine() = default;

void InputEngine::pushSource(std::shared_ptr<InputSource> source) {
  if (source == nullptr)
    return;
  levels_.push_back({std::move(source), std::nullopt});
  endedInPrompt_ = false;
}

void InputEngine::clearSources() {
  levels_.clear();
}

bool InputEngine::isScript() const {
  return !levels_.empty() && levels_.back().source->isScript();
}

int InputEngine::initGet(int flags, std::wstring_view keywords) {
  armed_ = std::make_unique<Armed>(Armed{flags, input::KeywordList(keywords)});
  return RTNORM;
}

InputEngine::Armed InputEngine::takeArmed() {
  const auto armed = std::exchange(armed_, nullptr);
  return armed == nullptr ? Armed{} : *armed;
}

// The next line of a source. kEnd: it has no more.
ReadStatus InputEngine::readLine(Level& level, const OdString& prompt) {
  OdString line;
  const ReadStatus status = level.source->readLine(prompt, line);
  if (status == ReadStatus::kCancelled || (status == ReadStatus::kLine && line == OdString(kEscape)))
    return ReadStatus::kCancelled;
  if (status == ReadStatus::kLine)
    level.rest = untilZero(line);
  return status;
}

// The line that was read, or the part of it up to a space; the rest stays for the next answer.
std::wstring InputEngine::takeAnswer(Level& level, Extent extent) {
  std::wstring answer = *std::exchange(level.rest, std::nullopt);
  const bool toSpace = extent == Extent::kToSpace || (extent != Extent::kLine && level.source->isScript());
  const auto space =
      toSpace ? answer.find_first_of(L" \t", extent == Extent::kName ? quotedPart(answer) : 0) : std::wstring::npos;
  if (space != std::wstring::npos) {
    level.rest = answer.substr(space + 1);
    answer.resize(space);
  }
  return answer;
}

// An answer from the topmost source that has one.
ReadStatus InputEngine::readRaw(const OdString& prompt, Extent extent, std::wstring& answer) {
  bool shown = false;
  while (!levels_.empty()) {
    Level& top = levels_.back();
    if (!shown && (top.rest || !top.source->showsPrompt())) {
      output_.print(prompt);
      shown = true;
    }
    const ReadStatus status = top.rest ? ReadStatus::kLine : readLine(top, prompt);
    if (status == ReadStatus::kCancelled)
      return status;
    if (status == ReadStatus::kEnd) {
      levels_.pop_back();
      continue;
    }
    answer = takeAnswer(top, extent);
    if (echo_ && !top.source->showsPrompt())
      output_.print(OdString(answer + L"\n"));
    if (extent == Extent::kName && answer.size() > 1 && quotedPart(answer) == answer.size())
      answer = answer.substr(1, answer.size() - 2);
    return ReadStatus::kLine;
  }
  if (!shown)
    output_.print(prompt);
  return ReadStatus::kEnd;
}

ReadStatus InputEngine::readAnswer(const OdString& prompt, bool allowSpaces, OdString& answer) {
  std::wstring text;
  const ReadStatus status = readRaw(prompt, allowSpaces ? Extent::kLine : Extent::kToSpace, text);
  answer = OdString(std::move(text));
  return status;
}

void InputEngine::dropRestOfLine() {
  for (Level& level : levels_)
    level.rest.reset();
}

// Asks until there is an answer, a keyword, a permitted empty answer or a cancel. An end of input is a cancel, so that
// no caller asks for ever.
InputEngine::Verdict InputEngine::promptOnce(const Armed& armed, const OdString& prompt, Extent extent,
                                             std::wstring& answer) {
  for (;;) {
    const ReadStatus status = readRaw(prompt, extent, answer);
    if (status == ReadStatus::kEnd)
      endedInPrompt_ = true;
    if (status != ReadStatus::kLine)
      return Verdict::kCancel;
    if (answer.empty() && !armed.has(kNoEmptyAnswer))
      return Verdict::kEmpty;
    if (!answer.empty())
      break;
    output_.print(texts::kAnswerRequired);
  }
  if (auto global = armed.keywords.match(input::trimmed(answer))) {
    answer = std::move(*global);
    return Verdict::kKeyword;
  }
  return Verdict::kText;
}

int InputEngine::getString(bool allowSpaces, const OdString& prompt, OdString& result) {
  return getText(allowSpaces ? Extent::kLine : Extent::kToSpace, prompt, result);
}

int InputEngine::getName(const OdString& prompt, OdString& result) {
  return getText(Extent::kName, prompt, result);
}

int InputEngine::getText(Extent extent, const OdString& prompt, OdString& result) {
  const Armed armed = takeArmed();
  result.empty();
  std::wstring answer;
  switch (promptOnce(armed, prompt, extent, answer)) {
  case Verdict::kCancel:
    return RTCANCELLED;
  case Verdict::kEmpty:
    return RTEMPTY;
  default:
    break;
  }
  answer.resize(std::min<std::size_t>(answer.size(), kMaxAnswerLength));
  result = OdString(std::move(answer));
  return RTNORM;
}

int InputEngine::getKeyword(const OdString& prompt, OdString& result) {
  result.empty();
  OdString keyword;
  const int code = promptValue(prompt, texts::kNoSuchKeyword, [](const Armed&, const std::wstring&) { return false; });
  if (code == RTKEYWORD) {
    result = lastKeyword_;
    return RTNORM;
  }
  return code;
}

// Asks until `accept` takes the text or it is a keyword. RTNORM for an accepted text, RTKEYWORD with lastKeyword_ set.
int InputEngine::promptValue(const OdString& prompt, const OdString& complaint, const Accept& accept) {
  const Armed armed = takeArmed();
  for (;;) {
    std::wstring answer;
    const Verdict verdict = promptOnce(armed, prompt, Extent::kToSpaceInScripts, answer);
    if (verdict == Verdict::kCancel)
      return RTCANCELLED;
    const std::wstring text = verdict == Verdict::kText ? std::wstring(input::trimmed(answer)) : answer;
    if (verdict == Verdict::kEmpty || (verdict == Verdict::kText && text.empty() && !armed.has(kNoEmptyAnswer)))
      return RTEMPTY;
    if (verdict == Verdict::kText && accept(armed, text))
      return RTNORM;
    if (verdict == Verdict::kKeyword || (armed.has(kAnyText) && !text.empty())) {
      lastKeyword_ = OdString(text.substr(0, kMaxAnswerLength));
      return RTKEYWORD;
    }
    output_.print(complaint);
  }
}

int InputEngine::getPoint(const OdString& prompt, double* result) {
  return promptValue(prompt, texts::kInvalidPoint, [&](const Armed& armed, const std::wstring& text) {
    const auto point = input::parsePoint(text, lastPointWcs_, frame_);
    if (!point || (!armed.has(kUnchecked) && !insideLimits(point->data())))
      return false;
    std::copy(point->begin(), point->end(), result);
    setLastPoint(result);
    return true;
  });
}

int InputEngine::getReal(const OdString& prompt, double& result) {
  return promptValue(prompt, texts::kInvalidNumber, [&](const Armed&, const std::wstring& text) {
    const auto number = parseDistance(text);
    result = number.value_or(result);
    return number.has_value();
  });
}

bool InputEngine::insideLimits(const double* pointUcs) const {
  std::array<double, 3> world = {pointUcs[0], pointUcs[1], pointUcs[2]};
  if (frame_ != nullptr)
    frame_->ucsToWcs(pointUcs, world.data());
  return !limits_ || limits_(world.data());
}

std::array<double, 3> InputEngine::lastPoint() const {
  std::array<double, 3> point = lastPointWcs_;
  if (frame_ != nullptr)
    frame_->wcsToUcs(lastPointWcs_.data(), point.data());
  return point;
}

// Kept in world coordinates, so that a change of the UCS does not move it.
void InputEngine::setLastPoint(const double* pointUcs) {
  std::copy(pointUcs, pointUcs + 3, lastPointWcs_.begin());
  if (frame_ != nullptr)
    frame_->ucsToWcs(pointUcs, lastPointWcs_.data());
}

} // namespace morvane

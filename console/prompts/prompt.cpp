#include "console/prompts/prompt.h"
#include "console/messages/catalog/objects.h"
#include "console/messages/catalog/session.h"

namespace console {
namespace {

constexpr int kRequired = 1;

OdString promptLine(MessageText prompt, const Arguments& arguments) {
  return L"\n" + render(prompt, arguments) + L" ";
}

// True for an answer, false for an empty one.
bool answered(int code) {
  if (code == RTEMPTY)
    return false;
  if (code != RTNORM && code != RTKEYWORD)
    cancel();
  return true;
}

std::optional<OdGePoint3d> pointFrom(Session& session, MessageText prompt) {
  double point[3] = {};
  if (!answered(session.host().input().getPoint(promptLine(prompt, {}), point)))
    return std::nullopt;
  return OdGePoint3d(point[0], point[1], point[2]);
}

} // namespace

std::optional<OdString> promptText(Session& session, MessageText prompt, const Arguments& arguments, bool wholeLine) {
  morvane::InputEngine& input = session.host().input();
  OdString text;
  if (!answered(wholeLine ? input.getString(true, promptLine(prompt, arguments), text)
                          : input.getName(promptLine(prompt, arguments), text)))
    return std::nullopt;
  text.trimLeft().trimRight();
  return text.isEmpty() ? std::nullopt : std::optional(text);
}

std::optional<OdString> promptKeyword(Session& session, MessageText keywords, MessageText prompt,
                                      const Arguments& arguments) {
  morvane::InputEngine& input = session.host().input();
  input.initGet(0, render(keywords).str());
  OdString keyword;
  if (!answered(input.getKeyword(promptLine(prompt, arguments), keyword)))
    return std::nullopt;
  return keyword;
}

// In a script any other answer is a no: whatever comes next was not meant for this question.
bool promptYesNo(Session& session, MessageText prompt, const Arguments& arguments) {
  constexpr int kAnyText = 128;
  if (!session.isInteractive()) {
    session.refuseQuestion(render(prompt, arguments));
    return false;
  }
  morvane::InputEngine& input = session.host().input();
  for (;;) {
    input.initGet(kAnyText, render(msg::kKeywordsYesNo).str());
    OdString answer;
    if (!answered(input.getKeyword(promptLine(prompt, arguments), answer)))
      return false;
    if (answer == L"Yes" || answer == L"No" || input.isScript())
      return answer == L"Yes";
    session.print(msg::kYesOrNo);
  }
}

std::optional<OdGePoint3d> promptPoint(Session& session, MessageText prompt) {
  return pointFrom(session, prompt);
}

OdGePoint3d promptRequiredPoint(Session& session, MessageText prompt) {
  session.host().input().initGet(kRequired, {});
  return pointFrom(session, prompt).value();
}

std::optional<double> promptNumber(Session& session, MessageText prompt, const Arguments& arguments) {
  double number = 0;
  if (!answered(session.host().input().getReal(promptLine(prompt, arguments), number)))
    return std::nullopt;
  return number;
}

double promptRequiredNumber(Session& session, MessageText prompt) {
  session.host().input().initGet(kRequired, {});
  return promptNumber(session, prompt).value();
}

std::optional<double> promptAngle(Session& session, MessageText prompt) {
  for (;;) {
    const auto text = promptText(session, prompt);
    if (!text)
      return std::nullopt;
    if (const auto angle = morvane::parseAngle(text->str()))
      return angle;
    session.print(msg::kNotAnAngle, {*text});
  }
}

PointOrKeyword promptPointOr(Session& session, MessageText keywords, MessageText prompt, bool required) {
  morvane::InputEngine& input = session.host().input();
  input.initGet(required ? kRequired : 0, render(keywords).str());
  double point[3] = {};
  const int code = input.getPoint(promptLine(prompt, {}), point);
  if (code == RTKEYWORD)
    return {std::nullopt, input.lastKeyword()};
  if (!answered(code))
    return {};
  return {OdGePoint3d(point[0], point[1], point[2]), {}};
}

} // namespace console

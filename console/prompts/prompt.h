// Questions to the user. A cancel, and the end of the input, throw the cancelled Failure.
#pragma once

#include "console/session/session.h"

#include "Ge/GePoint3d.h"

#include <optional>

namespace console {

using Arguments = std::vector<OdString>;

// Empty answers are nothing. A script's answer ends at a blank, outside of double quotes, unless the whole line is
// wanted.
std::optional<OdString> promptText(Session& session, MessageText prompt, const Arguments& arguments = {},
                                   bool wholeLine = false);
// The global name of the keyword, or nothing for an empty answer.
std::optional<OdString> promptKeyword(Session& session, MessageText keywords, MessageText prompt,
                                      const Arguments& arguments = {});
bool promptYesNo(Session& session, MessageText prompt, const Arguments& arguments = {}); // an empty answer means no
// In the current UCS. An empty answer is nothing.
std::optional<OdGePoint3d> promptPoint(Session& session, MessageText prompt);
OdGePoint3d promptRequiredPoint(Session& session, MessageText prompt);
std::optional<double> promptNumber(Session& session, MessageText prompt, const Arguments& arguments = {});
double promptRequiredNumber(Session& session, MessageText prompt);
std::optional<double> promptAngle(Session& session, MessageText prompt); // radians

struct PointOrKeyword {
  std::optional<OdGePoint3d> point;
  OdString keyword; // empty when a point, or nothing, was answered
};
PointOrKeyword promptPointOr(Session& session, MessageText keywords, MessageText prompt, bool required = false);

} // namespace console

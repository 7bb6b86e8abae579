// The audit of a drawing as the command and the sub-verb show it.
#pragma once

#include "console/session/session.h"

namespace console {

// A table of the issues as results, and how many there are.
void showIssues(Session& session, const std::vector<drawing::Issue>& issues);

// Audits the open drawing, adds what it finds to the session's issues and notes what was repaired or is lost.
std::vector<drawing::Issue> auditOpenDrawing(Session& session, bool fix);

} // namespace console

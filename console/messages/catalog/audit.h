// Texts of the console: auditing.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kAuditSeverity{"audit.severity", L"Severity"};
inline constexpr MessageText kAuditLocation{"audit.place", L"Location"};
inline constexpr MessageText kAuditFound{"audit.found", L"Found"};
inline constexpr MessageText kAuditDone{"audit.done", L"Done"};
inline constexpr MessageText kAuditRow{"audit.row", L"{1}  {2}  {3}  {4}"};
inline constexpr MessageText kAuditSum{
    "audit.records", L"{1} {1:record|records} read, {2} preserved unchanged, {3} preserved unparsed, {4} dropped."};
inline constexpr MessageText kAuditWhole{"audit.whole", L"No problems found."};
inline constexpr MessageText kAuditIssues{"audit.issues", L"{1} {1:problem|problems} found."};
inline constexpr MessageText kFixNeedsOutput{"usage.fix-output", L"--fix and -o OUT require each other."};
inline constexpr MessageText kHelpAudit{"help.audit", L"Find damage, and repair it"};
inline constexpr MessageText kPromptFix{"prompt.fix", L"Repair the problems? [Yes/No] <No>:"};

} // namespace console::msg

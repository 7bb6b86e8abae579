// The report as JSON; docs/report-json.md describes the format.
#pragma once

#include "console/messages/json.h"
#include "console/report/drawing_report.h"

#include "drawing/report.h"

namespace console::report {

Json toJson(const DrawingReport& report, bool all);
// Without a drawing: the same keys, empty.
Json emptyJson();

const char* xrefStatusName(drawing::XrefStatus status); // "loaded", "not-found" ...
const char* severityName(drawing::Severity severity);   // "note", "repaired" ...
Json issuesJson(const std::vector<drawing::Issue>& issues);
// One text with a line end. Bytes of a damaged drawing may be no UTF-8; they are shown as U+FFFD.
OdString jsonText(const Json& json);

} // namespace console::report

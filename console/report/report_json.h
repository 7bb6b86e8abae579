// The report as JSON; docs/report-json.md tells the layout.
#pragma once

#include "console/report/drawing_report.h"

#include "drawing/report.h"

#include <nlohmann/json.hpp>

namespace console::report {

nlohmann::ordered_json toJson(const DrawingReport& report, bool all);
// Without a drawing: the same keys, empty.
nlohmann::ordered_json emptyJson();

const char* xrefStatusName(drawing::XrefStatus status); // "loaded", "not-found" ...
const char* severityName(drawing::Severity severity);   // "note", "repaired" ...
nlohmann::ordered_json issuesJson(const std::vector<drawing::Issue>& issues);
// One text with a line end. Bytes of a damaged drawing may be no UTF-8; they are shown as U+FFFD.
OdString jsonText(const nlohmann::ordered_json& json);

} // namespace console::report

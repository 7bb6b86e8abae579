// The report for people.
#pragma once

#include "console/report/drawing_report.h"

namespace console::report {

// A line for each block, columns aligned, names escaped; a dynamic block has one line for all its shapes.
OdString tableText(const DrawingReport& report, bool all);

} // namespace console::report

// Texts of the console: the block report.
#pragma once

#include "console/messages/messages.h"

namespace console::msg {

inline constexpr MessageText kReportName{"report.name", L"Name"};
inline constexpr MessageText kReportReferences{"report.references", L"References"};
inline constexpr MessageText kReportNested{"report.nested", L"Nested"};
inline constexpr MessageText kReportAttributes{"report.attributes", L"Attributes"};
inline constexpr MessageText kReportDepth{"report.depth", L"Depth"};
inline constexpr MessageText kReportUnits{"report.units", L"Units"};
inline constexpr MessageText kReportNotes{"report.notes", L"Notes"};
inline constexpr MessageText kReportMany{"report.many", L"very many"};
inline constexpr MessageText kReportLayout{"report.layout", L"layout {1}"};
inline constexpr MessageText kReportShapeOf{"report.shape-of", L"dynamic instance of {1}"};
inline constexpr MessageText kReportXref{"report.xref", L"external: {1}"};
inline constexpr MessageText kReportOverlay{"report.overlay", L"external, overlay: {1}"};
inline constexpr MessageText kReportDependent{"report.dependent", L"from an external reference"};
inline constexpr MessageText kReportDynamic{"report.dynamic", L"dynamic"};
inline constexpr MessageText kReportAnnotative{"report.annotative", L"annotative"};
inline constexpr MessageText kReportUniform{"report.uniform", L"uniform scaling"};
inline constexpr MessageText kReportNoExplode{"report.no-explode", L"not explodable"};

} // namespace console::msg

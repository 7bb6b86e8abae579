#include "console/maintenance/audit.h"
#include "console/messages/catalog/audit.h"

#include "drawing/audit.h"

#include <algorithm>
#include <array>

namespace console {
namespace {

using Row = std::array<OdString, 4>;

OdString escapedText(const std::string& bytes) {
  return escaped(OdString::fromUtf8(bytes));
}

OdString severityText(drawing::Severity severity) {
  constexpr const wchar_t* kNames[] = {L"note", L"repaired", L"lost", L"fatal"};
  return kNames[static_cast<std::size_t>(severity)];
}

Row rowOf(const drawing::Issue& issue) {
  return {severityText(issue.severity), escapedText(drawing::locationOf(issue)), escapedText(issue.found),
          escapedText(issue.done)};
}

} // namespace

void showIssues(Session& session, const std::vector<drawing::Issue>& issues) {
  if (issues.empty()) {
    session.result(msg::kAuditWhole);
    return;
  }
  std::vector<Row> rows = {
      {render(msg::kAuditSeverity), render(msg::kAuditLocation), render(msg::kAuditFound), render(msg::kAuditDone)}};
  for (const drawing::Issue& issue : issues)
    rows.push_back(rowOf(issue));
  std::array<int, 3> widths = {};
  constexpr int kWidest = 60; // longer cells push the rest of their line
  for (const Row& row : rows) {
    for (std::size_t column = 0; column < widths.size(); ++column)
      widths[column] = std::max(widths[column], std::min(row[column].getLength(), kWidest));
  }
  for (Row& row : rows) {
    for (std::size_t column = 0; column < widths.size(); ++column)
      row[column] += OdString(L' ', std::max(0, widths[column] - row[column].getLength()));
    session.result(msg::kAuditRow, {row[0], row[1], row[2], row[3]});
  }
  session.result(msg::kAuditIssues, {count(issues.size())});
}

std::vector<drawing::Issue> auditOpenDrawing(Session& session, bool fix) {
  const drawing::Report report = drawing::auditDrawing(session.database(), fix);
  session.addIssues(report);
  if (report.outcome() != drawing::Outcome::kWhole)
    session.raiseStatus(Status::kRepaired);
  return report.issues();
}

} // namespace console

#include "console/report/report_table.h"
#include "console/messages/catalog/lists.h"
#include "console/messages/catalog/report.h"
#include "console/messages/messages.h"

#include <algorithm>
#include <array>

namespace console::report {
namespace {

constexpr std::size_t kColumns = 7;
using Row = std::array<OdString, kColumns>;

constexpr bool isNumber(std::size_t column) {
  return column >= 1 && column <= 4;
}

OdString timesText(std::uint64_t count) {
  return count < kMaxInstances ? console::count(count) : render(msg::kReportMany);
}

void addNote(OdString& notes, const OdString& note) {
  notes += (notes.isEmpty() ? OdString() : OdString(L", ")) + note;
}

OdString notesOf(const Block& block) {
  struct Flag {
    bool on;
    MessageText text;
  };
  const Flag flags[] = {{block.isDependent, msg::kReportDependent},
                        {block.withDynamicInstances.has_value(), msg::kReportDynamic},
                        {block.isAnnotative, msg::kReportAnnotative},
                        {block.isUniform.value_or(false), msg::kReportUniform},
                        {!block.isExplodable.value_or(true), msg::kReportNoExplode}};
  OdString notes;
  if (!block.layout.isEmpty())
    addNote(notes, render(msg::kReportLayout, {block.layout}));
  if (!block.trueName.isEmpty() && !block.withDynamicInstances)
    addNote(notes, render(msg::kReportShapeOf, {block.trueName}));
  if (block.xref)
    addNote(notes, render(block.xref->overlay ? msg::kReportOverlay : msg::kReportXref, {block.xref->path}));
  for (const Flag& flag : flags) {
    if (flag.on)
      addNote(notes, render(flag.text));
  }
  return notes;
}

OdString unitsText(int code) {
  constexpr const wchar_t* kUnits[] = {L"-", L"in", L"ft", L"mi", L"mm",  L"cm", L"m",  L"km", L"uin", L"mil", L"yd",
                                       L"A", L"nm", L"um", L"dm", L"dam", L"hm", L"Gm", L"AU", L"ly",  L"pc"};
  const auto at = static_cast<std::size_t>(code);
  return at < std::size(kUnits) ? OdString(kUnits[at]) : OdString(std::to_wstring(code));
}

Row rowOf(const Block& block) {
  const Counts counts = block.withDynamicInstances.value_or(block.references);
  return {escaped(block.name),
          console::count(counts.direct),
          timesText(counts.nested),
          console::count(block.attributes.size()),
          console::count(block.depth),
          unitsText(block.units.value_or(0)),
          notesOf(block)};
}

// Columns are as wide as their widest text.
OdString aligned(const std::vector<Row>& rows) {
  std::array<int, kColumns> width{};
  for (const Row& row : rows) {
    for (std::size_t at = 0; at < kColumns; ++at)
      width[at] = std::max(width[at], row[at].getLength());
  }
  OdString text;
  for (const Row& row : rows) {
    OdString line;
    for (std::size_t at = 0; at < kColumns; ++at) {
      const OdString gap(L' ', width[at] - row[at].getLength());
      line += (at == 0 ? OdString() : OdString(L"  ")) + (isNumber(at) ? gap + row[at] : row[at] + gap);
    }
    text += line.trimRight() + L"\n";
  }
  return text;
}

} // namespace

OdString tableText(const DrawingReport& report, bool all) {
  std::vector<Row> rows = {{render(msg::kReportName), render(msg::kReportReferences), render(msg::kReportNested),
                            render(msg::kReportAttributes), render(msg::kReportDepth), render(msg::kReportUnits),
                            render(msg::kReportNotes)}};
  for (const Block& block : report.blocks) {
    if (all || isOrdinary(block))
      rows.push_back(rowOf(block));
  }
  return rows.size() == 1 ? render(msg::kNoBlocks) + L"\n" : aligned(rows);
}

} // namespace console::report

#include "console/attributes/attribute_import.h"
#include "console/messages/catalog/attributes.h"

#include "console/attributes/attributes.h"
#include "console/messages/csv.h"
#include "console/messages/number_text.h"

#include "drawing/files.h"

#include <array>
#include <charconv>
#include <optional>
#include <unordered_map>

namespace console {
namespace {

enum Column : std::size_t { kHandle, kTag, kValue, kOrdinal, kBlock, kColumnCount };
constexpr std::array<std::string_view, kColumnCount> kColumnNames = {"handle", "tag", "value", "ordinal", "block"};
constexpr std::size_t kNeeded = 3; // the others may be missing
constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

CsvTable readTable(const std::string& path) {
  drawing::MappedFile file;
  if (const drawing::FileError error = file.open(path); !error.ok())
    throw Failure{Status::kUnreadable, {msg::kCsvUnreadable, {OdString::fromUtf8(error.text)}}};
  CsvTable table = parseCsv(file.text());
  if (table.fault)
    refuse(*table.fault == CsvFault::kQuoteOpen ? msg::kCsvOpen : msg::kCsvQuote,
           {OdString::fromUtf8(path), count(table.faultLine)});
  for (const CsvRow& row : table.rows) {
    if (row.cells.size() != table.rows[0].cells.size())
      refuse(msg::kCsvCells,
             {OdString::fromUtf8(path), count(row.line), count(row.cells.size()), count(table.rows[0].cells.size())});
  }
  return table;
}

std::array<std::size_t, kColumnCount> columnsOf(const CsvTable& table, const std::string& path) {
  std::array<std::size_t, kColumnCount> columns;
  for (std::size_t column = 0; column < kColumnCount; ++column) {
    const OdString name = OdString::fromUtf8(kColumnNames[column]);
    columns[column] = kNoColumn;
    for (std::size_t i = 0; !table.rows.empty() && i < table.rows[0].cells.size(); ++i) {
      if (columns[column] == kNoColumn && name.iCompare(OdString::fromUtf8(table.rows[0].cells[i])) == 0)
        columns[column] = i;
    }
    if (column < kNeeded && columns[column] == kNoColumn)
      refuse(msg::kCsvColumn, {OdString::fromUtf8(path), name});
  }
  return columns;
}

using Misfit = std::optional<Message>; // why a row does not fit

class Import {
public:
  Import(OdDbDatabase& database, std::array<std::size_t, kColumnCount> columns)
      : database_(database), columns_(columns) {}

  void take(const CsvRow& row) {
    const AttributeRow* attribute = nullptr;
    Misfit misfit = find(row, attribute);
    if (!misfit)
      misfit = set(row, *attribute);
    if (misfit)
      result_.misfits.push_back({row.line, *misfit});
  }
  ImportedAttributes result() const { return result_; }

private:
  OdString cell(const CsvRow& row, Column column) const {
    return columns_[column] == kNoColumn ? OdString() : OdString::fromUtf8(row.cells[columns_[column]]);
  }

  // Of a reference; null when there is none. The same for all its rows.
  const ReferenceAttributes* attributesOfHandle(const OdString& handle) {
    const auto number = parseHandle(handle.toUtf8());
    const OdDbObjectId id = number ? database_.objectIdOf(*number) : OdDbObjectId();
    const auto known = references_.find(id);
    if (known != references_.end())
      return &known->second;
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(id.safeOpenObject());
    return reference.isNull() ? nullptr : &references_.emplace(id, *reference).first->second;
  }

  // Empty is the first; nothing for text that is not a number.
  static std::optional<int> ordinalOf(const std::string& digits) {
    int ordinal = 1;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), ordinal);
    const bool isNumber = error == std::errc() && end == digits.data() + digits.size();
    return isNumber || digits.empty() ? std::optional(ordinal) : std::nullopt;
  }

  Misfit find(const CsvRow& row, const AttributeRow*& found) {
    const OdString handle = cell(row, kHandle), tag = cell(row, kTag), entered = cell(row, kOrdinal);
    const ReferenceAttributes* attributes = attributesOfHandle(handle);
    if (attributes == nullptr)
      return Message{msg::kMisfitHandle, {handle}};
    const std::size_t equal = attributes->count(tag);
    if (equal == 0)
      return Message{msg::kMisfitTag, {handle, tag}};
    found = attributes->find(tag, ordinalOf(entered.toUtf8()).value_or(0));
    if (found == nullptr)
      return Message{msg::kMisfitOrdinal, {handle, count(equal), tag, entered}};
    const OdString block = cell(row, kBlock);
    if (!block.isEmpty() && block.iCompare(found->block) != 0)
      return Message{msg::kMisfitBlock, {handle, found->block, block}};
    return {};
  }

  Misfit set(const CsvRow& row, const AttributeRow& attribute) {
    const auto [given, isFirst] = lines_.emplace(attribute.attribute, row.line);
    if (!isFirst)
      return Message{msg::kMisfitTwice, {count(given->second)}};
    const OdString name = attributeName(attribute);
    switch (changeValue(attribute.attribute, cell(row, kValue))) {
    case ValueChange::kLocked:
      return Message{msg::kAttributeLocked, {name}};
    case ValueChange::kConstant:
      return Message{msg::kAttributeConstant, {name}};
    case ValueChange::kLines:
      return Message{msg::kAttributeLines, {name}};
    case ValueChange::kSame:
      ++result_.same;
      return {};
    default:
      ++result_.changed;
      return {};
    }
  }

  OdDbDatabase& database_;
  const std::array<std::size_t, kColumnCount> columns_;
  std::unordered_map<OdDbObjectId, ReferenceAttributes> references_;
  std::unordered_map<OdDbObjectId, std::size_t> lines_; // where an attribute's value was given
  ImportedAttributes result_;
};

} // namespace

ImportedAttributes importAttributes(OdDbDatabase& database, const std::string& path) {
  const CsvTable table = readTable(path);
  Import import(database, columnsOf(table, path));
  for (std::size_t i = 1; i < table.rows.size(); ++i)
    import.take(table.rows[i]);
  return import.result();
}

} // namespace console

#include "drawing/dxf/reader.h"

#include "DbDictionary.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_table_kinds.h"

#include <algorithm>
#include <utility>

namespace drawing::dxf {

const Reader::SectionHandler Reader::kHandlers[] = {
    {"HEADER", &Reader::readHeader},     {"TABLES", &Reader::readTables},   {"BLOCKS", &Reader::readBlocks},
    {"ENTITIES", &Reader::readEntities}, {"OBJECTS", &Reader::readObjects},
};

Reader::Reader(OdDbDatabase& database, GroupSource& source, TextDecoder& decoder, Report& report, const Budget& budget)
    : database_(database), source_(source), report_(report), builder_(database, decoder, report, budget) {
  source_.limitRecords(static_cast<std::size_t>(budget.bytes / sizeof(RawGroup)) + 1);
}

bool Reader::advance() {
  if (!std::exchange(again_, false) && !source_.nextRecord(record_))
    return false;
  line_ = record_[0].line;
  const bool isWithinBudget = builder_.start(record_);
  if (source_.isOverLimit())
    builder_.refuseSize();
  return isWithinBudget && !source_.isOverLimit();
}

// Moves to the next record of the section; false at its end.
bool Reader::inSection() {
  return inRun("ENDSEC", {"SECTION", "EOF"});
}

// Moves to the next record of a run; false at its end. A record that begins or ends something larger ends the run too:
// its own end is missing then, and that record is read again as part of the larger run.
bool Reader::inRun(std::string_view end, std::initializer_list<std::string_view> larger) {
  if (!limit().empty() || !advance())
    return false;
  if (record_[0].text == end && record_[0].code == 0) {
    if (end != "ENDBLK")
      checkRest(1);
    return false;
  }
  if (record_[0].code != 0 || std::find(larger.begin(), larger.end(), record_[0].text) == larger.end())
    return true;
  builder_.report("dxf.end-missing", Severity::kRepaired, "\"" + std::string(end) + "\" is missing before this record",
                  "the data before it is kept");
  again_ = true;
  return false;
}

OdResult Reader::run() {
  while (limit().empty() && !sawEnd_ && advance())
    readOutsideSections();
  if (!limit().empty())
    return eBudgetExceeded;
  if (!sawSection_)
    return eNotADrawing;
  checkEnd();
  const OdResult result = builder_.finish();
  line_ = 0;
  return result;
}

void Reader::readOutsideSections() {
  if (record_[0].text == "SECTION")
    readSection();
  else if (record_[0].text == "EOF")
    sawEnd_ = true;
  else if (record_[0].code == 999)
    database_.fileInfo().comments.push_back(std::string(record_[0].text));
  else if (record_[0].text == "ENDSEC")
    builder_.report("dxf.stray-section-end", Severity::kRepaired, "ENDSEC without a section", "it is dropped");
  else if (record_[0].code == 0)
    builder_.reportSkipped("dxf.outside-section", "a record outside every section");
  else
    checkRest(0);
}

void Reader::checkEnd() {
  if (!sawEnd_)
    builder_.report("dxf.no-end-of-file", Severity::kRepaired, "the file has no EOF", "the data up to here is kept");
  else if (source_.hasRest())
    builder_.report("dxf.behind-end", Severity::kLost, "data after EOF", "it is skipped");
}

// Groups where none belong.
void Reader::checkRest(std::size_t from) {
  for (std::size_t i = from; i < record_.size(); ++i)
    builder_.context().addIssue(
        {.code = "dxf.stray-group", .severity = Severity::kLost, .found = "stray group", .done = "it is skipped"},
        &record_[i]);
}

void Reader::readSection() {
  const bool isNamed = record_.size() > 1 && record_[1].code == 2;
  const std::string_view name = isNamed ? record_[1].text : std::string_view();
  builder_.context().setSection(name);
  if (!sections_.emplace(name).second)
    builder_.report("dxf.section-repeated", Severity::kNote, "the section is repeated", "it is read as well");
  if (const SectionHandler* known = handlerOf(name)) {
    sawSection_ = true; // opaque sections alone make no drawing
    if (name != "HEADER")
      checkRest(2);
    (this->*known->handler)();
  } else {
    readOpaqueSection();
  }
  builder_.context().setSection("");
}

// Null for a section that is kept opaque.
const Reader::SectionHandler* Reader::handlerOf(std::string_view name) {
  const auto* known = std::find_if(std::begin(kHandlers), std::end(kHandlers),
                                   [name](const SectionHandler& one) { return name == one.name; });
  if (known == std::end(kHandlers))
    return nullptr;
  if (known < std::exchange(furthest_, std::max<const SectionHandler*>(furthest_, known)))
    builder_.report("dxf.section-order", Severity::kNote, "the section is out of order", "it is read anyway");
  return known;
}

// The whole section is one record: its variables begin with code 9.
void Reader::readHeader() {
  GroupList* variable = nullptr;
  auto& header = database_.header();
  const WriteScope scope(header);
  for (std::size_t i = 2; i < record_.size(); ++i) {
    const RawGroup& group = record_[i];
    if (group.code == 9) {
      const std::string_view name = group.text.substr(group.text.substr(0, 1) == "$" ? 1 : 0);
      variable = &header.at(name);
      variable->clear();
    } else if (variable != nullptr) {
      builder_.context().append(*variable, group);
    } else {
      builder_.context().addIssue({.code = "dxf.header-value",
                                   .severity = Severity::kLost,
                                   .found = "a value without a variable",
                                   .done = "it is dropped"},
                                  &group);
    }
  }
  while (inSection())
    builder_.reportSkipped("dxf.record-in-header", "a record among the variables");
}

void Reader::readOpaqueSection() {
  OpaqueSection subclass;
  subclass.name = std::string(record_.size() > 1 && record_[1].code == 2 ? record_[1].text : "");
  for (std::size_t i = 2; i < record_.size(); ++i)
    builder_.context().append(subclass.groups, record_[i]);
  while (inSection()) {
    ++report_.counts.opaque;
    for (const RawGroup& group : record_)
      builder_.context().append(subclass.groups, group);
  }
  database_.opaqueSections().push_back(std::move(subclass));
}

void Reader::readTables() {
  while (inSection()) {
    if (record_[0].text == "TABLE")
      readTable();
    else if (record_[0].text != "ENDTAB")
      builder_.reportSkipped("dxf.record-outside-table", "a record outside every table");
  }
}

void Reader::readTable() {
  const std::string_view name = record_.size() > 1 && record_[1].code == 2 ? record_[1].text : std::string_view();
  const OdDb::SymbolTableKind kind = tableKindOf(name);
  if (kind == OdDb::kNoTable) {
    builder_.report("dxf.unknown-table", Severity::kLost, "unknown table \"" + std::string(name) + "\"",
                    "it is skipped");
    return;
  }
  if (!tables_.insert(kind).second)
    builder_.report("dxf.table-repeated", Severity::kNote, "the table is repeated", "its records are read as well");
  Record preamble(record_.begin() + 1, record_.end()); // the name is where records have their handle
  preamble[0] = record_[0];
  OdDbSymbolTable& table = builder_.addTable(kind, preamble);
  while (inRun("ENDTAB", {"TABLE", "ENDSEC", "SECTION", "EOF"})) {
    if (record_[0].text == tableDxfName(kind))
      builder_.addTableRecord(kind, table);
    else
      builder_.reportSkipped("dxf.wrong-record-in-table", "a record of another kind in the table");
  }
}

void Reader::readBlocks() {
  while (inSection()) {
    if (record_[0].text == "BLOCK")
      readBlock();
    else
      builder_.reportSkipped("dxf.outside-block", "a record outside every block");
  }
  if (database_.fileInfo().version < OdDb::kRelease13)
    builder_.orderBlocks();
}

void Reader::readBlock() {
  OdDbBlockTableRecord& block = builder_.beginBlock();
  while (inRun("ENDBLK", {"BLOCK", "ENDSEC", "SECTION", "EOF"}))
    builder_.addEntity(&block);
  builder_.endSequence();
  if (!again_ && record_[0].text == "ENDBLK")
    builder_.endBlock(block);
}

void Reader::readEntities() {
  builder_.endSequence();
  while (inSection())
    builder_.addEntity(nullptr);
  builder_.endSequence();
}

// R12 and earlier have no objects.
void Reader::correctVersion() {
  if (database_.fileInfo().version >= OdDb::kRelease13)
    return;
  database_.fileInfo().version = OdDb::kRelease2000;
  builder_.report("dxf.version-contradicted", Severity::kNote,
                  "the file declares an early version but contains objects of later ones",
                  "it is read as version 2000");
}

void Reader::readObjects() {
  while (inSection()) {
    correctVersion();
    builder_.addObject();
  }
}

} // namespace drawing::dxf

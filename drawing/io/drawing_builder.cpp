#include "drawing/io/drawing_builder.h"

#include "DbDictionary.h"
#include "DbSymbolRecords.h"
#include "drawing/blocks/block_graph.h"
#include "drawing/detail/sequence_owner.h"
#include "drawing/io/load_fixups.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_table_kinds.h"

#include <algorithm>

namespace drawing {

DrawingBuilder::DrawingBuilder(OdDbDatabase& database, TextDecoder& decoder, Report& report, const Budget& budget)
    : database_(database), report_(report), budget_(budget), context_(database, decoder, report), objects_(context_) {
  database_.store().deferHandles();
}

void DrawingBuilder::report(const char* code, Severity severity, std::string found, std::string done) {
  context_.addIssue({.code = code, .severity = severity, .found = std::move(found), .done = std::move(done)});
}

void DrawingBuilder::reportSkipped(const char* code, std::string found) {
  report(code, Severity::kLost, std::move(found), "it is skipped");
  ++report_.counts.dropped;
}

bool DrawingBuilder::exceeds(std::string limit) {
  limit_ = std::move(limit);
  return false;
}

void DrawingBuilder::refuseSize() {
  exceeds("more than the " + std::to_string(budget_.bytes) + " bytes of memory allowed are needed");
}

// Charges what the record will take: an object with its entry in the store, its groups, and its texts in characters of
// four bytes.
bool DrawingBuilder::start(const Record& record) {
  record_ = &record;
  context_.begin(record[0].text, record[0].line);
  constexpr std::uint64_t kObject = 512, kGroup = 24, kCharacter = 4;
  bytes_ += kObject + kGroup * record.size();
  for (const RawGroup& group : record)
    bytes_ += kCharacter * group.text.size();
  if (bytes_ > budget_.bytes)
    refuseSize();
  else if (database_.objectCount() > budget_.objects)
    exceeds("more than the " + std::to_string(budget_.objects) + " objects allowed");
  return limit_.empty();
}

OdResult DrawingBuilder::finish() {
  reportWithoutHandle();
  reportBlocksWithoutRecord();
  FixUpContext fixUp{database_, context_, budget_};
  fixUpAfterLoad(fixUp);
  if (nestingDepth(database_) > budget_.depth)
    exceeds("definitions nest deeper than the " + std::to_string(budget_.depth) + " levels allowed");
  return limit_.empty() ? eOk : eBudgetExceeded;
}

void DrawingBuilder::reportWithoutHandle() {
  if (withoutHandle_ == 0 || database_.fileInfo().version < OdDb::kRelease13)
    return;
  context_.begin("", firstWithoutHandle_);
  report("dxf.handle-missing", Severity::kNote,
         std::to_string(withoutHandle_) + " records have no handle, starting here", "they get new ones");
}

OdDbSymbolTable& DrawingBuilder::addTable(OdDb::SymbolTableKind kind, const Record& head) {
  const auto named = std::find_if(head.begin(), head.end(), [](const RawGroup& group) { return group.code == 5; });
  std::uint64_t handle = 0;
  if (named == head.end() || !context_.handle(*named, handle))
    handle = 0;
  OdDbSymbolTable& table = context_.table(kind, handle);
  ReadObject read;
  objects_.fill(head, table, read);
  return table;
}

void DrawingBuilder::addTableRecord(OdDb::SymbolTableKind kind, OdDbSymbolTable& table) {
  if (kind == OdDb::kBlockTable && fillPlaceholder(table))
    return;
  ReadObject read;
  OdRxObjectPtr made = recordClass(kind)->create();
  read.object = made;
  objects_.fill(*record_, *read.object, read);
  if (context_.failed()) // typed values stay at their defaults; the report names the value
    report("dxf.table-record-damaged", Severity::kLost, "a value of the record is unreadable", "its default is used");
  ++report_.counts.read;
  OdSmartPtr<OdDbSymbolTableRecord> record = read.object;
  add(read, table.objectId());
  registerRecord(table, *record);
}

// Files in another order bring blocks, or entities of a space, before the records of the table.
bool DrawingBuilder::fillPlaceholder(OdDbSymbolTable& table) {
  const auto name =
      std::find_if(record_->begin(), record_->end(), [](const RawGroup& group) { return group.code == 2; });
  const OdDbObjectId id =
      placeholders_.empty() || name == record_->end() ? OdDbObjectId() : table.getAt(context_.text(*name));
  if (id.isNull() || placeholders_.erase(id) == 0)
    return false;
  ReadObject read;
  OdDbObject& record = *lookup(id);
  const WriteScope scope(record);
  objects_.fill(*record_, record, read);
  ++report_.counts.read;
  const OdDbObjectId expected = database_.store().assignHandle(id, read.handle);
  if (!expected.isNull())
    context_.redirects().emplace_back(expected, id);
  return true;
}

// Puts the record into its table. A record that was referred to by name before it was read has a placeholder there.
void DrawingBuilder::registerRecord(OdDbSymbolTable& table, OdDbSymbolTableRecord& record) {
  if (table.registerRecord(&record))
    return;
  const OdDbObjectId existing = table.getAt(record.getName());
  if (auto missing = context_.missing().find(existing); missing != context_.missing().end()) {
    table.replaceMember(existing, record);
    context_.missing().erase(missing);
    context_.redirects().emplace_back(existing, record.objectId());
    OdDbObject& placeholder = *lookup(existing);
    const WriteScope scope(placeholder);
    placeholder.erase();
    return;
  }
  const OdString wanted = record.getName();
  const OdString name = table.freeName(wanted);
  const WriteScope scope(record);
  record.setName(name);
  table.registerRecord(&record);
  renamed_[wanted].push_back(record.objectId());
  report("dxf.duplicate-name", Severity::kRepaired,
         "the name \"" + wanted.toUtf8Lossless() + "\" is used twice in the table",
         "the second is renamed to \"" + name.toUtf8Lossless() + "\"");
}

OdDbObjectId DrawingBuilder::add(ReadObject& read, OdDbObjectId owner) {
  const std::uint64_t line = (*record_)[0].line;
  read.object->setOwnerId(owner);
  if (read.handle == 0 && withoutHandle_++ == 0)
    firstWithoutHandle_ = line;
  const OdDbObjectId id = database_.store().add(read.object.get(), read.handle);
  context_.setLineOf(id, line);
  if (read.handle != 0 && id.getHandle() != OdDbHandle(read.handle))
    report("dxf.duplicate-handle", Severity::kRepaired,
           "the handle " + OdDbHandle(read.handle).ascii() + " is used twice", "the second object gets a new one");
  return id;
}

void DrawingBuilder::addObject() {
  ReadObject read = objects_.read(*record_, false);
  const OdDbObjectId id = add(read, read.owner);
  if (database_.getNamedObjectsDictionaryId().isNull() && read.object->isKindOf(OdDbDictionary::desc()))
    database_.setNamedObjectsDictionary(id);
}

} // namespace drawing

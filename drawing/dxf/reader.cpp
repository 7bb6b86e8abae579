#include "dxf/reader.h"

#include "DbCarried.h"
#include "DbDictionary.h"
#include "DbSequence.h"
#include "DbSymbolRecords.h"
#include "db/block_graph.h"
#include "db/settle.h"
#include "db/store.h"
#include "db/symbol_kinds.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace drawing::dxf {

using db::peekAs;

const Reader::SectionHandler Reader::kHandlers[] = {
    {"HEADER", &Reader::readHeader},     {"TABLES", &Reader::readTables},   {"BLOCKS", &Reader::readBlocks},
    {"ENTITIES", &Reader::readEntities}, {"OBJECTS", &Reader::readObjects},
};

Reader::Reader(OdDbDatabase& database, PairSource& source, TextDecoder& decoder, Report& report, const Budget& budget)
    : database_(database), source_(source), report_(report), budget_(budget), context_(database, decoder, report),
      objects_(context_) {}

void Reader::tell(const char* code, Severity severity, std::string found, std::string done) {
  context_.tell({code, severity, 0, -1, 0, "", "", std::move(found), std::move(done)});
}

void Reader::passOver(const char* code, std::string found) {
  tell(code, Severity::Lost, std::move(found), "it is passed over");
  ++report_.account.dropped;
}

bool Reader::exceeds(std::string limit) {
  result_ = eBudgetExceeded;
  limit_ = std::move(limit);
  return true;
}

// What the record at hand will take: an object with its place among the others, its groups, and its texts in characters
// of four bytes.
bool Reader::reckon() {
  constexpr std::uint64_t kObject = 512, kGroup = 24, kCharacter = 4;
  bytes_ += kObject + kGroup * record_.size();
  for (const Pair& pair : record_)
    bytes_ += kCharacter * pair.text.size();
  if (bytes_ > budget_.bytes || source_.isOverLimit())
    return exceeds("more than the " + std::to_string(budget_.bytes) + " bytes of memory that are allowed are needed");
  if (database_.approxNumObjects() > budget_.objects)
    return exceeds("there are more than the " + std::to_string(budget_.objects) + " objects that are allowed");
  return false;
}

bool Reader::advance() {
  if (!std::exchange(again_, false) && !source_.nextRecord(record_))
    return false;
  line_ = record_[0].line;
  context_.begin(record_[0].text, record_[0].line);
  return !reckon();
}

// Moves to the next record of the section; false at its end.
bool Reader::inSection() {
  return inRun("ENDSEC", {"SECTION", "EOF"});
}

// Moves to the next record of a run; false at its end. A record that begins or ends something larger ends the run too:
// its own end is missing then, and that record is met again by whoever reads the larger thing.
bool Reader::inRun(std::string_view end, std::initializer_list<std::string_view> larger) {
  if (result_ != eOk || !advance())
    return false;
  if (record_[0].text == end && record_[0].code == 0) {
    if (end != "ENDBLK")
      checkRest(1);
    return false;
  }
  if (record_[0].code != 0 || std::find(larger.begin(), larger.end(), record_[0].text) == larger.end())
    return true;
  tell("dxf.end-missing", Severity::Repaired, "\"" + std::string(end) + "\" is missing in front of this record",
       "what came before it is kept");
  again_ = true;
  return false;
}

OdResult Reader::run() {
  source_.limitRecords(static_cast<std::size_t>(budget_.bytes / sizeof(Pair)) + 1);
  database_.store().deferHandles();
  while (result_ == eOk && !sawEnd_ && advance()) {
    if (record_[0].text == "SECTION")
      readSection();
    else if (record_[0].text == "EOF")
      sawEnd_ = true;
    else if (record_[0].code == 999)
      database_.facts().comments.push_back(std::string(record_[0].text));
    else if (record_[0].text == "ENDSEC")
      tell("dxf.stray-section-end", Severity::Repaired, "an end of a section without a section", "it is dropped");
    else if (record_[0].code == 0)
      passOver("dxf.outside-section", "a record outside every section");
    else
      checkRest(0);
  }
  if (result_ != eOk)
    return result_;
  if (!sawSection_)
    return eNotADrawing;
  if (!sawEnd_)
    tell("dxf.no-end-of-file", Severity::Repaired, "the file has no end mark", "what came is kept");
  else if (source_.hasRest())
    tell("dxf.behind-end", Severity::Lost, "there is something behind the end mark of the file", "it is passed over");
  tellHandleless();
  tellRecordlessBlocks();
  db::SettleFacts facts{database_, context_, budget_};
  db::settleDrawing(facts);
  line_ = 0;
  if (db::nestingDepth(database_) > budget_.depth)
    exceeds("definitions nest deeper than the " + std::to_string(budget_.depth) + " levels that are allowed");
  return result_;
}

// Groups where none belong.
void Reader::checkRest(std::size_t from) {
  for (std::size_t i = from; i < record_.size(); ++i)
    context_.tell(
        {"dxf.stray-group", Severity::Lost, 0, -1, 0, "", "", "a group that belongs to nothing", "it is passed over"},
        &record_[i]);
}

void Reader::tellHandleless() {
  if (handleless_ == 0 || database_.facts().version < OdDb::kRelease13)
    return;
  context_.begin("", firstHandleless_);
  tell("dxf.handle-missing", Severity::Note,
       std::to_string(handleless_) + " records have no handle, the first of them here", "they get new ones");
}

void Reader::readSection() {
  const bool isNamed = record_.size() > 1 && record_[1].code == 2;
  const std::string_view name = isNamed ? record_[1].text : std::string_view();
  context_.setSection(name);
  if (!sections_.emplace(name).second)
    tell("dxf.section-repeated", Severity::Note, "a section of this name came before", "it is read, too");
  for (const SectionHandler& entry : kHandlers) {
    if (name == entry.name) {
      if (&entry < std::exchange(furthest_, std::max<const SectionHandler*>(furthest_, &entry)))
        tell("dxf.section-order", Severity::Note, "this section belongs in front of one that came before",
             "it is read all the same");
      sawSection_ = true; // sections that nobody knows make no drawing
      if (name != "HEADER")
        checkRest(2);
      (this->*entry.handler)();
      context_.setSection("");
      return;
    }
  }
  readCarriedSection();
  context_.setSection("");
}

// The whole section is one record: its variables begin with code 9.
void Reader::readHeader() {
  GroupList* variable = nullptr;
  auto& header = database_.header();
  const db::WriteScope scope(header);
  for (std::size_t i = 2; i < record_.size(); ++i) {
    const Pair& pair = record_[i];
    if (pair.code == 9) {
      const std::string_view name = pair.text.substr(pair.text.substr(0, 1) == "$" ? 1 : 0);
      variable = &header.at(name);
      variable->clear();
    } else if (variable != nullptr) {
      context_.append(*variable, pair);
    } else {
      context_.tell(
          {"dxf.header-value", Severity::Lost, 0, -1, 0, "", "", "a value without a variable", "it is dropped"}, &pair);
    }
  }
  while (inSection())
    passOver("dxf.record-in-header", "a record among the variables");
}

void Reader::readCarriedSection() {
  CarriedSection section;
  section.name = std::string(record_.size() > 1 && record_[1].code == 2 ? record_[1].text : "");
  for (std::size_t i = 2; i < record_.size(); ++i)
    context_.append(section.groups, record_[i]);
  while (inSection()) {
    ++report_.account.kept;
    for (const Pair& pair : record_)
      context_.append(section.groups, pair);
  }
  database_.carriedSections().push_back(std::move(section));
}

void Reader::readTables() {
  while (inSection()) {
    if (record_[0].text == "TABLE")
      readTable();
    else if (record_[0].text != "ENDTAB")
      passOver("dxf.record-outside-table", "a record outside every table");
  }
}

std::uint64_t Reader::handleIn(const Record& record) {
  for (const Pair& pair : record) {
    std::uint64_t handle = 0;
    if (pair.code == 5)
      return context_.handle(pair, handle) ? handle : 0;
  }
  return 0;
}

void Reader::readTable() {
  const std::string_view name = record_.size() > 1 && record_[1].code == 2 ? record_[1].text : std::string_view();
  const OdDb::SymbolTableKind kind = db::tableKindOf(name);
  if (kind == OdDb::kNoTable) {
    tell("dxf.unknown-table", Severity::Lost, "a table of the unknown name \"" + std::string(name) + "\"",
         "it is passed over");
    return;
  }
  if (!tables_.insert(kind).second)
    tell("dxf.table-repeated", Severity::Note, "a table of this kind came before", "its records are read, too");
  OdDbSymbolTable& table = context_.table(kind, handleIn(record_));
  Record head(record_.begin() + 1, record_.end()); // the name stands where records have their handle
  head[0] = record_[0];
  ReadObject facts;
  objects_.fill(head, table, facts);
  while (inRun("ENDTAB", {"TABLE", "ENDSEC", "SECTION", "EOF"}))
    readTableRecord(kind, table);
}

void Reader::readTableRecord(OdDb::SymbolTableKind kind, OdDbSymbolTable& table) {
  if (record_[0].text != db::tableDxfName(kind)) {
    passOver("dxf.wrong-record-in-table", "a record of another kind in the table");
    return;
  }
  if (kind == OdDb::kBlockTable && fillStandIn(table))
    return;
  ReadObject read;
  OdRxObjectPtr made = db::recordClass(kind)->create();
  read.object = made;
  objects_.fill(record_, *read.object, read);
  if (context_.failed()) { // typed values stay at their defaults; the report names the value
    tell("dxf.table-record-damaged", Severity::Lost, "a value of the record is unreadable", "its default is taken");
  }
  ++report_.account.read;
  OdSmartPtr<OdDbSymbolTableRecord> record = read.object;
  addRead(read, table.objectId());
  settleMissing(table, *record);
}

// Files in another order bring blocks, or entities of a space, before the records of the table.
bool Reader::fillStandIn(OdDbSymbolTable& table) {
  const auto name = std::find_if(record_.begin(), record_.end(), [](const Pair& pair) { return pair.code == 2; });
  const OdDbObjectId id =
      standIns_.empty() || name == record_.end() ? OdDbObjectId() : table.getAt(context_.text(*name));
  if (id.isNull() || standIns_.erase(id) == 0)
    return false;
  ReadObject read;
  OdDbObject& record = *db::peek(id);
  const db::WriteScope scope(record);
  objects_.fill(record_, record, read);
  ++report_.account.read;
  const OdDbObjectId expected = database_.store().giveHandle(id, read.handle);
  if (!expected.isNull())
    context_.redirects().emplace_back(expected, id);
  return true;
}

// Puts the record into its table. A record that was asked for before it came stands in for it until now.
void Reader::settleMissing(OdDbSymbolTable& table, OdDbSymbolTableRecord& record) {
  if (table.adopt(&record))
    return;
  const OdDbObjectId holder = table.getAt(record.getName());
  if (auto missing = context_.missing().find(holder); missing != context_.missing().end()) {
    table.replaceMember(holder, record);
    context_.missing().erase(missing);
    context_.redirects().emplace_back(holder, record.objectId());
    OdDbObject& standIn = *db::peek(holder);
    const db::WriteScope scope(standIn);
    standIn.erase();
    return;
  }
  const OdString wanted = record.getName();
  const OdString name = table.freeName(wanted);
  const db::WriteScope scope(record);
  record.setName(name);
  table.adopt(&record);
  renamed_[wanted].push_back(record.objectId());
  tell("dxf.duplicate-name", Severity::Repaired,
       "the name \"" + wanted.toUtf8Lossless() + "\" stands twice in the table",
       "the second is named \"" + name.toUtf8Lossless() + "\"");
}

OdDbObjectId Reader::addRead(ReadObject& read, OdDbObjectId owner) {
  read.object->setOwnerId(owner);
  if (read.handle == 0 && handleless_++ == 0)
    firstHandleless_ = record_[0].line;
  const OdDbObjectId id = database_.store().add(read.object.get(), read.handle);
  context_.setLineOf(id, record_[0].line);
  if (read.handle != 0 && id.getHandle() != OdDbHandle(read.handle))
    tell("dxf.duplicate-handle", Severity::Repaired, "the handle " + OdDbHandle(read.handle).ascii() + " is used twice",
         "the second object gets a new one");
  return id;
}

OdDbBlockTableRecord& Reader::ensureSpace(const OdString& name) {
  OdDbSymbolTable& table = context_.table(OdDb::kBlockTable);
  if (auto* present = peekAs<OdDbBlockTableRecord>(table.getAt(name)))
    return *present;
  OdDbBlockTableRecordPtr made(new OdDbBlockTableRecord);
  made->setName(name);
  made->setOwnerId(table.objectId());
  database_.store().add(made.get(), 0);
  table.adopt(made.get());
  standIns_.insert(made->objectId());
  return *made;
}

void Reader::readBlocks() {
  while (inSection()) {
    if (record_[0].text == "BLOCK")
      readBlock();
    else
      passOver("dxf.outside-block", "a record outside every block");
  }
  if (database_.facts().version < OdDb::kRelease13)
    orderBlocks();
}

void Reader::tellRecordless(const OdString& name, const OdString& given) {
  tell("dxf.block-without-record", Severity::Repaired,
       "the block \"" + name.toUtf8Lossless() + "\" has no record in the block table",
       "it is named \"" + given.toUtf8Lossless() + "\" and gets one");
}

// The record of a block may come behind it, so what lacks one is known at the end only.
void Reader::tellRecordlessBlocks() {
  for (const auto& [id, line] : recordless_) {
    if (standIns_.count(id) == 0)
      continue;
    context_.begin("BLOCK", line);
    const OdString& name = peekAs<OdDbBlockTableRecord>(id)->getName();
    tellRecordless(name, name);
  }
}

namespace {

// Later programs write the spaces into early files under names that were allowed there. Null for any other name.
const OdString* earlySpace(const OdString& name) {
  if (name.iCompare(L"$MODEL_SPACE") == 0)
    return &modelSpaceStr;
  return name.iCompare(L"$PAPER_SPACE") == 0 ? &paperSpaceStr : nullptr;
}

} // namespace

// Early files have no block table: the blocks themselves are its order, not the references that come before them.
void Reader::orderBlocks() {
  OdDbSymbolTable& table = context_.table(OdDb::kBlockTable);
  IdList& members = *table.memberList();
  const std::unordered_set<OdDbObjectId> read(blocks_.begin(), blocks_.end());
  std::vector<OdDbObjectId> order = blocks_;
  for (OdDbObjectId id : members.ids()) {
    if (read.count(id) == 0)
      order.push_back(id);
  }
  members.cut(0);
  for (OdDbObjectId id : order)
    members.push(id);
}

// The name that the block at hand gives itself.
OdString Reader::blockName() {
  OdString name;
  for (const Pair& pair : record_) {
    if (pair.code == 2)
      name = context_.text(pair);
  }
  const OdString* space = database_.facts().version < OdDb::kRelease13 ? earlySpace(name) : nullptr;
  return space == nullptr ? name : *space;
}

// The table record that a block belongs to: the one it names as its owner, else the one of its name, else a new one.
OdDbBlockTableRecord* Reader::blockOf(const ReadObject& begin) {
  const auto waiting = [](OdDbObjectId id) {
    auto* record = peekAs<OdDbBlockTableRecord>(id);
    return record != nullptr && record->blockBeginId().isNull() ? record : nullptr;
  };
  if (auto* owner = waiting(begin.owner))
    return owner;
  const OdString name = blockName();
  OdDbSymbolTable& table = context_.table(OdDb::kBlockTable);
  if (auto* named = waiting(table.getAt(name))) {
    if (context_.missing().erase(named->objectId()) != 0) // a reference came before its block
      standIn(*named);
    return named;
  }
  const auto same = renamed_.find(name);
  while (same != renamed_.end() && !same->second.empty()) { // one that has its block gets no other
    const OdDbObjectId id = same->second.front();
    same->second.pop_front();
    if (auto* renamed = waiting(id))
      return renamed;
  }
  const OdString unique = table.freeName(name.isEmpty() ? OdString(L"unnamed") : name);
  OdDbBlockTableRecord& made = ensureSpace(unique);
  if (unique != name)
    tellRecordless(name, unique);
  else
    standIn(made);
  return &made;
}

// Early files have no block table; a record that the block makes itself is nothing to tell.
void Reader::standIn(OdDbBlockTableRecord& record) {
  standIns_.insert(record.objectId());
  if (database_.facts().version >= OdDb::kRelease13)
    recordless_.emplace_back(record.objectId(), record_[0].line);
}

void Reader::readBlock() {
  ReadObject begin;
  begin.object = OdDbObjectPtr(new OdDbBlockBegin);
  ReadObject probe;
  OdSmartPtr<OdDbBlockBegin> scratch(new OdDbBlockBegin);
  objects_.fill(record_, *scratch, probe); // the owner decides where the head's values go
  OdDbBlockTableRecord* block = blockOf(probe);
  {
    const db::WriteScope scope(*block);
    objects_.fill(record_, *begin.object, begin, block, &OdDbBlockTableRecord::headSection());
    block->takeHead();
  }
  ++report_.account.read;
  blocks_.push_back(block->objectId());
  block->adoptEnds(addRead(begin, block->objectId()), OdDbObjectId());
  sequence_ = OdDbObjectId();
  while (inRun("ENDBLK", {"BLOCK", "ENDSEC", "SECTION", "EOF"}))
    addEntity(block->objectId());
  sequence_ = OdDbObjectId();
  if (again_ || record_[0].text != "ENDBLK")
    return;
  ReadObject end;
  end.object = OdDbObjectPtr(new OdDbBlockEnd);
  objects_.fill(record_, *end.object, end);
  ++report_.account.read;
  block->adoptEnds(OdDbObjectId(), addRead(end, block->objectId()));
}

// The block that an entity belongs to. Entities of a block stand in it; entities of the drawing say or imply theirs.
OdDbBlockTableRecord* Reader::ownerOf(const ReadObject& read, OdDbObjectId fallback) {
  if (!fallback.isNull())
    return peekAs<OdDbBlockTableRecord>(fallback);
  if (auto* named = peekAs<OdDbBlockTableRecord>(read.owner))
    return named;
  return &ensureSpace(read.inPaperSpace ? paperSpaceStr : modelSpaceStr);
}

bool Reader::addToSequence(ReadObject& read) {
  auto* owner = dynamic_cast<OdDbSequenceOwner*>(db::peek(sequence_));
  const bool isEnd = read.object->isKindOf(OdDbSequenceEnd::desc());
  const std::string name = read.object->dxfName();
  if (owner == nullptr || !(isEnd || name == "ATTRIB" || name == "VERTEX")) {
    sequence_ = OdDbObjectId();
    return false;
  }
  owner->adoptSubEntity(addRead(read, sequence_), isEnd);
  if (isEnd)
    sequence_ = OdDbObjectId();
  return true;
}

void Reader::addEntity(OdDbObjectId fallbackOwner) {
  ReadObject read = objects_.read(record_, true);
  if (addToSequence(read))
    return;
  if (read.object->isKindOf(OdDbSequenceEnd::desc())) {
    // Writers of sequences without members leave an end of its own behind; it says nothing.
    tell("dxf.stray-sequence-end", Severity::Repaired, "an end of a sequence without a sequence", "it is dropped");
    ++report_.account.dropped;
    return;
  }
  if (read.object->dxfName() == std::string_view("VERTEX"))
    tell("dxf.stray-vertex", Severity::Note, "a vertex without a polyline", "it is kept as an object of its own");
  OdDbBlockTableRecord* block = ownerOf(read, fallbackOwner);
  const OdDbObjectId id = addRead(read, block->objectId());
  block->adoptEntity(id);
  sequence_ = dynamic_cast<OdDbSequenceOwner*>(read.object.get()) != nullptr ? id : OdDbObjectId();
}

void Reader::readEntities() {
  sequence_ = OdDbObjectId();
  while (inSection())
    addEntity(OdDbObjectId());
  sequence_ = OdDbObjectId();
}

// R12 and earlier have no objects.
void Reader::correctVersion() {
  if (database_.facts().version >= OdDb::kRelease13)
    return;
  database_.facts().version = OdDb::kRelease2000;
  tell("dxf.version-contradicted", Severity::Note, "the file says an early version and holds objects of later ones",
       "it is taken for one of version 2000");
}

void Reader::readObjects() {
  while (inSection()) {
    correctVersion();
    ReadObject read = objects_.read(record_, false);
    const OdDbObjectId id = addRead(read, read.owner);
    if (database_.getNamedObjectsDictionaryId().isNull() && read.object->isKindOf(OdDbDictionary::desc()))
      database_.adoptNamedObjects(id);
  }
}

} // namespace drawing::dxf

#include "dxf/reader.h"

#include "DbCarried.h"
#include "DbDictionary.h"
#include "DbSequence.h"
#include "DbSymbolRecords.h"
#include "db/settle.h"
#include "db/store.h"
#include "db/symbol_kinds.h"

#include <algorithm>
#include <unordered_set>

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

bool Reader::advance() {
  if (database_.approxNumObjects() > budget_.objects) {
    result_ = eBudgetExceeded;
    return false;
  }
  if (!std::exchange(again_, false) && !source_.nextRecord(record_))
    return false;
  line_ = record_[0].line;
  context_.begin(record_[0].text, record_[0].line);
  return true;
}

// Moves to the next record of the section; false at its end.
bool Reader::inSection() {
  return inRun("ENDSEC", {"SECTION", "EOF"});
}

// Moves to the next record of a run; false at its end. A record that begins or ends something larger ends the run too:
// its own end is missing then, and that record is met again by whoever reads the larger thing.
bool Reader::inRun(std::string_view end, std::initializer_list<std::string_view> larger) {
  if (result_ != eOk || !advance() || record_[0].text == end)
    return false;
  if (record_[0].code != 0 || std::find(larger.begin(), larger.end(), record_[0].text) == larger.end())
    return true;
  tell("dxf.end-missing", Severity::Repaired, "\"" + std::string(end) + "\" is missing in front of this record",
       "what came before it is kept");
  again_ = true;
  return false;
}

OdResult Reader::run() {
  database_.store().deferHandles();
  while (result_ == eOk && !sawEnd_ && advance()) {
    if (record_[0].text == "SECTION")
      readSection();
    else if (record_[0].text == "EOF")
      sawEnd_ = true;
    else if (record_[0].code == 999)
      database_.facts().comments.push_back(std::string(record_[0].text));
    else if (record_[0].text != "ENDSEC" || sawSection_)
      passOver("dxf.outside-section", "a record outside every section");
  }
  if (result_ != eOk)
    return result_;
  if (!sawSection_)
    return eNotADrawing;
  if (!sawEnd_)
    tell("dxf.no-end-of-file", Severity::Repaired, "the file has no end mark", "what came is kept");
  db::SettleFacts facts{database_, context_, budget_};
  db::settleDrawing(facts);
  return eOk;
}

void Reader::readSection() {
  const std::string_view name = record_.size() > 1 && record_[1].code == 2 ? record_[1].text : std::string_view();
  context_.setSection(name);
  for (const SectionHandler& entry : kHandlers) {
    if (name == entry.name) {
      sawSection_ = true; // sections that nobody knows make no drawing
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
    passOver("dxf.unknown-table", "a table of the unknown name \"" + std::string(name) + "\"");
    return;
  }
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
  renamed_.emplace_back(wanted, record.objectId());
  tell("dxf.duplicate-name", Severity::Repaired, "the name \"" + wanted.toUtf8() + "\" stands twice in the table",
       "the second is named \"" + name.toUtf8() + "\"");
}

OdDbObjectId Reader::addRead(ReadObject& read, OdDbObjectId owner) {
  read.object->setOwnerId(owner);
  const OdDbObjectId id = database_.store().add(read.object.get(), read.handle);
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
      tellWithoutRecord(name, name);
    return named;
  }
  for (const auto& [was, id] : renamed_) {
    if (auto* renamed = waiting(id); renamed != nullptr && was == name)
      return renamed;
  }
  const OdString unique = table.freeName(name.isEmpty() ? OdString(L"unnamed") : name);
  tellWithoutRecord(name, unique);
  return &ensureSpace(unique);
}

// Early files have no block table; a record that the block makes itself is nothing to tell.
void Reader::tellWithoutRecord(const OdString& name, const OdString& unique) {
  if (unique == name && database_.facts().version < OdDb::kRelease13)
    return;
  tell("dxf.block-without-record", Severity::Repaired,
       "the block \"" + name.toUtf8() + "\" has no record in the block table",
       "it is named \"" + unique.toUtf8() + "\" and gets one");
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

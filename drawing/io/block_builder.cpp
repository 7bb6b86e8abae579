// Blocks, entities and sequences of the drawing that is built.
#include "drawing/io/drawing_builder.h"

#include "drawing/detail/sequence_owner.h"
#include "drawing/model/object_store.h"

namespace drawing {

OdDbBlockTableRecord& DrawingBuilder::ensureBlock(const OdString& name) {
  OdDbSymbolTable& table = context_.table(OdDb::kBlockTable);
  if (auto* present = getIf<OdDbBlockTableRecord>(table.getAt(name)))
    return *present;
  OdDbBlockTableRecordPtr made(new OdDbBlockTableRecord);
  made->setName(name);
  made->setOwnerId(table.objectId());
  database_.store().add(made.get(), 0);
  table.registerRecord(made.get());
  placeholders_.insert(made->objectId());
  return *made;
}

void DrawingBuilder::reportWithoutRecord(const OdString& name, const OdString& given) {
  report("dxf.block-without-record", Severity::kRepaired,
         "the block \"" + name.toUtf8Lossless() + "\" has no record in the block table",
         "it is renamed to \"" + given.toUtf8Lossless() + "\", and a record is created");
}

// The record of a block may follow it in the file, so what lacks one is known at the end only.
void DrawingBuilder::reportBlocksWithoutRecord() {
  for (const auto& [id, line] : withoutRecord_) {
    if (placeholders_.count(id) == 0)
      continue;
    context_.begin("BLOCK", line);
    const OdString& name = getIf<OdDbBlockTableRecord>(id)->getName();
    reportWithoutRecord(name, name);
  }
}

void DrawingBuilder::orderBlocks() {
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

namespace {

// Later programs write the spaces into files of R12 under names that were allowed there. Null for any other name.
const OdString* spaceOfR12(const OdString& name) {
  if (name.iCompare(L"$MODEL_SPACE") == 0)
    return &modelSpaceStr;
  return name.iCompare(L"$PAPER_SPACE") == 0 ? &paperSpaceStr : nullptr;
}

// The record if it is one of a block that was not read yet.
OdDbBlockTableRecord* waitingBlock(OdDbObjectId id) {
  auto* record = getIf<OdDbBlockTableRecord>(id);
  return record != nullptr && record->blockBeginId().isNull() ? record : nullptr;
}

} // namespace

// The name that the block at hand gives itself.
OdString DrawingBuilder::blockName() {
  OdString name;
  for (const RawGroup& group : *record_) {
    if (group.code == 2)
      name = context_.text(group);
  }
  const OdString* space = database_.fileInfo().version < OdDb::kRelease13 ? spaceOfR12(name) : nullptr;
  return space == nullptr ? name : *space;
}

// Of the records whose name was taken, the next one that has no block yet; null for none.
OdDbBlockTableRecord* DrawingBuilder::renamedBlock(const OdString& name) {
  const auto same = renamed_.find(name);
  while (same != renamed_.end() && !same->second.empty()) {
    const OdDbObjectId id = same->second.front();
    same->second.pop_front();
    if (auto* renamed = waitingBlock(id))
      return renamed;
  }
  return nullptr;
}

// The table record that a block belongs to: the one it names as its owner, else the one of its name, else a new one.
OdDbBlockTableRecord& DrawingBuilder::blockOf(const ReadObject& begin) {
  if (auto* owner = waitingBlock(begin.owner))
    return *owner;
  const OdString name = blockName();
  OdDbSymbolTable& table = context_.table(OdDb::kBlockTable);
  if (auto* named = waitingBlock(table.getAt(name))) {
    if (context_.missing().erase(named->objectId()) != 0) // a reference was read before its block
      addPlaceholder(*named);
    return *named;
  }
  if (auto* renamed = renamedBlock(name))
    return *renamed;
  const OdString unique = table.freeName(name.isEmpty() ? OdString(L"unnamed") : name);
  OdDbBlockTableRecord& made = ensureBlock(unique);
  if (unique != name)
    reportWithoutRecord(name, unique);
  else
    addPlaceholder(made);
  return made;
}

// Files of R12 have no block table; there a record made for a block is not an issue.
void DrawingBuilder::addPlaceholder(OdDbBlockTableRecord& record) {
  placeholders_.insert(record.objectId());
  if (database_.fileInfo().version >= OdDb::kRelease13)
    withoutRecord_.emplace_back(record.objectId(), (*record_)[0].line);
}

OdDbBlockTableRecord& DrawingBuilder::beginBlock() {
  ReadObject begin;
  begin.object = OdDbObjectPtr(new OdDbBlockBegin);
  ReadObject probe;
  OdSmartPtr<OdDbBlockBegin> scratch(new OdDbBlockBegin);
  objects_.fill(*record_, *scratch, probe); // the owner decides where the values of the header go
  OdDbBlockTableRecord& block = blockOf(probe);
  {
    const WriteScope scope(block);
    objects_.fill(*record_, *begin.object, begin, &block, &OdDbBlockTableRecord::blockHeaderSubclass());
    block.applyBlockHeader();
  }
  ++report_.counts.read;
  blocks_.push_back(block.objectId());
  block.setEnds(add(begin, block.objectId()), OdDbObjectId());
  endSequence();
  return block;
}

void DrawingBuilder::endBlock(OdDbBlockTableRecord& block) {
  ReadObject end;
  end.object = OdDbObjectPtr(new OdDbBlockEnd);
  objects_.fill(*record_, *end.object, end);
  ++report_.counts.read;
  block.setEnds(OdDbObjectId(), add(end, block.objectId()));
}

// The block of an entity that is not read in one: the entity names or implies it.
OdDbBlockTableRecord& DrawingBuilder::ownerOf(const ReadObject& read) {
  if (auto* named = getIf<OdDbBlockTableRecord>(read.owner))
    return *named;
  return ensureBlock(read.inPaperSpace ? paperSpaceStr : modelSpaceStr);
}

bool DrawingBuilder::addToSequence(ReadObject& read) {
  auto* owner = dynamic_cast<OdDbSequenceOwner*>(lookup(sequence_));
  const bool isEnd = read.object->isKindOf(OdDbSequenceEnd::desc());
  const std::string name = read.object->dxfName();
  if (owner == nullptr || !(isEnd || name == "ATTRIB" || name == "VERTEX")) {
    endSequence();
    return false;
  }
  owner->attachSubEntity(add(read, sequence_), isEnd);
  if (isEnd)
    endSequence();
  return true;
}

void DrawingBuilder::addEntity(OdDbBlockTableRecord* block) {
  ReadObject read = objects_.read(*record_, true);
  if (addToSequence(read))
    return;
  if (read.object->isKindOf(OdDbSequenceEnd::desc())) {
    // Writers of sequences without members leave a separate end; it says nothing.
    report("dxf.stray-sequence-end", Severity::kRepaired, "SEQEND without a sequence", "it is dropped");
    ++report_.counts.dropped;
    return;
  }
  if (read.object->dxfName() == std::string_view("VERTEX"))
    report("dxf.stray-vertex", Severity::kNote, "a vertex without a polyline", "it is kept as a separate object");
  OdDbBlockTableRecord& owner = block == nullptr ? ownerOf(read) : *block;
  const OdDbObjectId id = add(read, owner.objectId());
  owner.attachEntity(id);
  sequence_ = dynamic_cast<OdDbSequenceOwner*>(read.object.get()) != nullptr ? id : OdDbObjectId();
}

} // namespace drawing

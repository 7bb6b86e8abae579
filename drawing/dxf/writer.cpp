#include "drawing/dxf/writer.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "DbSymbolTable.h"
#include "drawing/detail/sequence_owner.h"
#include "drawing/file.h"
#include "drawing/io/forwarding_sink.h"
#include "drawing/model/legacy_block_units.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_table_kinds.h"
#include "drawing/model/thumbnail.h"
#include "drawing/opaque_objects.h"
#include "drawing/records/acds_records.h"
#include "drawing/records/section.h"

namespace drawing::dxf {

void RecordWriter::preamble(const OdDbObject& object, bool withHandle) {
  sink_.utf8(0, object.dxfName());
  if (withHandle)
    sink_.handle(object.dxfName() == "DIMSTYLE" ? 105 : 5, object.getDbHandle());
  if (const auto* extras = object.extrasOrNull()) {
    extras->applicationGroups.writeTo(sink_);
    if (isAlive(extras->extensionDictionary)) {
      sink_.utf8(102, "{ACAD_XDICTIONARY");
      sink_.reference(360, extras->extensionDictionary);
      sink_.utf8(102, "}");
    }
    if (!extras->reactors.empty()) {
      sink_.utf8(102, "{ACAD_REACTORS");
      for (OdDbObjectId id : extras->reactors)
        sink_.reference(330, id);
      sink_.utf8(102, "}");
    }
  }
  sink_.reference(330, object.ownerId());
}

void RecordWriter::xData(const OdDbObject& object) {
  const GroupList* groups = object.xDataGroups();
  const auto* block = OdDbBlockTableRecord::cast(&object).get();
  if (block != nullptr && sink_.version() < OdDb::kRelease2007 && block->blockInsertUnits() != OdDb::kUnitsUndefined) {
    GroupList withUnits = groups == nullptr ? GroupList() : *groups;
    putUnits(withUnits, block->blockInsertUnits());
    withUnits.writeTo(sink_);
  } else if (groups != nullptr) {
    groups->writeTo(sink_);
  }
}

void RecordWriter::whole(const OdDbObject& object) {
  preamble(object);
  writeSubclasses(object, sink_);
  xData(object);
}

bool isInEntitiesSection(const OdDbBlockTableRecord& block) {
  return block.getName().iCompare(modelSpaceStr) == 0 || block.getName().iCompare(paperSpaceStr) == 0;
}

Writer::Writer(const OdDbDatabase& database, GroupSink& sink)
    : database_(database), to_(sink), omitted_(database, sink.version()), filter_(sink, omitted_),
      sink_(sink.version() == database.fileInfo().version ? sink : filter_) {}

bool Writer::isWritten(OdDbObjectId id) const {
  return isAlive(id) && !omitted_.has(id);
}

void Writer::run() {
  omitted_.reportTo(to_);
  for (const std::string& comment : database_.fileInfo().comments)
    sink_.utf8(999, comment);
  section("HEADER", &Writer::header);
  opaqueSections(true);
  section("TABLES", &Writer::tables);
  section("BLOCKS", &Writer::blocks);
  section("ENTITIES", &Writer::entities);
  section("OBJECTS", &Writer::objects);
  opaqueSections(false);
  sink_.utf8(0, "EOF");
}

void Writer::section(const char* name, void (Writer::*contents)()) {
  sink_.utf8(0, "SECTION");
  sink_.utf8(2, name);
  (this->*contents)();
  sink_.utf8(0, "ENDSEC");
}

void Writer::header() {
  const auto version = [this] {
    sink_.utf8(9, "$ACADVER");
    sink_.utf8(1, versionSignature(sink_.version()));
  };
  if (!database_.hasHeaderVar("ACADVER"))
    version();
  std::string missing;
  for (const OdDbHeader::Variable& variable : database_.header().variables()) {
    if (variable.name == "ACADVER")
      version();
    else if (sink_.version() < database_.fileInfo().version && !hasHeaderVariable(variable.name, sink_.version()))
      missing += (missing.empty() ? "$" : ", $") + variable.name;
    else
      headerVariable(variable);
  }
  if (!database_.hasHeaderVar("HANDSEED")) {
    sink_.utf8(9, "$HANDSEED");
    sink_.handle(5, database_.handseed());
  }
  if (!missing.empty())
    sink_.lost({.code = "dxf.variables-not-in-version",
                .severity = Severity::kNote,
                .section = "HEADER",
                .kind = "HEADER",
                .found = missing + " do not exist in version " + versionYear(sink_.version()),
                .done = "they are omitted"});
}

void Writer::headerVariable(const OdDbHeader::Variable& variable) {
  sink_.utf8(9, "$" + variable.name);
  if (variable.name == "HANDSEED")
    sink_.handle(5, database_.handseed());
  else
    variable.groups.writeTo(sink_);
}

void Writer::opaqueSections(bool beforeTables) {
  for (const OpaqueSection& opaque : database_.opaqueSections()) {
    const bool isBodies = opaque.name == "ACDSDATA" && sink_.version() < OdDb::kRelease2013;
    const bool isForgotten = opaque.name == kThumbnailSection && !database_.isThumbnailWritten();
    if ((opaque.name == "CLASSES") != beforeTables || isBodies || isForgotten)
      continue;
    const GroupList groups = aliveGroups(database_, opaque);
    if (groups.empty() && opaque.madeForRecords)
      continue;
    sink_.utf8(0, "SECTION");
    sink_.utf8(2, opaque.name);
    groups.writeTo(sink_);
    sink_.utf8(0, "ENDSEC");
  }
}

void Writer::tables() {
  for (int kind = 0; kind < OdDb::kSymbolTableCount; ++kind)
    table(static_cast<OdDb::SymbolTableKind>(kind));
}

void Writer::table(OdDb::SymbolTableKind kind) {
  const auto& table = *getIf<OdDbSymbolTable>(database_.getSymbolTableId(kind));
  std::vector<const OdDbObject*> records;
  for (OdDbObjectId id : table.members().ids()) {
    if (isWritten(id))
      records.push_back(lookup(id));
  }
  RecordWriter writer(sink_);
  sink_.utf8(0, "TABLE");
  sink_.utf8(2, tableDxfName(kind));
  sink_.handle(5, table.getDbHandle());
  GroupList preamble; // data attached to the table, without the preamble that a table does not have
  RecordWriter(preamble).preamble(table, false);
  preamble.writeTo(sink_, 1, preamble.size() - 1);
  const GroupList* unmodelled = table.unmodelledGroupsOrNull();
  const bool hasMarker = unmodelled != nullptr && !unmodelled->empty() && (*unmodelled)[0].code == 100 &&
                         unmodelled->textOf((*unmodelled)[0]) == "AcDbSymbolTable";
  sink_.utf8(100, "AcDbSymbolTable");
  sink_.integer(70, static_cast<std::int64_t>(records.size()));
  if (unmodelled != nullptr)
    unmodelled->writeTo(sink_, hasMarker ? 1 : 0, unmodelled->size() - (hasMarker ? 1 : 0));
  writer.xData(table);
  for (const OdDbObject* record : records)
    writer.whole(*record);
  sink_.utf8(0, "ENDTAB");
}

void Writer::blocks() {
  const auto& table = *getIf<OdDbBlockTable>(database_.getBlockTableId());
  for (OdDbObjectId id : table.members().ids()) {
    if (isWritten(id))
      block(*getIf<OdDbBlockTableRecord>(id));
  }
}

namespace {

bool isPaperSpace(const OdDbBlockTableRecord& block) {
  return block.isLayout() && block.getName().iCompare(modelSpaceStr) != 0;
}

// The AcDbEntity section of an entity, with the values that follow from its block.
class RecordInfoSink final : public ForwardingSink {
public:
  RecordInfoSink(GroupSink& to, bool paper, const OdString& layout)
      : ForwardingSink(to), paper_(paper), layout_(layout) {}
  void utf8(int code, std::string_view text) override {
    to_.utf8(code, text);
    if (code != 100 || text != "AcDbEntity" || !paper_)
      return;
    to_.integer(67, 1);
    if (!layout_.isEmpty())
      to_.text(410, layout_);
  }

private:
  bool paper_;
  OdString layout_;
};

} // namespace

void Writer::entity(OdDbObjectId id) {
  const OdDbObject& object = *lookup(id);
  RecordInfoSink info(sink_, inPaperSpace_, layoutName_);
  RecordWriter(info).whole(object);
  const auto* owner = dynamic_cast<const OdDbSequenceOwner*>(&object);
  if (owner == nullptr)
    return;
  bool any = false;
  for (OdDbObjectId part : owner->subEntities()) {
    if (!isWritten(part))
      continue;
    any = true;
    RecordWriter(info).whole(*lookup(part));
  }
  if (any && isWritten(owner->sequenceEndId()))
    RecordWriter(info).whole(*lookup(owner->sequenceEndId()));
}

void Writer::block(const OdDbBlockTableRecord& record) {
  const auto* layout = getIf<OdDbLayout>(record.getLayoutId());
  inPaperSpace_ = isPaperSpace(record);
  layoutName_ = layout == nullptr ? OdString() : layout->getLayoutName();
  const OdDbObject& begin = *lookup(record.blockBeginId());
  RecordInfoSink info(sink_, inPaperSpace_, OdString());
  RecordWriter writer(info);
  writer.preamble(begin);
  GroupList sections;
  writeSubclasses(begin, sections);
  const std::size_t own = [&] { // the head's values stand right behind its marker
    std::size_t at = sections.find(100);
    while (at < sections.size() && sections.textOf(sections[at]) != "AcDbBlockBegin")
      at = sections.find(100, at + 1);
    return at;
  }();
  sections.writeTo(info, 0, std::min(own + 1, sections.size()));
  blockHeader(record);
  if (own < sections.size())
    sections.writeTo(info, own + 1, sections.size() - own - 1);
  writer.xData(begin);
  if (!isInEntitiesSection(record)) {
    for (OdDbObjectId id : record.members().ids()) {
      if (isWritten(id))
        entity(id);
    }
  }
  writer.whole(*lookup(record.blockEndId()));
}

void Writer::blockHeader(const OdDbBlockTableRecord& record) {
  sink_.text(2, record.getName());
  sink_.integer(70, record.derivedFlags());
  sink_.point(10, record.origin());
  sink_.text(3, record.blockHeaderName().isEmpty() ? record.getName() : record.blockHeaderName());
  sink_.text(1, record.pathName());
  if (!record.comments().isEmpty())
    sink_.text(4, record.comments());
  if (record.isUnloaded())
    sink_.integer(71, 1);
}

void Writer::entities() {
  for (const OdString& space : {modelSpaceStr, paperSpaceStr}) {
    const auto* block = getIf<OdDbBlockTableRecord>(database_.symbol(OdDb::kBlockTable, space));
    if (block == nullptr)
      continue;
    const auto* layout = getIf<OdDbLayout>(block->getLayoutId());
    inPaperSpace_ = isPaperSpace(*block);
    layoutName_ = layout == nullptr ? OdString() : layout->getLayoutName();
    for (OdDbObjectId id : block->members().ids()) {
      if (isWritten(id))
        entity(id);
    }
  }
}

void Writer::objects() {
  RecordWriter writer(sink_);
  const OdDbObjectId root = database_.getNamedObjectsDictionaryId();
  writer.whole(*lookup(root));
  for (OdDbObjectId id : database_.allIds()) {
    const OdDbObject* object = lookup(id);
    if (!isWritten(id) || id == root || object->isKindOf(OdDbEntity::desc()) ||
        object->isKindOf(OdDbSymbolTable::desc()) || object->isKindOf(OdDbSymbolTableRecord::desc()) ||
        object->isKindOf(OdDbHeader::desc()))
      continue;
    writer.whole(*object);
  }
}

} // namespace drawing::dxf

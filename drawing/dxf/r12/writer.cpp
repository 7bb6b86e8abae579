#include "drawing/dxf/r12/writer.h"

#include "DbAttribute.h"
#include "DbDatabase.h"
#include "DbSymbolTable.h"
#include "drawing/detail/sequence_owner.h"
#include "drawing/dxf/r12/group_rules.h"
#include "drawing/dxf/r12/substitutes.h"
#include "drawing/dxf/writer.h"
#include "drawing/entities/viewport_view.h"
#include "drawing/file.h"
#include "drawing/io/version_rules.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"
#include "drawing/model/symbol_table_kinds.h"
#include "drawing/opaque_objects.h"
#include "drawing/records/section.h"

#include <map>
#include <optional>

namespace drawing::dxf {

namespace {

constexpr int kUniqueBlock = 32; // a mark of later versions among the flags of dimensions

// Header variables that hold the name of a record.
OdDb::SymbolTableKind tableOfVariable(std::string_view name) {
  struct Row {
    std::string_view name;
    OdDb::SymbolTableKind table;
  };
  constexpr Row kRows[] = {
      {"CLAYER", OdDb::kLayerTable},      {"CELTYPE", OdDb::kLinetypeTable}, {"TEXTSTYLE", OdDb::kTextStyleTable},
      {"DIMSTYLE", OdDb::kDimStyleTable}, {"DIMBLK", OdDb::kBlockTable},     {"DIMBLK1", OdDb::kBlockTable},
      {"DIMBLK2", OdDb::kBlockTable},     {"UCSNAME", OdDb::kUcsTable},      {"PUCSNAME", OdDb::kUcsTable}};
  for (const Row& row : kRows) {
    if (row.name == name)
      return row.table;
  }
  return OdDb::kNoTable;
}

// The arrow blocks of a dimension style stand by name.
int arrowNameCode(int code) {
  return code >= 342 && code <= 344 ? code - 342 + 5 : 0;
}

double numberOf(const Group& group) {
  switch (group.kind) {
  case GroupKind::kReal:
    return group.real;
  case GroupKind::kInt16:
  case GroupKind::kInt32:
  case GroupKind::kInt64:
  case GroupKind::kBool:
    return static_cast<double>(group.integer);
  default:
    return GroupSink::kNoNumber;
  }
}

} // namespace

R12Writer::R12Writer(const OdDbDatabase& database, GroupSink& sink, OdDbHandle firstFree)
    : database_(database), sink_(sink), names_(database), seed_(firstFree),
      nextHandle_(std::uint64_t{database.handseed()}) {}

void R12Writer::lost(const OdDbObject& object, const char* code, Severity severity, std::string found,
                     std::string done) {
  sink_.lost({.code = code,
              .severity = severity,
              .handle = std::uint64_t{object.getDbHandle()},
              .kind = object.dxfName(),
              .found = std::move(found),
              .done = std::move(done)});
}

void R12Writer::run() {
  names_.reportChanges(sink_);
  for (const std::string& comment : database_.fileInfo().comments)
    sink_.utf8(999, comment);
  section("HEADER", &R12Writer::header);
  section("TABLES", &R12Writer::tables);
  section("BLOCKS", &R12Writer::blocks);
  section("ENTITIES", &R12Writer::entities);
  sink_.utf8(0, "EOF");
  reportDictionaries();
}

void R12Writer::section(const char* name, void (R12Writer::*write)()) {
  sink_.utf8(0, "SECTION");
  sink_.utf8(2, name);
  (this->*write)();
  sink_.utf8(0, "ENDSEC");
}

void R12Writer::header() {
  sink_.utf8(9, "$ACADVER");
  sink_.utf8(1, versionSignature(OdDb::kRelease12));
  const bool isOwn = database_.fileInfo().version < OdDb::kRelease13;
  for (const OdDbHeader::Variable& variable : database_.header().variables()) {
    // What came in a file of R12 stays, whatever program wrote it.
    const bool known = isOwn || hasHeaderVariable(variable.name, OdDb::kRelease12);
    if (known && variable.name != "ACADVER" && variable.name != "HANDSEED")
      headerVariable(variable);
  }
  if (!isOwn && !database_.hasHeaderVar("HANDLING")) {
    sink_.utf8(9, "$HANDLING");
    sink_.integer(70, 1);
  }
  sink_.utf8(9, "$HANDSEED");
  sink_.handle(5, seed_);
}

void R12Writer::headerVariable(const OdDbHeader::Variable& variable) {
  sink_.utf8(9, "$" + variable.name);
  const OdDb::SymbolTableKind table = tableOfVariable(variable.name);
  const bool isName =
      table != OdDb::kNoTable && variable.groups.size() == 1 && variable.groups[0].kind == GroupKind::kText;
  if (isName)
    sink_.utf8(variable.groups[0].code, names_.of(table, variable.groups.textOf(variable.groups[0])));
  else
    variable.groups.writeTo(sink_);
}

void R12Writer::tables() {
  for (const auto kind : {OdDb::kViewportTable, OdDb::kLinetypeTable, OdDb::kLayerTable, OdDb::kTextStyleTable,
                          OdDb::kViewTable, OdDb::kUcsTable, OdDb::kRegAppTable, OdDb::kDimStyleTable})
    table(kind);
}

void R12Writer::table(OdDb::SymbolTableKind kind) {
  std::vector<const OdDbObject*> records;
  for (OdDbObjectId id : getIf<OdDbSymbolTable>(database_.getSymbolTableId(kind))->members().ids()) {
    // By layer and by block are keywords in R12, not linetypes.
    const bool isWord = kind == OdDb::kLinetypeTable &&
                        (symbolName(id).iCompare(L"ByLayer") == 0 || symbolName(id).iCompare(L"ByBlock") == 0);
    if (isAlive(id) && !isWord)
      records.push_back(lookup(id));
  }
  sink_.utf8(0, "TABLE");
  sink_.utf8(2, tableDxfName(kind));
  sink_.integer(70, static_cast<std::int64_t>(records.size()));
  for (const OdDbObject* object : records) {
    GroupList groups;
    writeSubclasses(*object, groups);
    record(*object, groups, false);
  }
  sink_.utf8(0, "ENDTAB");
}

void R12Writer::blocks() {
  for (OdDbObjectId id : getIf<OdDbBlockTable>(database_.getBlockTableId())->members().ids()) {
    const auto* block = getIf<OdDbBlockTableRecord>(id);
    // Some programs write empty blocks for the spaces, under names that begin with a dollar sign.
    const bool hasBlockHeader = block != nullptr && block->blockHeaderName().left(1) == L"$";
    if (isAlive(block) && (!isInEntitiesSection(*block) || hasBlockHeader))
      this->block(*block);
  }
}

void R12Writer::block(const OdDbBlockTableRecord& block) {
  GroupList groups;
  inPaperSpace_ = false;
  const OdDbObject& begin = *lookup(block.blockBeginId());
  writeSubclasses(begin, groups);
  const OdString name = isInEntitiesSection(block) ? block.blockHeaderName() : block.getName();
  groups.text(2, name);
  groups.integer(70, block.derivedFlags());
  groups.point(10, block.origin());
  groups.text(3, name);
  groups.text(1, block.pathName());
  if (!block.comments().isEmpty())
    groups.text(4, block.comments());
  record(begin, groups, false);
  if (block.isLayout() && !isInEntitiesSection(block))
    lost(block, "dxf.kind-not-in-version", Severity::kLost, "version R12 has one layout",
         "the entities of this one are written as a block");
  if (!isInEntitiesSection(block))
    contents(block);
  native(*lookup(block.blockEndId()));
}

void R12Writer::contents(const OdDbBlockTableRecord& block) {
  for (OdDbObjectId id : block.members().ids()) {
    if (isAlive(id))
      entity(id);
  }
}

void R12Writer::entities() {
  for (const OdString& space : {modelSpaceStr, paperSpaceStr}) {
    const auto* block = getIf<OdDbBlockTableRecord>(database_.symbol(OdDb::kBlockTable, space));
    if (block == nullptr)
      continue;
    inPaperSpace_ = space == paperSpaceStr;
    contents(*block);
  }
}

void R12Writer::entity(OdDbObjectId id) {
  const auto& entity = *static_cast<const OdDbEntity*>(lookup(id));
  const bool isOpaque = entity.isKindOf(OdDbOpaqueEntity::desc()) && database_.fileInfo().version < OdDb::kRelease13;
  if (isR12Kind(entity.dxfName()) || isOpaque)
    return native(entity);
  GroupList groups;
  writeSubclasses(entity, groups);
  begun_ = nullptr;
  const Substitute substitute = writeSubstitute(entity, groups, *this);
  if (substitute.isWritten)
    xData(entity);
  lost(entity, "dxf.kind-not-in-version", substitute.severity, "version R12 does not support " + entity.dxfName(),
       substitute.done);
}

void R12Writer::native(const OdDbObject& object) {
  GroupList groups;
  writeSubclasses(object, groups);
  if (inPaperSpace_)
    groups.integer(67, 1);
  const auto* owner = dynamic_cast<const OdDbSequenceOwner*>(&object);
  const bool isPolyline = object.dxfName() == "POLYLINE";
  if (isPolyline && groups.find(66) == groups.size())
    groups.integer(66, 1);
  record(object, groups, true);
  if (owner != nullptr)
    parts(static_cast<const OdDbEntity&>(object));
}

void R12Writer::parts(const OdDbEntity& owner) {
  const auto& sequence = dynamic_cast<const OdDbSequenceOwner&>(owner);
  bool any = false;
  for (OdDbObjectId part : sequence.subEntities()) {
    if (!isAlive(part))
      continue;
    any = true;
    native(*lookup(part));
  }
  if (any && isAlive(sequence.sequenceEndId()))
    native(*lookup(sequence.sequenceEndId()));
}

namespace {

// The lines of an attribute one behind the other; nothing for any other object.
std::optional<OdString> linesAsOne(const OdDbObject& object) {
  const auto* attribute = dynamic_cast<const OdDbAttributeBase*>(&object);
  if (attribute == nullptr || !attribute->isMTextAttribute())
    return std::nullopt;
  OdString line = attribute->getMTextAttribute()->plainText();
  line.replace(L'\n', L' ');
  return line;
}

} // namespace

// A record of a kind that R12 has, without what R12 has no place for.
void R12Writer::record(const OdDbObject& object, const GroupList& groups, bool withHandle) {
  const std::string kind = object.dxfName();
  sink_.utf8(0, kind);
  if (withHandle)
    sink_.handle(5, object.getDbHandle());
  const std::optional<OdString> lines = linesAsOne(object);
  // Unknown data from a file of that version is written back unchanged.
  const bool keepsAll = object.isKindOf(OdDbOpaqueEntity::desc()) && database_.fileInfo().version < OdDb::kRelease13;
  std::string_view lastReported;
  for (std::size_t i = 0; i < groups.size() && groups[i].code != 101; ++i) {
    const Group& one = groups[i];
    const bool isArrow = kind == "DIMSTYLE" && arrowNameCode(one.code) != 0;
    // The color of a text background is stored under the code of the flags, after the kind of fill.
    const bool isFill = kind == "DIMSTYLE" && one.code == 70 && i > 0 && groups[i - 1].code == 69;
    if (lines && one.code == 1) {
      sink_.text(1, *lines);
    } else if (isArrow) {
      name(kind, arrowNameCode(one.code), symbolName(groups.idOf(one)).toUtf8Lossless());
    } else if ((hasR12Code(kind, one.code) && !isFill) || keepsAll) {
      group(kind, groups, one);
    } else if (const auto what = r12Loss(kind, one.code, numberOf(one)); !what.empty() && what != lastReported) {
      lastReported = what;
      sink_.lost({.code = "dxf.group-not-in-version",
                  .severity = Severity::kLost,
                  .groupCode = one.code,
                  .kind = kind,
                  .found = "version R12 cannot store " + std::string(what),
                  .done = "it is omitted"});
    }
  }
  if (lines)
    lost(object, "dxf.group-not-in-version", Severity::kLost, "version R12 cannot store the lines of the value",
         "they are written as one");
  xData(object);
}

void R12Writer::group(std::string_view kind, const GroupList& groups, const Group& group) {
  if (group.kind == GroupKind::kText && r12NameTable(kind, group.code) != OdDb::kNoTable)
    return name(kind, group.code, groups.textOf(group));
  if (kind == "DIMENSION" && group.code == 70)
    return sink_.integer(70, group.integer & ~std::int64_t{kUniqueBlock});
  groups.writeTo(sink_, static_cast<std::size_t>(&group - &groups[0]), 1);
}

void R12Writer::name(std::string_view kind, int code, std::string_view utf8) {
  sink_.utf8(code, names_.of(r12NameTable(kind, code), utf8));
}

void R12Writer::xData(const OdDbObject& object) {
  GroupList groups;
  if (const GroupList* own = object.xDataGroups())
    groups = *own;
  if (object.dxfName() == "VIEWPORT") {
    GroupList sections;
    writeSubclasses(object, sections);
    addViewportView(sections, groups);
  }
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].kind == GroupKind::kText && (groups[i].code == 1001 || groups[i].code == 1003))
      name("", groups[i].code, groups.textOf(groups[i]));
    else
      groups.writeTo(sink_, i, 1);
  }
}

void R12Writer::begin(const char* kind, const OdDbEntity& source) {
  sink_.utf8(0, kind);
  sink_.handle(5, begun_ == &source ? OdDbHandle(nextHandle_++) : source.getDbHandle());
  begun_ = &source;
  name(kind, 8, source.layer().toUtf8Lossless());
  if (!source.linetypeId().isNull())
    name(kind, 6, symbolName(source.linetypeId()).toUtf8Lossless());
  if (source.colorIndex() != OdCmColor::kByLayer)
    sink_.integer(62, source.colorIndex());
  if (inPaperSpace_)
    sink_.integer(67, 1);
}

// Objects outside tables and blocks, which R12 cannot store.
void R12Writer::reportDictionaries() {
  if (database_.fileInfo().version < OdDb::kRelease13)
    return; // nothing of that was in the file
  std::map<std::string, std::size_t> kinds;
  for (OdDbObjectId id : database_.allIds()) {
    const OdDbObject* object = lookup(id);
    if (isAlive(object) && !object->isKindOf(OdDbEntity::desc()) && !object->isKindOf(OdDbSymbolTable::desc()) &&
        !object->isKindOf(OdDbSymbolTableRecord::desc()) && !object->isKindOf(OdDbHeader::desc()))
      ++kinds[object->dxfName()];
  }
  for (const auto& [kind, count] : kinds)
    sink_.lost({.code = "dxf.kind-not-in-version",
                .severity = Severity::kLost,
                .section = "OBJECTS",
                .kind = kind,
                .found = "version R12 cannot store objects of this type (" + std::to_string(count) + ")",
                .done = "they are omitted"});
}

} // namespace drawing::dxf

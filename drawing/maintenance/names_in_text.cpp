#include "drawing/maintenance/names_in_text.h"

#include "DbDictionary.h"
#include "DbStyles.h"
#include "DbSymbolTable.h"
#include "DbTable.h"
#include "drawing/model/object_store.h"
#include "drawing/opaque_objects.h"

namespace drawing {

namespace {

struct NameGroup {
  std::string_view record; // "" for any entity
  int code;
  OdDb::SymbolTableKind kind;
  bool certain = true;
};

// Names among the groups of records that are read but not modelled, or modelled in part.
constexpr NameGroup kUnmodelledNames[] = {
    {"ACAD_TABLE", 2, OdDb::kBlockTable, false},      {"ACAD_TABLE", 7, OdDb::kTextStyleTable},
    {"TABLESTYLE", 7, OdDb::kTextStyleTable},         {"TOLERANCE", 3, OdDb::kDimStyleTable},

    {"ARC_DIMENSION", 2, OdDb::kBlockTable},          {"ARC_DIMENSION", 3, OdDb::kDimStyleTable},
    {"LARGE_RADIAL_DIMENSION", 2, OdDb::kBlockTable}, {"LARGE_RADIAL_DIMENSION", 3, OdDb::kDimStyleTable},
};

// And of entities that are kept as the record they were.
constexpr NameGroup kUnparsedNames[] = {
    {"", 8, OdDb::kLayerTable},           {"", 6, OdDb::kLinetypeTable},          {"INSERT", 2, OdDb::kBlockTable},
    {"DIMENSION", 2, OdDb::kBlockTable},  {"DIMENSION", 3, OdDb::kDimStyleTable}, {"LEADER", 3, OdDb::kDimStyleTable},
    {"TEXT", 7, OdDb::kTextStyleTable},   {"MTEXT", 7, OdDb::kTextStyleTable},    {"ATTRIB", 7, OdDb::kTextStyleTable},
    {"ATTDEF", 7, OdDb::kTextStyleTable},
};

// Values that do not fit their code stand as text too: old dimension styles have names where later ones have handles.
bool isText(const Group& group) {
  return group.kind == GroupKind::kText || group.kind == GroupKind::kUnparsed;
}

template <std::size_t Count>
void findIn(const GroupList& groups, TextualReference::List list, std::string_view record,
            const NameGroup (&table)[Count], std::vector<TextualReference>& names) {
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (!isText(groups[i]))
      continue;
    for (const NameGroup& entry : table) {
      if (entry.code == groups[i].code && (entry.record.empty() || entry.record == record))
        names.push_back({entry.kind, list, i, entry.certain});
    }
  }
}

// The section that an object keeps and that holds names; null for most.
const GroupList* sectionOf(const OdDbObject& object) {
  if (const auto* table = OdDbTable::cast(&object).get())
    return &table->groups();
  const auto* style = OdDbTableStyle::cast(&object).get();
  return style == nullptr ? nullptr : &style->groups();
}

// Overrides of a dimension style: pairs of a code (1070) and a value.
bool isArrowOverride(const GroupList& groups, std::size_t at) {
  if (at == 0 || groups[at].code != 1000 || groups[at - 1].code != 1070)
    return false;
  const std::int64_t variable = groups[at - 1].integer;
  return variable >= 5 && variable <= 7;
}

void findInXData(const GroupList& groups, std::vector<TextualReference>& names) {
  bool overrides = false;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (!isText(groups[i]))
      continue;
    const int code = groups[i].code;
    if (code == 1001)
      names.push_back({OdDb::kRegAppTable, TextualReference::kXData, i, true});
    else if (code == 1003)
      names.push_back({OdDb::kLayerTable, TextualReference::kXData, i, true});
    else if (overrides && isArrowOverride(groups, i))
      names.push_back({OdDb::kBlockTable, TextualReference::kXData, i, true});
    overrides = code == 1001 ? false : overrides || (code == 1000 && groups.textOf(groups[i]) == "DSTYLE");
  }
}

} // namespace

const GroupList& listOf(const OdDbObject& object, const TextualReference& name) {
  if (name.list == TextualReference::kSection)
    return *sectionOf(object);
  return name.list == TextualReference::kXData ? *object.xDataGroups() : *object.unmodelledGroupsOrNull();
}

GroupList& listForWrite(OdDbObject& object, const TextualReference& name) {
  if (name.list == TextualReference::kXData)
    return object.xDataGroupsForWrite();
  if (name.list == TextualReference::kUnmodelled)
    return object.unmodelledGroups();
  object.assertWriteEnabled();
  return const_cast<GroupList&>(*sectionOf(object)); // open for write, and so is all that it holds
}

void collectTextualReferences(const OdDbObject& object, std::vector<TextualReference>& names) {
  if (const GroupList* section = sectionOf(object))
    findIn(*section, TextualReference::kSection, object.dxfName(), kUnmodelledNames, names);
  if (object.extrasOrNull() == nullptr)
    return;
  if (const GroupList& unmodelled = *object.unmodelledGroupsOrNull(); !unmodelled.empty()) {
    const auto* entity = dynamic_cast<const OdDbOpaqueEntity*>(&object);
    const std::string record = object.dxfName();
    if (entity != nullptr && entity->isUnparsed())
      findIn(unmodelled, TextualReference::kUnmodelled, record, kUnparsedNames, names);
    else
      findIn(unmodelled, TextualReference::kUnmodelled, record, kUnmodelledNames, names);
  }
  findInXData(*object.xDataGroups(), names);
}

const std::vector<NameVariable>& nameVariables() {
  static const std::vector<NameVariable> table = {
      {"CLAYER", OdDb::kLayerTable, nullptr, false},
      {"CELTYPE", OdDb::kLinetypeTable, nullptr, false},
      {"TEXTSTYLE", OdDb::kTextStyleTable, nullptr, false},
      {"DIMSTYLE", OdDb::kDimStyleTable, nullptr, false},
      {"DIMTXSTY", OdDb::kTextStyleTable, nullptr, false},
      {"DIMBLK", OdDb::kBlockTable, nullptr, false},
      {"DIMBLK1", OdDb::kBlockTable, nullptr, false},
      {"DIMBLK2", OdDb::kBlockTable, nullptr, false},
      {"DIMLDRBLK", OdDb::kBlockTable, nullptr, false},
      {"DIMLTYPE", OdDb::kLinetypeTable, nullptr, false},
      {"DIMLTEX1", OdDb::kLinetypeTable, nullptr, false},
      {"DIMLTEX2", OdDb::kLinetypeTable, nullptr, false},
      {"CMLSTYLE", OdDb::kNoTable, L"ACAD_MLINESTYLE", false},
      {"CMLEADERSTYLE", OdDb::kNoTable, L"ACAD_MLEADERSTYLE", true},
      {"CTABLESTYLE", OdDb::kNoTable, L"ACAD_TABLESTYLE", true},
      {"CVIEWDETAILSTYLE", OdDb::kNoTable, L"ACAD_DETAILVIEWSTYLE", true},
      {"CVIEWSECTIONSTYLE", OdDb::kNoTable, L"ACAD_SECTIONVIEWSTYLE", true},
  };
  return table;
}

OdDbObjectId namedBy(const OdDbDatabase& database, const NameVariable& variable) {
  const OdString name = variable.inDictionary ? database.dictionaryVar(OdString::fromUtf8(variable.variable))
                                              : database.headerText(variable.variable);
  if (name.isEmpty())
    return {};
  if (variable.dictionary != nullptr) {
    const auto* root = getIf<OdDbDictionary>(database.getNamedObjectsDictionaryId());
    const auto* styles = root == nullptr ? nullptr : getIf<OdDbDictionary>(root->getAt(variable.dictionary));
    return styles == nullptr ? OdDbObjectId() : styles->getAt(name);
  }
  const OdDbObjectId id = database.symbol(variable.kind, name);
  return id.isNull() && variable.kind == OdDb::kBlockTable ? database.symbol(variable.kind, L"_" + name) : id;
}

} // namespace drawing

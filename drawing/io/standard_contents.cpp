// What every drawing holds.
#include "drawing/io/standard_contents.h"
#include "DbAnnotationScale.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "DbSymbolRecords.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_table_kinds.h"
#include "drawing/objects/layout_links.h"

namespace drawing {

namespace {

class Basics {
public:
  Basics(OdDbDatabase& database, const LayoutFaultHandler& onFault) : database_(database), onFault_(onFault) {}

  std::vector<std::string> run() {
    for (int kind = 0; kind < OdDb::kSymbolTableCount; ++kind)
      ensureTable(static_cast<OdDb::SymbolTableKind>(kind));
    for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"})
      ensureRecord(OdDb::kLinetypeTable, name);
    ensureRecord(OdDb::kLayerTable, L"0");
    ensureRecord(OdDb::kTextStyleTable, L"Standard");
    ensureRecord(OdDb::kRegAppTable, L"ACAD");
    ensureRecord(OdDb::kDimStyleTable, L"Standard");
    ensureRecord(OdDb::kViewportTable, L"*Active");
    ensureRecord(OdDb::kBlockTable, modelSpaceStr);
    ensureRecord(OdDb::kBlockTable, paperSpaceStr);
    fillDefaults();
    GroupList& dimStyles = table(OdDb::kDimStyleTable).extrasForLoad().unmodelledGroups;
    if (dimStyles.empty()) { // readers look for the marker
      dimStyles.utf8(100, "AcDbDimStyleTable");
      dimStyles.integer(71, 0);
    }
    ensureDictionaries();
    return std::move(made_);
  }

private:
  OdDbSymbolTable& table(OdDb::SymbolTableKind kind) {
    return *getIf<OdDbSymbolTable>(database_.getSymbolTableId(kind));
  }

  void ensureTable(OdDb::SymbolTableKind kind) {
    if (lookup(database_.getSymbolTableId(kind)) != nullptr)
      return;
    OdDbSymbolTable* made = newTable(kind);
    database_.setSymbolTable(kind, database_.addObject(made));
    made_.push_back(std::string("table ") + tableDxfName(kind));
  }

  void ensureRecord(OdDb::SymbolTableKind kind, const OdString& name) {
    if (table(kind).has(name))
      return;
    OdSmartPtr<OdDbSymbolTableRecord> made = recordClass(kind)->create();
    made->setName(name);
    database_.addObject(made.get(), table(kind).objectId());
    table(kind).registerRecord(made.get());
    fresh_.push_back(made->objectId());
    made_.push_back(std::string(tableDxfName(kind)) + " \"" + name.toUtf8() + "\"");
  }

  // Properties of the standard records that were made here.
  void fillDefaults() {
    for (OdDbObjectId id : fresh_) {
      const WriteScope scope(*lookup(id));
      if (auto* layer = getIf<OdDbLayerTableRecord>(id))
        layer->setLinetypeObjectId(database_.symbol(OdDb::kLinetypeTable, L"Continuous"));
      else if (auto* style = getIf<OdDbTextStyleTableRecord>(id))
        style->setFileName(L"txt");
      else if (auto* linetype = getIf<OdDbLinetypeTableRecord>(id);
               linetype != nullptr && linetype->getName() == L"Continuous")
        linetype->setComments(L"Solid line");
      else if (auto* block = getIf<OdDbBlockTableRecord>(id))
        block->ensureEnds();
    }
    for (OdDbObjectId id : table(OdDb::kLayerTable).members().ids()) {
      auto* layer = getIf<OdDbLayerTableRecord>(id);
      if (layer == nullptr || !layer->linetypeObjectId().isNull())
        continue;
      const WriteScope scope(*layer);
      layer->setLinetypeObjectId(database_.symbol(OdDb::kLinetypeTable, L"Continuous"));
    }
  }

  OdDbDictionary& ensureDictionary(OdDbDictionary& parent, const wchar_t* name) {
    if (auto* present = getIf<OdDbDictionary>(parent.getAt(name)))
      return *present;
    auto* made = new OdDbDictionary;
    const WriteScope scope(parent);
    parent.setAt(name, database_.addObject(made, parent.objectId()));
    made_.push_back("dictionary \"" + OdString(name).toUtf8() + "\"");
    return *made;
  }

  void ensureDictionaries() {
    if (getIf<OdDbDictionary>(database_.getNamedObjectsDictionaryId()) == nullptr) {
      database_.setNamedObjectsDictionary(database_.addObject(new OdDbDictionary));
      made_.push_back("named-objects dictionary");
    }
    auto& root = *getIf<OdDbDictionary>(database_.getNamedObjectsDictionaryId());
    ensureDictionary(root, L"ACAD_GROUP");
    ensureScales(ensureDictionary(root, L"ACAD_SCALELIST"));
    ensureDictionary(root, L"ACAD_LAYOUT");
    ensureLayouts();
  }

  void ensureScales(OdDbDictionary& scales) {
    if (scales.numEntries() != 0)
      return;
    auto* scale = new OdDbScale;
    scale->setScaleName(L"1:1");
    scale->setUnits(1, 1);
    const WriteScope scope(scales);
    scales.setAt(L"A0", database_.addObject(scale, scales.objectId()));
  }

  // A standard space without a layout is only something to make; the rest is damage.
  void ensureLayouts() {
    checkLayouts(database_, true, [this](const LayoutFault& fault) {
      const auto* block = dynamic_cast<const OdDbBlockTableRecord*>(&fault.object);
      if (fault.isMade && (block->getName() == modelSpaceStr || block->getName() == paperSpaceStr))
        made_.push_back("layout of " + block->getName().toUtf8());
      else if (onFault_)
        onFault_(fault);
    });
  }

  OdDbDatabase& database_;
  const LayoutFaultHandler& onFault_;
  std::vector<OdDbObjectId> fresh_;
  std::vector<std::string> made_;
};

// Header variables of a new drawing: metric, in file order. Codes are those of the file.
void setHeaderDefaults(OdDbDatabase& database) {
  database.setHeaderText("ACADVER", 1, L"AC1032");
  database.setHeaderText("DWGCODEPAGE", 3, L"ANSI_1252");
  database.setHeaderPoint("INSBASE", {});
  database.setHeaderPoint("EXTMIN", OdGePoint3d(1e20, 1e20, 1e20));
  database.setHeaderPoint("EXTMAX", OdGePoint3d(-1e20, -1e20, -1e20));
  struct Real {
    const char* name;
    double value;
  };
  for (const Real& r : {Real{"LTSCALE", 1}, {"TEXTSIZE", 2.5}, {"CELTSCALE", 1}, {"DIMSCALE", 1}})
    database.setHeaderReal(r.name, 40, r.value);
  database.setHeaderText("TEXTSTYLE", 7, L"Standard");
  database.setHeaderText("CLAYER", 8, L"0");
  database.setHeaderText("CELTYPE", 6, L"ByLayer");
  database.setHeaderInt("CECOLOR", 62, OdCmColor::kByLayer);
  database.setHeaderText("DIMSTYLE", 2, L"Standard");
  struct Whole {
    const char* name;
    int code;
    int value;
  };
  for (const Whole& w : {Whole{"ATTMODE", 70, 1},
                         {"LUNITS", 70, 2},
                         {"LUPREC", 70, 4},
                         {"AUNITS", 70, 0},
                         {"AUPREC", 70, 0},
                         {"PDMODE", 70, 0},
                         {"TILEMODE", 70, 1},
                         {"MEASUREMENT", 70, 1},
                         {"CELWEIGHT", 370, -1},
                         {"EXTNAMES", 290, 1},
                         {"INSUNITS", 70, OdDb::kUnitsMillimeters},
                         {"XEDIT", 290, 1}})
    database.setHeaderInt(w.name, w.code, w.value);
}

} // namespace

std::vector<std::string> ensureBasics(OdDbDatabase& database, const LayoutFaultHandler& onFault) {
  return Basics(database, onFault).run();
}

} // namespace drawing

OdDbDatabasePtr OdDbDatabase::create() {
  OdDbDatabasePtr database = createEmpty();
  drawing::setHeaderDefaults(*database);
  drawing::ensureBasics(*database);
  database->setCannoscale(L"1:1");
  return database;
}

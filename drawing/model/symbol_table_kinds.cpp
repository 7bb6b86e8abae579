#include "drawing/model/symbol_table_kinds.h"

#include "DbBlockTable.h"
#include "DbSymbolRecords.h"

namespace drawing {

namespace {

struct Kind {
  const char* dxfName;
  OdRxClass* (*record)();
};

// In the order of OdDb::SymbolTableKind.
constexpr Kind kKinds[OdDb::kSymbolTableCount] = {
    {"VPORT", &OdDbViewportTableRecord::desc},     {"LTYPE", &OdDbLinetypeTableRecord::desc},
    {"LAYER", &OdDbLayerTableRecord::desc},        {"STYLE", &OdDbTextStyleTableRecord::desc},
    {"VIEW", &OdDbViewTableRecord::desc},          {"UCS", &OdDbUCSTableRecord::desc},
    {"APPID", &OdDbRegAppTableRecord::desc},       {"DIMSTYLE", &OdDbDimStyleTableRecord::desc},
    {"BLOCK_RECORD", &OdDbBlockTableRecord::desc},
};

} // namespace

OdRxClass* recordClass(OdDb::SymbolTableKind kind) {
  return kKinds[kind].record();
}

const char* tableDxfName(OdDb::SymbolTableKind kind) {
  return kind < OdDb::kNoTable ? kKinds[kind].dxfName : "";
}

OdDb::SymbolTableKind tableKindOf(std::string_view dxfName) {
  int kind = 0;
  while (kind < OdDb::kSymbolTableCount && dxfName != kKinds[kind].dxfName)
    ++kind;
  return static_cast<OdDb::SymbolTableKind>(kind);
}

OdDb::SymbolTableKind tableKindOf(const OdRxClass* recordClass) {
  int kind = 0;
  while (kind < OdDb::kSymbolTableCount && recordClass != kKinds[kind].record())
    ++kind;
  return static_cast<OdDb::SymbolTableKind>(kind);
}

OdDbSymbolTable* newTable(OdDb::SymbolTableKind kind) {
  OdDbSymbolTable* made = kind == OdDb::kBlockTable ? new OdDbBlockTable : new OdDbSymbolTable;
  made->setKind(kind);
  return made;
}

} // namespace drawing

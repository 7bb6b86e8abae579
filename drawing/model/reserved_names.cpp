#include "drawing/model/reserved_names.h"

#include <algorithm>

namespace drawing {

namespace {

bool beginsWith(const OdString& name, const OdString& start) {
  return name.left(start.getLength()).iCompare(start) == 0;
}

} // namespace

bool isAnyOf(const OdString& name, std::initializer_list<const wchar_t*> names) {
  return std::any_of(names.begin(), names.end(), [&name](const wchar_t* one) { return name.iCompare(one) == 0; });
}

bool isSpaceName(const OdString& name) {
  return beginsWith(name, modelSpaceStr) || beginsWith(name, paperSpaceStr);
}

bool isSpace(const OdDbBlockTableRecord& block) {
  return block.isLayout() || isSpaceName(block.getName());
}

bool isNeeded(const OdDbSymbolTableRecord& record) {
  const OdString& name = record.getName();
  switch (record.tableKind()) {
  case OdDb::kBlockTable:
    return isSpace(static_cast<const OdDbBlockTableRecord&>(record));
  case OdDb::kLayerTable:
    return name.iCompare(L"0") == 0;
  case OdDb::kLinetypeTable:
    return isAnyOf(name, {L"ByLayer", L"ByBlock", L"Continuous"});
  case OdDb::kRegAppTable:
    return beginsWith(name, L"ACAD") || beginsWith(name, L"AcDb") || beginsWith(name, L"AcAec");
  default:
    return name.iCompare(L"Standard") == 0;
  }
}

bool isExternal(const OdDbSymbolTableRecord& record) {
  const auto* block = dynamic_cast<const OdDbBlockTableRecord*>(&record);
  return record.isDependent() || record.getName().find(L'|') >= 0 ||
         (block != nullptr && (block->isFromExternalReference() || block->isFromOverlayReference()));
}

bool isNamedAfterReference(const OdDbSymbolTableRecord& record) {
  const bool isDefpoints = record.tableKind() == OdDb::kLayerTable && record.getName().iCompare(L"Defpoints") == 0;
  const bool hasName = !record.getName().isEmpty(); // shape files have none
  return hasName && record.tableKind() != OdDb::kRegAppTable && !isNeeded(record) && !isDefpoints;
}

OdString boundSymbolName(const OdString& reference, const OdString& name, unsigned number) {
  OdString bound;
  return bound.format(L"%s$%u$%s", reference.c_str(), number, name.c_str());
}

} // namespace drawing

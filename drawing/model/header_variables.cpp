// Header variables of the drawing.
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbSymbolTable.h"
#include "drawing/model/object_store.h"
#include "drawing/model/symbol_name.h"

using drawing::getIf;
using drawing::GroupKind;
using drawing::GroupList;

OdDbHeader& OdDbDatabase::header() const {
  return *static_cast<OdDbHeader*>(drawing::lookup(header_));
}

const GroupList* OdDbDatabase::headerVar(std::string_view name) const {
  return header().find(name);
}
bool OdDbDatabase::hasHeaderVar(std::string_view name) const {
  return headerVar(name) != nullptr;
}

double OdDbDatabase::headerReal(std::string_view name, double absent) const {
  const GroupList* groups = headerVar(name);
  if (groups == nullptr || groups->empty() || (*groups)[0].kind != GroupKind::kReal)
    return absent;
  return (*groups)[0].real;
}

namespace {

bool isWhole(GroupKind kind) {
  return kind == GroupKind::kInt16 || kind == GroupKind::kInt32 || kind == GroupKind::kInt64 ||
         kind == GroupKind::kBool;
}

} // namespace

std::int64_t OdDbDatabase::headerInt(std::string_view name, std::int64_t absent) const {
  const GroupList* groups = headerVar(name);
  return groups == nullptr || groups->empty() || !isWhole((*groups)[0].kind) ? absent : (*groups)[0].integer;
}

OdString OdDbDatabase::headerText(std::string_view name) const {
  const GroupList* groups = headerVar(name);
  return groups == nullptr || groups->empty() || (*groups)[0].kind != GroupKind::kText ? OdString()
                                                                                       : groups->stringOf((*groups)[0]);
}

OdGePoint3d OdDbDatabase::headerPoint(std::string_view name) const {
  OdGePoint3d point;
  const GroupList* groups = headerVar(name);
  for (std::size_t i = 0; groups != nullptr && i < groups->size() && i < 3; ++i) {
    if ((*groups)[i].kind == GroupKind::kReal)
      point[static_cast<int>(i)] = (*groups)[i].real;
  }
  return point;
}

void OdDbDatabase::setHeaderVar(std::string_view name, const GroupList& groups) {
  OdDbObjectPtr header = header_.safeOpenObject(OdDb::kForWrite);
  static_cast<OdDbHeader*>(header.get())->at(name) = groups;
}

void OdDbDatabase::setHeaderReal(std::string_view name, int code, double value) {
  GroupList groups;
  groups.real(code, value);
  setHeaderVar(name, groups);
}

void OdDbDatabase::setHeaderInt(std::string_view name, int code, std::int64_t value) {
  GroupList groups;
  groups.integer(code, value);
  setHeaderVar(name, groups);
}

void OdDbDatabase::setHeaderText(std::string_view name, int code, const OdString& value) {
  GroupList groups;
  groups.text(code, value);
  setHeaderVar(name, groups);
}

void OdDbDatabase::setHeaderPoint(std::string_view name, const OdGePoint3d& value) {
  GroupList groups;
  groups.point(10, value);
  setHeaderVar(name, groups);
}

std::vector<std::string> OdDbDatabase::headerNames() const {
  std::vector<std::string> names;
  for (const OdDbHeader::Variable& variable : header().variables())
    names.push_back(variable.name);
  return names;
}

OdDb::UnitsValue OdDbDatabase::getINSUNITS() const {
  return static_cast<OdDb::UnitsValue>(headerInt("INSUNITS"));
}
void OdDbDatabase::setINSUNITS(OdDb::UnitsValue units) {
  setHeaderInt("INSUNITS", 70, units);
}
OdGePoint3d OdDbDatabase::getINSBASE() const {
  return headerPoint("INSBASE");
}
void OdDbDatabase::setINSBASE(const OdGePoint3d& base) {
  setHeaderPoint("INSBASE", base);
}

OdDbObjectId OdDbDatabase::getCLAYER() const {
  const OdDbObjectId current = symbol(OdDb::kLayerTable, headerText("CLAYER"));
  return current.isNull() ? getLayerZeroId() : current;
}

OdResult OdDbDatabase::setCLAYER(OdDbObjectId layer) {
  if (layer.database() != this || getIf<OdDbSymbolTableRecord>(layer) == nullptr || layer.isErased())
    return eInvalidInput;
  setHeaderText("CLAYER", 8, drawing::symbolName(layer));
  return eOk;
}

namespace {

constexpr const wchar_t* kVariableDictionary = L"AcDbVariableDictionary";

template <class T>
T* childAs(const OdDbDictionary* parent, const OdString& name) {
  return parent == nullptr ? nullptr : getIf<T>(parent->getAt(name));
}

} // namespace

OdString OdDbDatabase::dictionaryVar(const OdString& name) const {
  const auto* variables = childAs<OdDbDictionary>(getIf<OdDbDictionary>(namedObjects_), kVariableDictionary);
  const auto* variable = childAs<OdDbDictionaryVar>(variables, name);
  return variable == nullptr ? OdString() : variable->value();
}

void OdDbDatabase::setDictionaryVar(const OdString& name, const OdString& value) {
  auto* root = getIf<OdDbDictionary>(namedObjects_);
  if (root == nullptr)
    throw OdError(eNotInDatabase);
  const drawing::WriteScope rootScope(*root);
  if (!root->has(kVariableDictionary))
    root->setAt(kVariableDictionary, new OdDbDictionary);
  auto* variables = childAs<OdDbDictionary>(root, kVariableDictionary);
  const drawing::WriteScope variablesScope(*variables);
  if (!variables->has(name))
    variables->setAt(name, new OdDbDictionaryVar);
  auto* variable = childAs<OdDbDictionaryVar>(variables, name);
  const drawing::WriteScope variableScope(*variable);
  variable->setValue(value);
}

#include "blockcommon/block_report.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "blockcommon/host/services.h"
#include "drawing/names.h"
#include "morvane/documents.h"
#include "morvane/result_codes.h"
#include "morvane/variables.h"

#include <array>
#include <cstdint>

namespace blockUtils {
namespace {

OdDbBlockTableRecordPtr openRecord(const OdDbObjectId& id) {
  OdDbObjectPtr object;
  if (const OdResult reason = id.openObject(object, OdDb::kForRead); reason != eOk)
    throw OdError(reason);
  return object;
}

// Appends what `describe` puts into an object for each ordinary definition.
template <class Describe>
void listBlocks(MvJsonPtr& list, Describe describe) {
  const OdDbDatabase* database = mvsi::mvsidbWorkingDatabase();
  const OdDbBlockTablePtr table =
      database == nullptr ? OdDbBlockTablePtr() : OdDbBlockTablePtr(database->getBlockTableId().safeOpenObject());
  if (table.isNull())
    return;
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr record = openRecord(iterator->getRecordId());
    if (drawing::isSpaceName(record->getName()) || record->isFromExternalReference() || record->isDependent() ||
        record->isAnonymous())
      continue;
    const MvJsonPtr element = ElementValue::createObject(kMvJsonObject);
    describe(*record, *element);
    list->AppendData(element);
  }
}

double factorOfDrawingUnit(OdDb::UnitsValue blockUnits) {
  short drawingUnits = 0;
  mvsi::getVar(L"INSUNITS", drawingUnits);
  double factor = 1.0;
  if (blockUnits == 0 || drawingUnits == 0 || hostAccess::mvsiedGetUnitsFactor(drawingUnits, &factor) != RTNORM)
    return 1.0;
  return factor;
}

OdString factorText(double factor) {
  constexpr double kLargestScientific = 1e-06;
  constexpr int kScientific = 1;
  constexpr int kDecimal = 2;
  constexpr int kCurrentPrecision = -1;
  std::array<wchar_t, 2048 / sizeof(wchar_t)> buffer{};
  const int mode = factor > kLargestScientific ? kDecimal : kScientific;
  if (hostAccess::mvsidbRToS(factor, mode, kCurrentPrecision, buffer.data()) != RTNORM)
    return OdString();
  return OdString(buffer.data());
}

} // namespace

void getStatisticalCntsOfBT(MvJsonPtr& result) {
  if (result.isNull())
    result = ElementValue::createObject(kMvJsonList);
  listBlocks(result, [](const OdDbBlockTableRecord& record, IElementValueBase& element) {
    element.SetDataSW("name", record.getName());
    element.SetDataSW("des", record.comments());
  });
}

MvJsonPtr getStatisticalCntsOfBT() {
  MvJsonPtr result = ElementValue::createObject(kMvJsonList);
  listBlocks(result, [](const OdDbBlockTableRecord& record, IElementValueBase& element) {
    const OdDb::UnitsValue units = record.blockInsertUnits();
    const std::uint64_t handle = record.objectId().getHandle();
    element.SetDataSW("name", record.getName());
    element.SetDataB("explodable", record.explodable());
    element.SetDataL("blockId", static_cast<std::int64_t>(handle));
    element.SetDataB("bUniform", record.blockScaling() == OdDbBlockTableRecord::kUniform);
    element.SetDataI("units", units);
    element.SetDataSW("insunits", factorText(factorOfDrawingUnit(units)));
  });
  return result;
}

} // namespace blockUtils

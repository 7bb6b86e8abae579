// The lists of blocks that dialogs show: who is on them, what is reported of each, and what stays when the host fails.
#include "blockcommon/block_report.h"
#include "tests/support/open_document.h"

#include <algorithm>

namespace {

using namespace tests;

class BlockReport : public OpenDocument {};

TEST_F(BlockReport, ListsOrdinaryBlocksInTableOrder) {
  constexpr std::int16_t kAnonymous = 1, kXref = 4, kOverlay = 8, kDependent = 16;
  const std::pair<const wchar_t*, std::int16_t> rows[] = {
      {L"Window", 0},        {L"*U", kAnonymous},   {L"Site", kXref}, {L"Door", 0},           {L"Plan", kOverlay},
      {L"Leaf", kDependent}, {L"*mOdEl_SpaceX", 0}, {L"Gone", 0},     {L"*Paper_Space17", 0}, {L"MODEL_SPACE", 0},
  };
  EXPECT_EQ(blockUtils::getStatisticalCntsOfBT()->toText(), "[]");
  for (const auto& [name, flags] : rows) {
    const auto record = forWrite<OdDbBlockTableRecord>(addBlock(*database_, name));
    record->setFlag(flags, flags != 0);
    record->setComments(OdString(L"about ") + name);
    if (name == OdString(L"Gone"))
      record->erase();
  }
  const std::string listed = R"({"des":"about Window","name":"Window"},{"des":"about Door","name":"Door"},)"
                             R"({"des":"about MODEL_SPACE","name":"MODEL_SPACE"})";
  MvJsonPtr list;
  blockUtils::getStatisticalCntsOfBT(list);
  ASSERT_FALSE(list.isNull());
  EXPECT_EQ(list->toText(), "[" + listed + "]");
  blockUtils::getStatisticalCntsOfBT(list); // appends
  EXPECT_EQ(list->toText(), "[" + listed + "," + listed + "]");
  EXPECT_EQ(blockUtils::getStatisticalCntsOfBT()->GetDataCount(), 3);
  const OdDbDatabasePtr separate = OdDbDatabase::create();
  for (OdDbDatabase* working : {separate.get(), static_cast<OdDbDatabase*>(nullptr)}) {
    mvsi::mvsidbSetWorkingDatabase(working);
    MvJsonPtr none;
    blockUtils::getStatisticalCntsOfBT(none);
    EXPECT_EQ(none->toText() + blockUtils::getStatisticalCntsOfBT()->toText(), "[][]");
  }
}

TEST_F(BlockReport, WritesTheFactorOfTheDrawingsUnit) {
  constexpr short kNone = 0, kInch = 1, kAngstrom = 11, kNanometre = 12, kMicron = 13;
  const OdDbObjectId id = addBlock(*database_, L"Door");
  forWrite<OdDbBlockTableRecord>(id)->setExplodable(false);
  forWrite<OdDbBlockTableRecord>(id)->setBlockScaling(OdDbBlockTableRecord::kUniform);
  ASSERT_EQ(mvsi::setVar(L"LUPREC", static_cast<short>(4), true), RTNORM);
  const auto report = [&](int units, const std::string& factor) {
    return R"([{"bUniform":true,"blockId":)" + std::to_string(id.getHandle()) + R"(,"explodable":false,"insunits":")" +
           factor + R"(","name":"Door","units":)" + std::to_string(units) + "}]";
  };
  const struct {
    OdDb::UnitsValue block;
    short drawing;
    const char *factor, *failing = "none";
  } rows[] = {
      {OdDb::kUnitsMeters, kInch, "25.4000"},         {OdDb::kUnitsUndefined, kInch, "1.0000"},
      {OdDb::kUnitsMeters, kNone, "1.0000"},          {OdDb::kUnitsMeters, kMicron, "0.0010"},
      {OdDb::kUnitsMeters, kNanometre, "1.0000E-06"}, {OdDb::kUnitsMeters, kAngstrom, "1.0000E-07"},
      {OdDb::kUnitsMeters, kInch, "", "mvsidbRToS"},  {OdDb::kUnitsMeters, kInch, "1.0000", "mvsiedGetUnitsFactor"},
  };
  for (const auto& row : rows) {
    forWrite<OdDbBlockTableRecord>(id)->setBlockInsertUnits(row.block);
    EXPECT_EQ(mvsi::setVar(L"INSUNITS", row.drawing, true), RTNORM);
    host_.failOperation(row.failing);
    const auto asked = [&] { return std::count(host_.calls().begin(), host_.calls().end(), "mvsiedGetUnitsFactor"); };
    const auto before = asked();
    EXPECT_EQ(blockUtils::getStatisticalCntsOfBT()->toText(), report(row.block, row.factor));
    EXPECT_EQ(asked() - before, row.block != 0 && row.drawing != 0 ? 1 : 0);
  }
  host_.host().services().remove(kEditSystemServer);
  EXPECT_EQ(blockUtils::getStatisticalCntsOfBT()->toText(), report(OdDb::kUnitsMeters, "1.0000"));
}

} // namespace

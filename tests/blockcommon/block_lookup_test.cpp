// Finding block definitions by name, and the kinds of block that a name stands for.
#include "blockcommon/block_lookup.h"
#include "blockcommon/block_names.h"
#include "tests/support/open_document.h"

namespace {

using namespace tests;

class BlockLookup : public OpenDocument {};

TEST_F(BlockLookup, FindsExistingRecordsWithoutRegardToCase) {
  const OdDbDatabasePtr other = OdDbDatabase::create();
  const OdDbObjectId door = addBlock(*database_, L"Door"), theirs = addBlock(*other, L"Door");
  OdDbObjectId id;
  EXPECT_TRUE(blockUtils::getBlockIDByName(L"dOOR", id, nullptr));
  EXPECT_EQ(id, door);
  EXPECT_TRUE(blockUtils::getBlockIDByName(L"Door", id, other));
  EXPECT_EQ(id, theirs);
  door.safeOpenObject(OdDb::kForWrite)->erase();
  for (const wchar_t* name : {L"Door", L"None", L""}) {
    id = theirs;
    EXPECT_FALSE(blockUtils::getBlockIDByName(name, id, nullptr));
    EXPECT_TRUE(id.isNull());
  }
}

TEST_F(BlockLookup, NeedsADatabaseOnlyForNames) {
  mvsi::mvsidbSetWorkingDatabase(nullptr);
  OdDbObjectId id = addBlock(*database_, L"Door");
  EXPECT_FALSE(blockUtils::getBlockIDByName(L"Door", id, nullptr));
  EXPECT_TRUE(id.isNull());
  EXPECT_FALSE(blockUtils::isAnonymous(L"Door"));
  EXPECT_TRUE(blockUtils::isAnonymous(L"*U12"));
  EXPECT_TRUE(commonFun::isBlockRenameAble(L"Door"));
  host_.failNothing();
  id = addBlock(*database_, L"Window");
  EXPECT_FALSE(blockUtils::getBlockIDByName(L"", id, nullptr));
  EXPECT_TRUE(id.isNull());
  EXPECT_TRUE(host_.calls().empty()); // the host was not even asked
}

TEST_F(BlockLookup, DistinguishesTheKinds) {
  addBlock(*database_, L"Door");
  const auto add = [&](const wchar_t* name, std::int16_t flag) {
    forWrite<OdDbBlockTableRecord>(addBlock(*database_, name))->setFlag(flag, true);
  };
  add(L"Site", OdDbBlockTableRecord::kExternalReference);
  add(L"Site|Tree", OdDbSymbolTableRecord::kDependent);
  const struct {
    const wchar_t* name;
    bool anonymous, dependent, external, renameable;
  } cases[] = {
      {L"Door", false, false, false, true},      {L"site", false, false, true, true},
      {L"SITE|TREE", false, true, false, false}, {L"*U12", true, false, false, false},
      {L"a*", true, false, false, false},        {L"None", false, false, false, true},
      {L"", false, false, false, true},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.name);
    EXPECT_EQ(blockUtils::isAnonymous(one.name), one.anonymous);
    EXPECT_EQ(blockUtils::isExternalDependent(one.name), one.dependent);
    EXPECT_EQ(blockUtils::isFromExternalReference(one.name), one.external);
    EXPECT_EQ(commonFun::isBlockRenameAble(one.name), one.renameable);
  }
  for (OdString name : {modelSpaceStr, paperSpaceStr}) {
    EXPECT_FALSE(commonFun::isBlockRenameAble(name));
    EXPECT_FALSE(commonFun::isBlockRenameAble(name.makeUpper()));
  }
}

} // namespace

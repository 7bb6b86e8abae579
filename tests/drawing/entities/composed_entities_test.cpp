// What the parts of composed entities refer to goes where they go, and their outline is that of all parts.
#include "DbDictionary.h"
#include "DbDxf.h"
#include "DbIdMapping.h"
#include "tests/drawing/entities/composed_kinds.h"
#include "tests/drawing/entities/group_text.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <gtest/gtest.h>

using namespace test_entities;

namespace {

OdDbObjectId cloneInto(OdDbDatabase& from, OdDbObjectId id, OdDbObjectId owner) {
  OdDbIdMapping mapping;
  OdDbObjectIdArray ids;
  ids.append(id);
  EXPECT_EQ(owner.database() == &from ? from.deepCloneObjects(ids, owner, mapping)
                                      : from.wblockCloneObjects(ids, owner, mapping, OdDb::kDrcIgnore),
            eOk);
  return mapping.valueOf(id);
}

TEST(Table, CloneHasAPictureOfItsOwn) {
  Loader loader;
  OdDbDatabase& database = *loader.database;
  const OdDbObjectId picture = tests::addBlock(database, L"*T1");
  tests::addText(database, L"cell", picture);
  const std::string handle = picture.getHandle().ascii();
  OdDbEntityPtr table =
      loader.load("ACAD_TABLE", "100 AcDbBlockReference|2 *T1|10 1|20 2|30 3|100 AcDbTable|342 0|343 " + handle +
                                    "|11 1|21 0|31 0|91 1|92 1|141 9|142 40");
  table->setLayer(database.symbol(OdDb::kLayerTable, L"0"));
  const OdDbObjectId id =
      tests::forWrite<OdDbBlockTableRecord>(database.getModelSpaceId())->appendOdDbEntity(table.get());
  OdDbDatabasePtr other = OdDbDatabase::create();
  tests::skewHandles(*other);
  for (const OdDbObjectId owner : {tests::addBlock(database, L"holder"), other->getModelSpaceId()}) {
    const auto clone = tests::forRead<OdDbTable>(cloneInto(database, id, owner));
    const OdDbObjectId block = clone->blockTableRecord();
    EXPECT_NE(block, picture);
    EXPECT_EQ(block.database(), owner.database());
    EXPECT_NE(written(*clone).find("|343 " + block.getHandle().ascii() + "|"), std::string::npos);
    EXPECT_FALSE(tests::forRead<OdDbBlockTableRecord>(block)->newIterator()->done());
    tests::expectRoundTrip(*owner.database());
    tests::expectSound(*owner.database());
  }
}

TEST(MLeader, BringsItsStyleAndTextStyleAlong) {
  Loader loader;
  OdDbDatabase& database = *loader.database;
  auto root = tests::forWrite<OdDbDictionary>(database.getNamedObjectsDictionaryId());
  const OdDbObjectId styles = root->setAt(L"ACAD_MLEADERSTYLE", new OdDbDictionary);
  const OdDbObjectId style = tests::forWrite<OdDbDictionary>(styles)->setAt(L"Mine", new OdDbXrecord);
  const OdDbObjectId letters = database.symbol(OdDb::kTextStyleTable, L"Standard");
  OdDbEntityPtr leader =
      loader.load("MULTILEADER", "100 AcDbMLeader|300 CONTEXT_DATA{|304 x|340 " + letters.getHandle().ascii() +
                                     "|302 LEADER{|304 LEADER_LINE{|10 0|20 0|30 0|305 }|303 }|301 }|340 " +
                                     style.getHandle().ascii() + "|172 2");
  leader->setLayer(database.symbol(OdDb::kLayerTable, L"0"));
  const OdDbObjectId id =
      tests::forWrite<OdDbBlockTableRecord>(database.getModelSpaceId())->appendOdDbEntity(leader.get());
  OdDbDatabasePtr other = OdDbDatabase::create();
  tests::skewHandles(*other);
  const auto clone = tests::forRead<OdDbMLeader>(cloneInto(database, id, other->getModelSpaceId()));
  const auto there = tests::forRead<OdDbDictionary>(
      tests::forRead<OdDbDictionary>(other->getNamedObjectsDictionaryId())->getAt(L"ACAD_MLEADERSTYLE"));
  EXPECT_EQ(clone->MLeaderStyle(), there->getAt(L"Mine"));
  EXPECT_NE(written(*clone).find("|340 " + other->symbol(OdDb::kTextStyleTable, L"Standard").getHandle().ascii()),
            std::string::npos);
  EXPECT_EQ(clone->contents(), OdString(L"x"));
  tests::expectSound(*other);
}

struct Outline {
  const char* name;
  OdGePoint3d least, greatest;
};

TEST(ComposedEntities, AreAsLargeAsAllTheirParts) {
  const Outline kOutlines[] = {{"TextLeader", {-5, -2.4, 3}, {15.4, 9.7, 3}},
                               {"Mline", {-0.5, 0, 3}, {7.5, 2, 3}},
                               {"Mesh", {0, 0, 0}, {4, 3, 1}},
                               {"Light", {1, 2, 3}, {4, 5, 6}},
                               {"Ole2Frame", {1, 2, 0}, {4, 5, 0}}};
  for (const Outline& outline : kOutlines) {
    SCOPED_TRACE(outline.name);
    const Kind* kind = kComposedKinds;
    while (std::string(kind->name) != outline.name)
      ++kind;
    Loader loader;
    OdGeExtents3d extents;
    ASSERT_EQ(loader.load(kind->dxfName, kind->groups)->getGeomExtents(extents), eOk);
    EXPECT_NEAR(extents.minPoint().distanceTo(outline.least), 0, 1e-9)
        << extents.minPoint().x << " " << extents.minPoint().y;
    EXPECT_NEAR(extents.maxPoint().distanceTo(outline.greatest), 0, 1e-9)
        << extents.maxPoint().x << " " << extents.maxPoint().y;
  }
}

// The unit matrix leaves every body where it is; a value that is no number leaves the record unread.
TEST(ComposedEntities, OfOtherProgramsTakeTheUnitMatrixOnly) {
  for (const Kind& kind : kComposedKinds) {
    if (kind.reach != kNothing)
      continue;
    Loader loader;
    EXPECT_EQ(loader.load(kind.dxfName, kind.groups)->transformBy(OdGeMatrix3d::kIdentity), eOk) << kind.name;
  }
}

TEST(ComposedEntities, WithoutReadableNumberAreKeptUnread) {
  const std::string file = tests::dxf(
      tests::section("ENTITIES", "0|MULTILEADER\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbMLeader\n300|CONTEXT_DATA{\n"
                                 "10|1.0\n20|none\n30|0.0\n301|}\n"));
  const drawing::ReadResult read = drawing::readDrawingFromMemory(file);
  ASSERT_FALSE(read.database.isNull()) << read.message;
  EXPECT_EQ(read.report.account.keptUnread, 1u);
  EXPECT_NE(drawing::writeDrawingToMemory(*read.database).find("none"), std::string::npos);
}

} // namespace

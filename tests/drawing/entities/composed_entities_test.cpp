// What the parts of composed entities refer to goes where they go, and their outline is that of all parts.
#include "DbDictionary.h"
#include "tests/drawing/entities/composed_kinds.h"
#include "tests/drawing/entities/group_text.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <map>

using namespace tests;

namespace {

OdDbObjectId cloneInto(OdDbObjectId id, OdDbObjectId owner) {
  return cloned({id}, owner).valueOf(id);
}

TEST(Table, CloneHasItsOwnBlock) {
  Loader loader;
  OdDbDatabase& database = *loader.database;
  const OdDbObjectId picture = addBlock(database, L"*T1");
  addText(database, L"cell", picture);
  const std::string handle = picture.getHandle().ascii();
  const OdDbObjectId id =
      loader
          .add("ACAD_TABLE", "100 AcDbBlockReference|2 *T1|10 1|20 2|30 3|100 AcDbTable|342 0|343 " + handle +
                                 "|11 1|21 0|31 0|91 1|92 1|141 9|142 40")
          ->objectId();
  const OdDbDatabasePtr other = skewedDrawing();
  for (const OdDbObjectId owner : {addBlock(database, L"holder"), other->getModelSpaceId()}) {
    const auto clone = forRead<OdDbTable>(cloneInto(id, owner));
    const OdDbObjectId block = clone->blockTableRecord();
    EXPECT_NE(block, picture);
    EXPECT_EQ(block.database(), owner.database());
    EXPECT_NE(written(*clone).find("|343 " + block.getHandle().ascii() + "|"), std::string::npos);
    EXPECT_FALSE(forRead<OdDbBlockTableRecord>(block)->newIterator()->done());
    expectRoundTrip(*owner.database());
    expectSound(*owner.database());
  }
}

TEST(MLeader, IsClonedWithItsStyleAndTextStyle) {
  Loader loader;
  OdDbDatabase& database = *loader.database;
  auto root = forWrite<OdDbDictionary>(database.getNamedObjectsDictionaryId());
  const OdDbObjectId styles = root->setAt(L"ACAD_MLEADERSTYLE", new OdDbDictionary);
  const OdDbObjectId style = forWrite<OdDbDictionary>(styles)->setAt(L"Mine", new OdDbXrecord);
  const OdDbObjectId letters = database.symbol(OdDb::kTextStyleTable, L"Standard");
  const OdDbObjectId id =
      loader
          .add("MULTILEADER", "100 AcDbMLeader|300 CONTEXT_DATA{|304 x|340 " + letters.getHandle().ascii() +
                                  "|302 LEADER{|304 LEADER_LINE{|10 0|20 0|30 0|305 }|303 }|301 }|340 " +
                                  style.getHandle().ascii() + "|172 2")
          ->objectId();
  const OdDbDatabasePtr other = skewedDrawing();
  const auto clone = forRead<OdDbMLeader>(cloneInto(id, other->getModelSpaceId()));
  const auto there = forRead<OdDbDictionary>(
      forRead<OdDbDictionary>(other->getNamedObjectsDictionaryId())->getAt(L"ACAD_MLEADERSTYLE"));
  EXPECT_EQ(clone->MLeaderStyle(), there->getAt(L"Mine"));
  EXPECT_NE(written(*clone).find("|340 " + other->symbol(OdDb::kTextStyleTable, L"Standard").getHandle().ascii()),
            std::string::npos);
  EXPECT_EQ(clone->contents(), OdString(L"x"));
  expectSound(*other);
}

TEST(Solid, CloneHasABodyOfItsOwn) {
  const std::string file =
      dxf(section("ENTITIES", "0|3DSOLID\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbModelerGeometry\n290|1\n2|{0}\n"
                              "100|AcDb3dSolid\n350|0\n") +
              section("ACDSDATA", "70|2\n71|8\n0|ACDSSCHEMA\n90|4\n1|Bodies\n2|AcDbDs::ID\n280|10\n91|8\n"
                                  "0|ACDSRECORD\n90|4\n2|AcDbDs::ID\n280|10\n320|A1\n2|Body\n280|15\n94|2\n"
                                  "310|AB12\n"),
          "AC1027");
  const drawing::ReadResult read = readWell(file);
  OdDbDatabase& database = *read.database;
  const OdDbDatabasePtr other = skewedDrawing();
  const OdDbObjectId holder = addBlock(database, L"holder");
  for (const OdDbObjectId owner : {holder, other->getModelSpaceId()}) {
    OdDbObjectId clone;
    expectUndoRestores(*owner.database(), [&] { clone = cloneInto(database.objectIdOf(0xA1), owner); });
    const std::string dump = drawing::canonicalDump(*owner.database());
    EXPECT_NE(dump.find("320 " + clone.getHandle().ascii() + "\n"), std::string::npos) << dump;
    expectUndoRestores(*owner.database(), [&] { forWrite<OdDbEntity>(clone)->erase(); });
    EXPECT_EQ(drawing::canonicalDump(*owner.database()).find("320 " + clone.getHandle().ascii()), std::string::npos);
  }
}

// The dictionaries that hold an entity's looks at other scales, with one of them.
std::string annotative(const std::string& entity, const std::string& kind, const std::string& groups) {
  const auto dictionary = [](const char* handle, const char* owner, const char* name, const char* entry) {
    return std::string("0|DICTIONARY\n5|") + handle + "\n330|" + owner + "\n100|AcDbDictionary\n280|1\n281|1\n3|" +
           name + "\n360|" + entry + "\n";
  };
  const std::size_t head = entity.find("100|AcDbEntity");
  return dxf(
      section("ENTITIES", entity.substr(0, head) + "102|{ACAD_XDICTIONARY\n360|D1\n102|}\n" + entity.substr(head)) +
      section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n" +
                             dictionary("D1", "A1", "AcDbContextDataManager", "D2") +
                             dictionary("D2", "D1", "ACDB_ANNOTATIONSCALES", "D3") +
                             dictionary("D3", "D2", "*A1", "D4") + "0|ACDB_" + kind +
                             "OBJECTCONTEXTDATA_CLASS\n5|D4\n330|D3\n100|AcDbObjectContextData\n70|4\n290|0\n"
                             "100|AcDbAnnotScaleObjectContextData\n340|0\n" +
                             groups));
}

TEST(ContextData, MovesWithItsEntity) {
  struct Look {
    const char* entity;
    const char* kind;
    const char* groups;
    const char* moved; // by a quarter turn, twice the size
  };
  const Look kLooks[] = {
      {"0|TEXT\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbText\n10|1\n20|2\n30|0\n40|1\n1|x\n", "TEXT",
       "70|0\n50|0\n10|1\n20|2\n11|0\n21|0\n", "  70 0\n  50 90\n  10 -4\n  20 2\n  11 0\n  21 0\n"},
      {"0|LEADER\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbLeader\n76|1\n10|0\n20|0\n30|0\n", "LEADER",
       "70|1\n10|1\n20|2\n30|3\n11|1\n21|0\n31|0\n12|0\n22|0\n32|0\n13|0\n23|-1\n33|0\n",
       "  10 -4\n  20 2\n  30 6\n  11 0\n  21 1\n  31 0\n  12 0\n  22 0\n  32 0\n  13 2\n  23 0\n  33 0\n"},
  };
  OdGeMatrix3d matrix; // exact, so that the texts can be compared
  matrix.setToScaling(2);
  const OdGeMatrix3d quarter =
      OdGeMatrix3d::coordSystem(OdGePoint3d(), OdGeVector3d(0, 1, 0), OdGeVector3d(-1, 0, 0), OdGeVector3d(0, 0, 1));
  for (const Look& look : kLooks) {
    const drawing::ReadResult read = readWell(annotative(look.entity, look.kind, look.groups));
    const OdDbObjectId id = read.database->objectIdOf(0xA1);
    expectUndoRestores(*read.database,
                       [&] { EXPECT_EQ(forWrite<OdDbEntity>(id)->transformBy(matrix * quarter), eOk); });
    const std::string dump = drawing::canonicalDump(*read.database);
    const std::string look4 = dump.substr(dump.find("OBJECTCONTEXTDATA_CLASS"));
    EXPECT_NE(look4.find(look.moved), std::string::npos) << look4.substr(0, 400);
  }
}

TEST(ComposedEntities, AreAsLargeAsAllTheirParts) {
  std::map<std::string, OdGeExtents3d> outlines = {{"TextLeader", {{-5, -2.4, 3}, {15.4, 9.7, 3}}},
                                                   {"Mline", {{-0.5, 0, 3}, {7.5, 2, 3}}},
                                                   {"Mesh", {{0, 0, 0}, {4, 3, 1}}},
                                                   {"Light", {{1, 2, 3}, {4, 5, 6}}},
                                                   {"Ole2Frame", {{1, 2, 0}, {4, 5, 0}}}};
  for (const Kind& kind : kComposedKinds) {
    const auto wanted = outlines.extract(kind.name);
    if (wanted.empty())
      continue;
    Loader loader;
    OdGeExtents3d extents;
    EXPECT_EQ(loader.load(kind.dxfName, kind.groups)->getGeomExtents(extents), eOk) << kind.name;
    EXPECT_NEAR(extents.minPoint().distanceTo(wanted.mapped().minPoint()), 0, 1e-9) << kind.name;
    EXPECT_NEAR(extents.maxPoint().distanceTo(wanted.mapped().maxPoint()), 0, 1e-9) << kind.name;
  }
  EXPECT_TRUE(outlines.empty());
}

TEST(ComposedEntities, WithoutReadableNumberAreUnparsed) {
  const std::string file =
      dxf(section("ENTITIES", "0|MULTILEADER\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbMLeader\n300|CONTEXT_DATA{\n"
                              "10|1.0\n20|none\n30|0.0\n301|}\n"));
  const drawing::ReadResult read = readWell(file);
  EXPECT_EQ(read.report.counts.unparsed, 1u);
  EXPECT_NE(drawing::writeDrawingToMemory(*read.database).find("none"), std::string::npos);
}

} // namespace

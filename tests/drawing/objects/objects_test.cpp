// Objects behind the entities: they are read as their kind, answer what files say of them, and come back as they were.
#include "DbDictionary.h"
#include "DbGroup.h"
#include "DbImageObjects.h"
#include "DbSpatialFilter.h"
#include "DbStyles.h"
#include "Ge/GeUtil.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <algorithm>

using namespace tests;

namespace {

// Its class and what its properties answer, in one line.
std::string factsOf(const OdDbObject& object);

struct ObjectKind {
  const char* name;
  const char* lines; // behind handle and owner
  const char* facts;
};

const ObjectKind kObjectKinds[] = {
    {"MLINESTYLE",
     "100|AcDbMlineStyle\n2|TWO\n70|1\n3|two strokes\n62|3\n51|90\n52|45\n71|2\n49|0.5\n62|1\n6|DASHED\n49|-0.5\n"
     "62|256\n420|255\n6|ByLayer\n",
     "two strokes filled 3 45 0.5/1/DASHED -0.5/256/ByLayer 255"},
    {"MLEADERSTYLE",
     "100|AcDbMLeaderStyle\n179|2\n170|2\n171|1\n40|0\n340|E1\n290|1\n42|0.09\n43|0.36\n3|Usual\n44|0.18\n300|new\n"
     "342|11\n45|0.2\n47|1\n142|2.5\n271|0\n",
     "Usual Mine 2 2.5 0.2 0.18 0.36 new"},
    {"TABLESTYLE",
     "100|AcDbTableStyle\n280|0\n3|Plain\n70|1\n71|0\n40|0.06\n41|0.08\n280|0\n281|1\n7|Standard\n140|0.18\n170|2\n"
     "7|Notes\n140|0.25\n7|Heads\n140|0.3\n",
     "Plain up 0.08 0 1 Heads 0.3"},
    {"VISUALSTYLE", "100|AcDbVisualStyle\n2|Flat\n70|4\n177|3\n291|1\n70|58\n90|0\n176|1\n90|2\n176|1\n", "Flat 4 1"},
    {"MATERIAL", "100|AcDbMaterial\n1|Beech\n2|wood\n70|1\n90|5\n40|0.5\n42|1\n42|0\n72|1\n94|63\n", "Beech wood"},
    {"IMAGEDEF", "100|AcDbRasterImageDef\n90|0\n1|..\\plan.png\n10|994\n20|965\n11|0.25\n21|0.5\n280|1\n281|5\n330|C\n",
     "..\\plan.png 994 0.5"},
    {"RASTERVARIABLES", "100|AcDbRasterVariables\n90|0\n70|1\n71|1\n72|5\n", "1 1 5"},
    {"WIPEOUTVARIABLES", "100|AcDbWipeoutVariables\n70|1\n", "1"},
    {"PDFDEFINITION", "100|AcDbUnderlayDefinition\n1|plan.pdf\n2|3\n", "plan.pdf 3"},
    {"DWFDEFINITION", "100|AcDbUnderlayDefinition\n1|plan.dwf\n2|a\n", "plan.dwf a"},
    {"DGNDEFINITION", "100|AcDbUnderlayDefinition\n1|plan.dgn\n2|b\n", "plan.dgn b"},
    {"ACDBPLACEHOLDER", "", ""},
    {"GROUP", "100|AcDbGroup\n300|chairs\n70|0\n71|1\n340|A2\n340|A1\n", "chairs Mine 1 A2 A1"},
    {"SPATIAL_FILTER",
     "100|AcDbFilter\n100|AcDbSpatialFilter\n70|2\n10|1\n20|2\n10|3\n20|5\n210|0\n220|0\n230|1\n11|0\n21|0\n31|0\n"
     "71|1\n72|1\n40|7\n73|1\n41|-2\n40|2\n40|0\n40|0\n40|-10\n40|0\n40|2\n40|0\n40|4\n40|0\n40|0\n40|2\n40|0\n40|1\n"
     "40|0\n40|0\n40|1\n40|0\n40|1\n40|0\n40|0\n40|0\n40|0\n40|1\n40|0\n",
     "1 7 -2 -10/8 -6/8 -6/14 -10/14"},
};

std::string text(const OdString& value) {
  return value.toUtf8();
}

std::string number(double value) {
  std::string digits = std::to_string(value);
  digits.erase(digits.find_last_not_of('0') + 1);
  return digits.back() == '.' ? digits.substr(0, digits.size() - 1) : digits;
}

std::string joined(std::initializer_list<std::string> parts) {
  std::string all;
  for (const std::string& part : parts)
    all += (all.empty() ? "" : " ") + part;
  return all;
}

std::string factsOfMlineStyle(const OdDbMlineStyle& style) {
  std::string all = joined({text(style.getDescription()), style.filled() ? "filled" : "empty",
                            number(style.fillColor().index), number(toDegrees(style.endAngle()))});
  for (const OdDbMlineStyle::Element& one : style.elements()) {
    const auto linetype = forRead<OdDbSymbolTableRecord>(one.linetype);
    all += " " + number(one.offset) + "/" + number(one.color.index) + "/" + text(linetype->getName());
    if (one.color.trueColor != OdCmColor::kNoTrueColor)
      all += " " + number(one.color.trueColor);
  }
  return all;
}

std::string factsOfFilter(const OdDbSpatialFilter& filter) {
  std::string all =
      joined({number(filter.isEnabled()), number(filter.frontClipDist().value()), number(*filter.backClipDist())});
  for (const OdGePoint3d& corner : filter.boundaryInBlock())
    all += " " + number(corner.x) + "/" + number(corner.y);
  return all;
}

std::string factsOfGroup(const OdDbGroup& group) {
  std::string all = joined({text(group.getDescription()), text(group.getName()), number(group.isSelectable())});
  for (const OdDbObjectId id : group.allEntityIds())
    all += " " + id.getHandle().ascii();
  return all;
}

std::string factsOf(const OdDbObject& object) {
  if (const auto* style = OdDbMlineStyle::cast(&object).get())
    return factsOfMlineStyle(*style);
  if (const auto* filter = OdDbSpatialFilter::cast(&object).get())
    return factsOfFilter(*filter);
  if (const auto* group = OdDbGroup::cast(&object).get())
    return factsOfGroup(*group);
  if (const auto* style = OdDbMLeaderStyle::cast(&object).get())
    return joined({text(style->getDescription()), text(style->getName()), number(style->contentType()),
                   number(style->scale()), number(style->textHeight()), number(style->arrowSize()),
                   number(style->doglegLength()), text(style->defaultMText())});
  if (const auto* style = OdDbTableStyle::cast(&object).get())
    return joined({text(style->getDescription()), style->isFlowUp() ? "up" : "down", number(style->vertCellMargin()),
                   number(style->isTitleSuppressed()), number(style->isHeaderSuppressed()),
                   text(style->textStyleName(OdDbTableStyle::kHeaderRow)),
                   number(style->textHeight(OdDbTableStyle::kHeaderRow))});
  if (const auto* style = OdDbVisualStyle::cast(&object).get())
    return joined({text(style->getDescription()), number(style->type()), number(style->isInternalUseOnly())});
  if (const auto* material = OdDbMaterial::cast(&object).get())
    return joined({text(material->name()), text(material->getDescription())});
  if (const auto* image = OdDbRasterImageDef::cast(&object).get())
    return joined({text(image->sourceFileName()), number(image->size().x), number(image->pixelSize().y)});
  if (const auto* variables = OdDbRasterVariables::cast(&object).get())
    return joined({number(variables->imageFrame()), number(variables->imageQuality()), number(variables->userScale())});
  if (const auto* variables = OdDbWipeoutVariables::cast(&object).get())
    return number(variables->showFrame());
  if (const auto* pages = OdDbUnderlayDefinition::cast(&object).get())
    return joined({text(pages->sourceFileName()), text(pages->itemName())});
  return OdDbPlaceHolder::cast(&object).isNull() ? "no kind of these" : "";
}

constexpr OdDbHandle kObject(0xD1);

// A drawing with two entities and the object, under the name "Mine" of a dictionary.
OdDbDatabasePtr drawingWith(const std::string& kind, const std::string& lines) {
  const std::string entities = "0|POINT\n5|A1\n100|AcDbEntity\n8|0\n100|AcDbPoint\n10|0\n20|0\n30|0\n"
                               "0|POINT\n5|A2\n100|AcDbEntity\n8|0\n100|AcDbPoint\n10|1\n20|0\n30|0\n";
  const std::string tables = "0|TABLE\n2|LTYPE\n5|5\n100|AcDbSymbolTable\n70|1\n0|LTYPE\n5|E1\n"
                             "100|AcDbSymbolTableRecord\n100|AcDbLinetypeTableRecord\n2|DASHED\n70|0\n3|\n72|65\n73|0\n"
                             "40|0\n0|ENDTAB\n";
  const drawing::ReadResult read =
      readWell(dxf(section("TABLES", tables) + section("ENTITIES", entities) +
                   section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n3|ACAD_THINGS\n350|D\n"
                                      "0|DICTIONARY\n5|D\n330|C\n100|AcDbDictionary\n281|1\n3|Mine\n350|D1\n0|" +
                                          kind + "\n5|D1\n330|D\n" + lines)));
  EXPECT_EQ(read.report.counts.opaque + read.report.counts.unparsed, 0u);
  return read.database;
}

class ObjectKinds : public testing::TestWithParam<ObjectKind> {};

TEST_P(ObjectKinds, HaveThePropertiesOfTheFileAndRoundTrip) {
  const OdDbDatabasePtr database = drawingWith(GetParam().name, GetParam().lines);
  const OdDbObjectId id = database->objectIdOf(kObject);
  EXPECT_EQ(factsOf(*forRead<OdDbObject>(id)), GetParam().facts);
  const OdDbDatabasePtr again = expectRoundTrip(*database);
  EXPECT_EQ(factsOf(*forRead<OdDbObject>(again->objectIdOf(kObject))), GetParam().facts);
}

// Into another drawing: names stay, what they refer to comes along.
TEST_P(ObjectKinds, HaveTheSamePropertiesInAnotherDrawing) {
  const OdDbDatabasePtr database = drawingWith(GetParam().name, GetParam().lines);
  const OdDbDatabasePtr other = skewedDrawing();
  const auto root = forWrite<OdDbDictionary>(other->getNamedObjectsDictionaryId());
  const OdDbObjectId holder = root->setAt(L"ACAD_THINGS", new OdDbDictionary);
  const OdDbObjectId id = database->objectIdOf(kObject), clone = cloned({id}, holder).valueOf(id);
  std::string wanted = GetParam().facts;
  wanted = wanted.substr(0, wanted.find(" A2 A1")); // members that did not come along
  EXPECT_EQ(factsOf(*forRead<OdDbObject>(clone)), wanted);
  expectRoundTrip(*other);
  expectSound(*other);
}

INSTANTIATE_TEST_SUITE_P(All, ObjectKinds, testing::ValuesIn(kObjectKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(Group, LosesErasedMembersUntilUnerased) {
  const OdDbDatabasePtr database = drawingWith("GROUP", "100|AcDbGroup\n300|\n70|0\n71|1\n340|A1\n340|A2\n");
  const OdDbObjectId first = database->objectIdOf(OdDbHandle(0xA1)), id = database->objectIdOf(kObject);
  expectUndoRestores(*database, [&] { forWrite<OdDbEntity>(first)->erase(); });
  EXPECT_EQ(factsOf(*forRead<OdDbGroup>(id)), "Mine 1 A2");
  const OdDbDatabasePtr written = expectRoundTrip(*database);
  EXPECT_EQ(forRead<OdDbGroup>(written->objectIdOf(kObject))->numEntities(), 1u);
  ASSERT_EQ(database->undo(), eOk);
  EXPECT_EQ(factsOf(*forRead<OdDbGroup>(id)), "Mine 1 A1 A2");
  expectUndoRestores(*database, [&] {
    const auto group = forWrite<OdDbGroup>(id);
    const auto point = forWrite<OdDbEntity>(first);
    group->remove(first);
    group->append(first);
    group->append(first);
    EXPECT_TRUE(point->hasPersistentReactor(id));
  });
  EXPECT_EQ(factsOf(*forRead<OdDbGroup>(id)), "Mine 1 A2 A1");
}

// What a record names as its own comes along and lives with it; what belongs to others stays theirs.
TEST(Xrecord, OwnsItsHardReferences) {
  const OdDbDatabasePtr database =
      drawingWith("XRECORD", "100|AcDbXrecord\n280|1\n360|E5\n360|E6\n0|WIPEOUTVARIABLES\n5|E5\n330|D1\n"
                             "100|AcDbWipeoutVariables\n70|1\n0|WIPEOUTVARIABLES\n5|E6\n330|D\n"
                             "100|AcDbWipeoutVariables\n70|0\n");
  const OdDbObjectId id = database->objectIdOf(kObject), own = database->objectIdOf(OdDbHandle(0xE5));
  const OdDbObjectId others = database->objectIdOf(OdDbHandle(0xE6));
  const OdDbIdMapping mapping = cloned({id}, database->getNamedObjectsDictionaryId());
  EXPECT_FALSE(mapping.valueOf(own).isNull());
  EXPECT_TRUE(mapping.valueOf(others).isNull());
  const auto clone = forRead<OdDbXrecord>(mapping.valueOf(id));
  EXPECT_EQ(clone->groups().idOf(clone->groups()[0]), mapping.valueOf(own));
  EXPECT_EQ(clone->groups().idOf(clone->groups()[1]), others);
  forWrite<OdDbXrecord>(id)->erase();
  EXPECT_TRUE(own.isErased());
  EXPECT_FALSE(others.isErased() || mapping.valueOf(own).isErased());
}

// The boundary in the world as the reference shows it now.
std::vector<OdGePoint3d> clippedAt(OdDbObjectId reference) {
  const auto insert = forRead<OdDbBlockReference>(reference);
  const OdDbSpatialFilterPtr filter = OdDbSpatialFilter::of(*insert);
  std::vector<OdGePoint3d> points = filter.isNull() ? std::vector<OdGePoint3d>() : filter->boundaryInBlock();
  for (OdGePoint3d& point : points)
    point = insert->blockTransform() * point;
  return points;
}

TEST(SpatialFilter, ClipsAtTheSamePlaceWhereverTheReferenceGoes) {
  const std::string identity = "40|1\n40|0\n40|0\n40|0\n40|0\n40|1\n40|0\n40|0\n40|0\n40|0\n40|1\n40|0\n";
  const std::string text = dxf(
      section("BLOCKS", "0|BLOCK\n5|B1\n100|AcDbEntity\n8|0\n100|AcDbBlockBegin\n2|door\n70|0\n10|0\n20|0\n30|0\n"
                        "0|ENDBLK\n5|B2\n100|AcDbEntity\n8|0\n100|AcDbBlockEnd\n") +
      section("ENTITIES", "0|INSERT\n5|A1\n102|{ACAD_XDICTIONARY\n360|D0\n102|}\n100|AcDbEntity\n8|0\n"
                          "100|AcDbBlockReference\n2|door\n10|10\n20|5\n30|0\n41|2\n42|2\n43|2\n") +
      section("OBJECTS", "0|DICTIONARY\n5|C\n330|0\n100|AcDbDictionary\n281|1\n"
                         "0|DICTIONARY\n5|D0\n330|A1\n100|AcDbDictionary\n280|1\n281|1\n3|ACAD_FILTER\n360|D1\n"
                         "0|DICTIONARY\n5|D1\n330|D0\n100|AcDbDictionary\n280|1\n281|1\n3|SPATIAL\n360|D2\n"
                         "0|SPATIAL_FILTER\n5|D2\n330|D1\n100|AcDbFilter\n100|AcDbSpatialFilter\n70|2\n10|11\n20|6\n"
                         "10|14\n20|8\n210|0\n220|0\n230|1\n11|0\n21|0\n31|0\n71|1\n72|0\n73|0\n"
                         "40|0.5\n40|0\n40|0\n40|-5\n40|0\n40|0.5\n40|0\n40|-2.5\n40|0\n40|0\n40|0.5\n40|0\n" +
                             identity));
  const drawing::ReadResult read = readWell(text);
  OdDbDatabase& database = *read.database;
  const OdDbObjectId id = database.objectIdOf(OdDbHandle(0xA1));
  const std::vector<OdGePoint3d> before = clippedAt(id);
  ASSERT_EQ(before.size(), 4u);
  EXPECT_NEAR(before[0].distanceTo(OdGePoint3d(11, 6, 0)), 0, 1e-12);
  EXPECT_NEAR(before[2].distanceTo(OdGePoint3d(14, 8, 0)), 0, 1e-12);

  const OdDbDatabasePtr other = skewedDrawing();
  const OdGeMatrix3d matrix = OdGeMatrix3d::rotation(0.5, OdGeVector3d::kZAxis, OdGePoint3d(1, 1, 0)) *
                              OdGeMatrix3d::scaling(OdGeScale3d(-2, 2, 2));
  for (const OdDbObjectId owner : {addBlock(database, L"holder"), other->getModelSpaceId()}) {
    const OdDbObjectId clone = cloned({id}, owner).valueOf(id);
    ASSERT_EQ(forWrite<OdDbEntity>(clone)->transformBy(matrix), eOk);
    const std::vector<OdGePoint3d> after = clippedAt(clone);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i)
      EXPECT_NEAR(after[i].distanceTo(matrix * before[i]), 0, 1e-9);
    EXPECT_NE(OdDbSpatialFilter::of(*forRead<OdDbBlockReference>(clone))->objectId(),
              OdDbSpatialFilter::of(*forRead<OdDbBlockReference>(id))->objectId());
    expectRoundTrip(*owner.database());
  }
}

} // namespace

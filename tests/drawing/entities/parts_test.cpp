// Parts of entities: vertices and attributes that follow their owner, classes behind one name, text in attributes.
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbDimension.h"
#include "DbVertexPolylines.h"
#include "DbViewport.h"
#include "Ge/GeUtil.h"
#include "tests/drawing/entities/group_text.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tests;

namespace {

const OdGeMatrix3d kMirror = OdGeMatrix3d::mirroring(OdGePoint3d(3, 0, 0), OdGeVector3d::kXAxis);
const OdGeMatrix3d kUnequal = OdGeMatrix3d::scaling(OdGeScale3d(2, 1, 1));

class EntityParts : public testing::Test {
protected:
  Loader loader;

  template <class T>
  OdSmartPtr<T> resident(const char* dxfName, const char* groups) {
    return loader.add(dxfName, groups);
  }
  std::string dumpAll(const OdDbSequenceOwner& owner, const OdDbObject& object) {
    std::string dump = written(object);
    for (OdDbObjectId id : owner.subEntities())
      dump += written(*id.safeOpenObject());
    return dump;
  }
};

TEST_F(EntityParts, ClassOfSharedNames) {
  const struct {
    const char *dxfName, *groups;
    OdRxClass* wanted;
  } cases[] = {
      {"INSERT", "100 AcDbBlockReference|10 1", OdDbBlockReference::desc()},
      {"INSERT", "100 AcDbMInsertBlock|10 1", OdDbMInsertBlock::desc()},
      {"INSERT", "2 A|71 3", OdDbMInsertBlock::desc()},
      {"INSERT", "2 A|1001 ACAD|1070 3", OdDbBlockReference::desc()},
      {"POLYLINE", "70 1", OdDb2dPolyline::desc()},
      {"POLYLINE", "70  9", OdDb3dPolyline::desc()},
      {"POLYLINE", "70 17", OdDbPolygonMesh::desc()},
      {"POLYLINE", "70 64", OdDbPolyFaceMesh::desc()},
      {"POLYLINE", "100 AcDb3dPolyline", OdDb3dPolyline::desc()},
      {"VERTEX", "10 1", OdDb2dVertex::desc()},
      {"VERTEX", "70 32", OdDb3dPolylineVertex::desc()},
      {"VERTEX", "70 64", OdDbPolygonMeshVertex::desc()},
      {"VERTEX", "70 192", OdDbPolyFaceMeshVertex::desc()},
      {"VERTEX", "70 128", OdDbFaceRecord::desc()},
      {"DIMENSION", "70 33", OdDbAlignedDimension::desc()},
      {"DIMENSION", "70 32|100 AcDbDimension|100 AcDbAlignedDimension|100 AcDbRotatedDimension",
       OdDbRotatedDimension::desc()},
      {"DIMENSION", "70 36", OdDbRadialDimension::desc()},
      {"DIMENSION", "70 102", OdDbOrdinateDimension::desc()},
      {"DIMENSION", "70 15", nullptr},
      {"CAMERA", "", OdDbCamera::desc()},
      {"NO_SUCH_THING", "", nullptr},
  };
  for (const auto& one : cases)
    EXPECT_EQ(drawing::chooseClass(one.dxfName, rawGroupsOf(one.groups)), one.wanted)
        << one.dxfName << " " << one.groups;
}

TEST_F(EntityParts, VerticesFollowTheirPolyline) {
  auto polyline = resident<OdDb2dPolyline>("POLYLINE", "100 AcDb2dPolyline|10 0|20 0|30 2|70 1|210 0|220 0|230 -1");
  OdSmartPtr<OdDb2dVertex> vertex = loader.load("VERTEX", "100 AcDb2dVertex|10 1|20 4|30 2|42 0.5|70 0");
  polyline->appendVertex(vertex.get());
  const OdGePoint3d before = polyline->vertexPosition(*vertex);
  const std::string dump = dumpAll(*polyline, *polyline);
  EXPECT_FALSE(polyline->sequenceEndId().isNull());

  EXPECT_EQ(polyline->transformBy(kUnequal), eCannotTransform); // its arc would be none
  EXPECT_EQ(dumpAll(*polyline, *polyline), dump);
  ASSERT_EQ(polyline->transformBy(kMirror), eOk);
  EXPECT_EQ(polyline->vertexPosition(*vertex), kMirror * before);
  EXPECT_EQ(vertex->bulge(), -0.5);
  EXPECT_EQ(vertex->startWidth(), OdDb2dVertex::kWidthOfPolyline);
  ASSERT_EQ(polyline->transformBy(kMirror), eOk);
  EXPECT_EQ(dumpAll(*polyline, *polyline), dump);

  polyline->erase();
  EXPECT_TRUE(vertex->isErased());
}

TEST_F(EntityParts, MeshVerticesMoveAndFacesStay) {
  auto mesh = resident<OdDbPolyFaceMesh>("POLYLINE", "100 AcDbPolyFaceMesh|66 1|10 0|20 0|30 0|70 64|71 1|72 1");
  OdSmartPtr<OdDbPolyFaceMeshVertex> vertex =
      loader.load("VERTEX", "100 AcDbVertex|100 AcDbPolyFaceMeshVertex|10 1|20 4|30 2|70 192");
  OdSmartPtr<OdDbFaceRecord> face = loader.load("VERTEX", "100 AcDbFaceRecord|10 0|20 0|30 0|70 128|71 1|72 -1");
  mesh->appendVertex(vertex.get());
  mesh->appendVertex(face.get());
  ASSERT_EQ(mesh->transformBy(kUnequal), eOk);
  EXPECT_EQ(vertex->position(), OdGePoint3d(2, 4, 2));
  EXPECT_EQ(face->getVertexAt(1), -1);
  OdGeExtents3d extents;
  EXPECT_EQ(mesh->getGeomExtents(extents), eOk);
  EXPECT_EQ(extents.maxPoint(), OdGePoint3d(2, 4, 2));
}

constexpr char kMultiLine[] =
    "100 AcDbText|10 1|20 2|30 0|40 2|1 one|100 AcDbAttribute|280 0|2 TAG|70 0|280 1|71 2|72 0|11 1|21 2|31 0|"
    "101 Embedded Object|10 1|20 2|30 0|40 2|41 30|71 1|72 5|3 one\\P|1 two|7 Standard|50 90|73 1|44 1";

TEST_F(EntityParts, MultiLineAttributeKeepsItsGroups) {
  const auto attribute = resident<OdDbAttribute>("ATTRIB", kMultiLine);
  const std::string once = written(*attribute);
  EXPECT_NE(once.find("71 2|72 0|11 1|21 2|31 0|101 Embedded Object|10 1|"), once.npos) << once;
  EXPECT_EQ(written(*loader.load("ATTRIB", once)), once);
  ASSERT_TRUE(attribute->isMTextAttribute());
  const OdDbMTextPtr text = attribute->getMTextAttribute();
  EXPECT_EQ(text->contents(), L"one\\Ptwo");
  EXPECT_EQ(text->plainText(), L"one\ntwo");
  EXPECT_NEAR(text->rotation(), kHalfPi, 1e-12);
  EXPECT_EQ(text->textStyle(), loader.database->symbol(OdDb::kTextStyleTable, L"Standard"));
  EXPECT_EQ(attribute->tag(), L"TAG"); // codes behind 101 are the text's
}

TEST_F(EntityParts, OlderMultiLineAttributeIsStoredInADictionary) {
  const auto attribute =
      resident<OdDbAttribute>("ATTRIB", "100 AcDbText|10 1|20 2|30 0|40 2|100 AcDbAttribute|2 TAG|70 0");
  OdDbDictionaryPtr dictionary = attribute->createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
  OdDbXrecordPtr record = OdDbXrecord::createObject();
  drawing::GroupList& groups = record->groupsForWrite();
  groups.integer(70, 2);
  groups.point(10, OdGePoint3d(1, 2, 0));
  groups.utf8(2, "TAG");
  EXPECT_FALSE(attribute->isMTextAttribute());
  groups.utf8(1, "Embedded Object");
  groups.point(10, OdGePoint3d(1, 2, 0));
  groups.real(40, 2);
  groups.utf8(1, "old");
  dictionary->setAt(L"ACAD_MLATT", record.get());
  ASSERT_TRUE(attribute->isMTextAttribute());
  ASSERT_EQ(attribute->transformBy(OdGeMatrix3d::translation({5, 0, 0})), eOk);
  const OdDbMTextPtr text = attribute->getMTextAttribute();
  EXPECT_EQ(text->contents(), L"old");
  EXPECT_EQ(text->location(), OdGePoint3d(6, 2, 0));

  text->setContents(L"new");
  attribute->setMTextAttribute(text.get()); // moves to the new place
  EXPECT_TRUE(record->isErased());
  EXPECT_EQ(attribute->getMTextAttribute()->contents(), L"new");
  EXPECT_EQ(attribute->textString(), L"new");
  attribute->setMTextAttribute(nullptr);
  EXPECT_FALSE(attribute->isMTextAttribute());
}

TEST_F(EntityParts, TextTurnsByDegreesAndByQuarterTurnsInRadians) {
  const std::pair<const char*, double> kTurns[] = {{"0", 0},
                                                   {"30", kPi / 6},
                                                   {"6.283", toRadians(6.283)},
                                                   {"6.2831853071795862", 0},
                                                   {"90", kPi / 2},
                                                   {"1.5707963267948966", kPi / 2}};
  for (const auto& [angle, turn] : kTurns) {
    const OdSmartPtr<OdDbMText> text =
        loader.load("MTEXT", std::string("100 AcDbMText|10 1|20 2|30 3|40 2.5|41 40|71 5|72 1|1 x|50 ") + angle);
    const OdGeVector3d wanted(std::cos(turn), std::sin(turn), 0);
    EXPECT_TRUE(text->direction().isEqualTo(wanted, OdGeTol(1e-12))) << angle;
  }
}

// A part that cannot follow holds its owner back, and the parts that went before it.
TEST_F(EntityParts, ReferenceMovesWithAllAttributesOrNone) {
  auto reference = resident<OdDbBlockReference>("INSERT", "100 AcDbBlockReference|10 1|20 2|30 0");
  OdDbEntityPtr plain = loader.load("ATTRIB", "100 AcDbText|10 1|20 2|30 0|40 2|1 a|100 AcDbAttribute|2 A|70 0");
  const OdDbAttributePtr multiple = loader.load("ATTRIB", kMultiLine);
  for (OdDbEntity* part : {plain.get(), static_cast<OdDbEntity*>(multiple.get())})
    reference->appendAttribute(static_cast<OdDbAttribute*>(part));
  const OdDbMTextPtr before = multiple->getMTextAttribute();
  const std::string dump = dumpAll(*reference, *reference);
  EXPECT_EQ(reference->transformBy(kUnequal), eCannotTransform);
  EXPECT_EQ(dumpAll(*reference, *reference), dump);
  const OdGeMatrix3d matrix = OdGeMatrix3d::scaling(3) * OdGeMatrix3d::rotation(0.5, OdGeVector3d(1, 1, 3)) * kMirror;
  ASSERT_EQ(reference->transformBy(matrix), eOk);
  const OdDbMTextPtr after = multiple->getMTextAttribute();
  EXPECT_EQ(after->location(), matrix * before->location());
  EXPECT_TRUE((after->direction() * 3).isEqualTo(matrix * before->direction(), OdGeTol(1e-9)));
  EXPECT_NEAR(after->textHeight(), 6, 1e-12);
  EXPECT_NEAR(after->width(), 90, 1e-12);
  EXPECT_EQ(multiple->position(), after->location());
}

TEST_F(EntityParts, LongTextIsCutAndJoinedWithoutLoss) {
  OdDbMText coded;
  coded.setContents(L"{\\fArial|b0;a}\\~\\S1/2; \\{b\\}\\U+00e9^J");
  EXPECT_EQ(coded.plainText(), L"a 1/2 {b}\u00e9\n");
  for (const int length : {0, 1, 249, 250, 251, 500, 777}) {
    OdDbMTextPtr text = OdDbMText::createObject();
    OdString contents;
    for (int i = 0; i < length; ++i)
      contents += static_cast<wchar_t>(i % 7 == 0 ? 0x4E2D : L'a' + i % 26);
    text->setContents(contents);
    const OdSmartPtr<OdDbMText> again = loader.load("MTEXT", written(*text));
    EXPECT_EQ(again->contents(), contents) << length;
  }
}

// Its sides stand along the sheet's, so only moves and equal scales have a result.
TEST(Viewport, TakesMatricesThatKeepItsSidesAlongTheAxes) {
  const struct {
    const char* what;
    OdGeMatrix3d matrix;
    bool takes;
  } cases[] = {{"move", OdGeMatrix3d::translation({5, -1, 0}), true},
               {"equal scale", OdGeMatrix3d::scaling(OdGeScale3d(2, 2, 2)), true},
               {"unequal scale", kUnequal, false},
               {"mirror", kMirror, false},
               {"turn", OdGeMatrix3d::rotation(kPi / 2, OdGeVector3d::kZAxis), false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    OdDbViewport viewport;
    viewport.setCenterPoint({1, 2, 0});
    viewport.setWidth(4);
    viewport.setHeight(3);
    EXPECT_EQ(viewport.transformBy(c.matrix), c.takes ? eOk : eCannotTransform);
    const double scale = c.takes ? (c.matrix * OdGeVector3d(1, 0, 0)).length() : 1;
    EXPECT_DOUBLE_EQ(viewport.width(), 4 * scale);
    EXPECT_DOUBLE_EQ(viewport.height(), 3 * scale);
    EXPECT_EQ(viewport.centerPoint(), c.takes ? c.matrix * OdGePoint3d(1, 2, 0) : OdGePoint3d(1, 2, 0));
  }
}

TEST(EntitySetters, RefuseValuesOutOfRangeAndKeepTheOldOnes) {
  const OdDbCirclePtr circle = OdDbCircle::createObject();
  const OdDbTextPtr text = OdDbText::createObject();
  const OdDbMInsertBlockPtr array = OdDbMInsertBlock::createObject();
  EXPECT_EQ(circle->setRadius(2), eOk);
  EXPECT_EQ(text->setHeight(3), eOk);
  EXPECT_EQ(array->setRows(4), eOk);
  for (const double value : {-1.0, HUGE_VAL, std::nan("")}) {
    EXPECT_EQ(circle->setRadius(value), eInvalidInput) << value;
    EXPECT_EQ(text->setHeight(value), eInvalidInput) << value;
  }
  EXPECT_EQ(array->setRows(0), eInvalidInput);
  EXPECT_EQ(array->setColumns(-1), eInvalidInput);
  EXPECT_EQ(circle->radius(), 2);
  EXPECT_EQ(text->height(), 3);
  EXPECT_EQ(array->rows(), 4);
  EXPECT_EQ(array->columns(), 1);
}

} // namespace

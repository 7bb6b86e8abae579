// Fields of objects, and the drawing's list of them.
#include "DbCurves.h"
#include "DbField.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <algorithm>

using namespace tests;

namespace {

OdDbFieldPtr field(const OdString& code) {
  const OdDbFieldPtr made = OdDbField::createObject();
  made->setEvaluatorId(L"_text");
  made->setFieldCode(code);
  return made;
}

struct Field : testing::Test {
  std::vector<OdDbObjectId> listed() const {
    std::vector<OdDbObjectId> ids = forRead<OdDbFieldList>(OdDbFieldList::listOf(*database))->fieldIds();
    std::sort(ids.begin(), ids.end());
    return ids;
  }
  // A field with a child, of the text.
  void set() {
    id = OdDbField::setField(*forWrite<OdDbText>(text), field(L"%<\\_FldIdx 0>%").get());
    child = forWrite<OdDbField>(id)->appendChild(field(L"\\AcVar Date").get());
    forWrite<OdDbField>(child)->addObjectId(text);
  }
  const OdDbDatabasePtr database = skewedDrawing();
  const OdDbObjectId text = addText(*database, L"#");
  OdDbObjectId id, child;
};

TEST_F(Field, BelongsToItsObjectAndIsListed) {
  expectUndoRestores(*database, [&] { set(); });
  EXPECT_EQ(OdDbField::getField(*forRead<OdDbText>(text), L"text"), id);
  EXPECT_EQ(child.safeOpenObject()->ownerId(), id);
  EXPECT_EQ(listed(), (std::vector<OdDbObjectId>{id, child}));
  const OdDbDatabasePtr again = expectRoundTrip(*database);
  const auto read = forRead<OdDbField>(again->objectIdOf(id.getHandle()));
  EXPECT_EQ(read->getFieldCode(), OdString(L"%<\\_FldIdx 0>%"));
  ASSERT_EQ(read->children().size(), 1u);
  EXPECT_EQ(read->children()[0].getHandle(), child.getHandle());
}

TEST_F(Field, TakenAwayGoesWithItsChildrenAndReplacedOnesAreErased) {
  const OdDbObjectId old = OdDbField::setField(*forWrite<OdDbText>(text), field(L"old").get());
  set();
  EXPECT_TRUE(old.isErased());
  expectUndoRestores(*database, [&] { EXPECT_EQ(OdDbField::removeField(*forWrite<OdDbText>(text)), eOk); });
  EXPECT_TRUE(id.isErased());
  EXPECT_TRUE(child.isErased());
  EXPECT_TRUE(OdDbField::getField(*forRead<OdDbText>(text)).isNull());
  EXPECT_EQ(OdDbField::removeField(*forWrite<OdDbText>(text)), eKeyNotFound);
  const OdDbDatabasePtr again = expectRoundTrip(*database);
  EXPECT_TRUE(forRead<OdDbFieldList>(OdDbFieldList::listOf(*again))->fieldIds().empty());
}

TEST_F(Field, OfAClonedObjectIsANewOneThatIsListedToo) {
  set();
  OdDbIdMapping mapping;
  expectUndoRestores(*database,
                     [&] { ASSERT_EQ(database->deepCloneObjects({text}, database->getModelSpaceId(), mapping), eOk); });
  const OdDbObjectId copy = OdDbField::getField(*forRead<OdDbText>(mapping.valueOf(text)));
  ASSERT_EQ(copy, mapping.valueOf(id));
  EXPECT_EQ(forRead<OdDbField>(copy)->children(), (std::vector<OdDbObjectId>{mapping.valueOf(child)}));
  EXPECT_EQ(listed(), (std::vector<OdDbObjectId>{id, child, copy, mapping.valueOf(child)}));
  expectRoundTrip(*database);
}

TEST_F(Field, CodesOfAnyLengthRoundTrip) {
  for (const int length : {0, 1, 250, 251, 500, 1234}) {
    OdString code;
    for (int i = 0; i < length; ++i)
      code += static_cast<wchar_t>(i % 7 == 0 ? 0x416 : L'a' + i % 26);
    id = OdDbField::setField(*forWrite<OdDbText>(text), field(code).get());
    const OdDbDatabasePtr again = expectRoundTrip(*database);
    EXPECT_EQ(forRead<OdDbField>(again->objectIdOf(id.getHandle()))->getFieldCode(), code) << length;
  }
}

// A field with children: the codes in order, the first one is the owner.
OdDbObjectId family(OdDbDatabase& database, const std::vector<OdString>& codes) {
  const OdDbObjectId text = addText(database, L"#");
  const OdDbObjectId id = OdDbField::setField(*forWrite<OdDbText>(text), field(codes[0]).get());
  for (std::size_t i = 1; i < codes.size(); ++i) {
    const OdDbFieldPtr child = field(codes[i]);
    child->setEvaluatorId(OdString());
    forWrite<OdDbField>(id)->appendChild(child.get());
  }
  return id;
}

TEST(FieldEvaluation, ComputesWhatNeedsNoProgramAndKeepsTheRest) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  database->fileInfo().path = "/plans/north/house.v2.dxf";
  database->setHeaderReal("LTSCALE", 40, 1234.5);
  database->setHeaderInt("LUPREC", 70, 2);
  database->setHeaderReal("TDCREATE", 40, 2460311.0 + (15 * 3600 + 4 * 60 + 9) / 86400.0); // 1 January 2024
  const auto circle = addTo<OdDbCircle>(database->getModelSpaceId());
  circle->setRadius(2);
  const struct {
    const wchar_t* code;
    OdResult result;
    const wchar_t* value;
  } cases[] = {
      {L"\\AcVar Filename", eOk, L"house.v2.dxf"},
      {L"\\AcVar.17.0 Filename \\f \"%fn7\"", eOk, L"/plans/north/house.v2.dxf"},
      {L"\\AcVar filename \\f \"%fn1\"", eOk, L"/plans/north"},
      {L"\\AcVar Filename \\f \"%fn2\"", eOk, L"house.v2"},
      {L"\\AcVar Filename \\f \"%fn4\"", eOk, L"dxf"},
      {L"\\AcVar Filename \\f \"%fn8\"", eNotImplementedYet, L""},
      {L"\\AcVar CreateDate", eOk, L"1/1/2024"},
      {L"\\AcVar CreateDate \\f \"yyyy-MM-dd HH:mm:ss h tt\"", eOk, L"2024-01-01 15:04:09 3 PM"},
      {L"\\AcVar CreateDate \\f \"MMMM d\"", eNotImplementedYet, L""},
      {L"\\AcVar SaveDate", eKeyNotFound, L""},
      {L"\\AcVar LtScale", eOk, L"1234.50"},
      {L"\\AcVar LtScale \\f \"%lu2%pr3%ps[a,b]%ds44%th46\"", eOk, L"a1.234,500b"},
      {L"\\AcVar LtScale \\f \"%lu2%pr3%zs8%ct8[0.1]\"", eOk, L"123.45"},
      {L"\\AcVar LtScale \\f \"%lu4\"", eNotImplementedYet, L""},
      {L"\\AcVar LtScale \\f \"%lu2%pr99999999999\"", eNotImplementedYet, L""},
      {L"\\AcVar Login", eKeyNotFound, L""},
      {L"\\AcVar InsBase", eNotImplementedYet, L""},
      {L"\\AcObjProp Object(%<\\_ObjIdx 0>%).Area \\f \"%lu2%pr3\"", eOk, L"12.566"},
      {L"\\AcObjProp.16.2 Object(%<\\_ObjIdx 0>%).diameter \\f \"%pr0\"", eOk, L"4"},
      {L"\\AcObjProp Object(%<\\_ObjIdx 0>%).Layer \\f \"%tc1\"", eOk, L"0"},
      {L"\\AcObjProp Object(%<\\_ObjIdx 0>%).TextString", eKeyNotFound, L""},
      {L"\\AcObjProp Object(%<\\_ObjIdx 1>%).Area", eKeyNotFound, L""},
      {L"\\AcObjProp Object(%<\\_ObjIdx 0>%).Volume", eNotImplementedYet, L""},
      {L"\\AcExpr 1+2*3-4/8", eOk, L"6.50"},
      {L"\\AcExpr -(2^-1*3)^2 \\f \"%pr4%zs4\"", eOk, L"-2.2500"},
      {L"\\AcExpr 2^3^2*-1 \\f \"%pr0\"", eOk, L"-512"},
      {L"\\AcExpr 0.4-0.5 \\f \"%pr1%zs4\"", eOk, L"-.1"},
      {L"\\AcExpr 0-0.001 \\f \"%pr2%zs8\"", eOk, L"0"},
      {L"\\AcExpr 1/0", eInvalidInput, L""},
      {L"\\AcExpr (1+2", eInvalidInput, L""},
      {L"\\AcExpr 1+2)", eInvalidInput, L""},
      {L"\\AcExpr 1 2", eInvalidInput, L""},
      {L"\\AcExpr", eInvalidInput, L""},
      {L"\\AcExpr 1e999", eInvalidInput, L""},
      {L"\\AcDiesel $(getvar,clayer)", eNotImplementedYet, L""},
      {L"no code", eNotImplementedYet, L""},
      {L"%<\\_FldIdx 0>%", eInvalidInput, L""}, // no such child
  };
  for (const auto& one : cases) {
    const auto made = forWrite<OdDbField>(family(*database, {one.code}));
    made->setEvaluatorId(L"AcVar");
    made->addObjectId(circle->objectId());
    EXPECT_EQ(made->evaluate(OdDbField::kDemand, database), one.result) << OdString(one.code).toUtf8();
    EXPECT_EQ(made->getValue(), OdString(one.value)) << OdString(one.code).toUtf8();
  }
  expectRoundTrip(*database);
}

TEST(FieldEvaluation, GoesFromTheInnermostOutAndCountsWhatItDid) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId id = family(*database, {L"a %<\\_FldIdx 0>% b %<\\_FldIdx 1>%",
                                             L"\\AcExpr (%<\\_FldIdx 0>%+1) \\f \"%pr0\"", L"\\AcDiesel x"});
  const OdDbFieldPtr inner = field(L"\\AcExpr 40+1 \\f \"%pr0\"");
  inner->setEvaluatorId(L"AcExpr");
  const auto owner = forWrite<OdDbField>(id);
  owner->getChild(0, OdDb::kForWrite)->appendChild(inner.get());
  int found = 0, evaluated = 0;
  expectUndoRestores(*database, [&] {
    EXPECT_EQ(forWrite<OdDbField>(id)->evaluate(OdDbField::kDemand, database, &found, &evaluated), eOk);
  });
  EXPECT_EQ(found, 4);
  EXPECT_EQ(evaluated, 3);
  EXPECT_EQ(owner->getValue(), L"a 42 b ");
  EXPECT_EQ(forWrite<OdDbField>(id)->evaluate(64, database, &found, &evaluated), eNotApplicable);
  EXPECT_EQ(evaluated, 0);
  EXPECT_EQ(forWrite<OdDbField>(id)->evaluate(OdDbField::kDemand, nullptr), eNoDatabase);
  EXPECT_THROW(owner->getChild(2), OdError_InvalidIndex);
  const OdDbDatabasePtr again = expectRoundTrip(*database);
  EXPECT_EQ(forRead<OdDbField>(again->objectIdOf(id.getHandle()))->getValue(), L"a 42 b ");
}

} // namespace

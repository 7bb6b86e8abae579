// Fields of objects, and the drawing's list of them.
#include "DbField.h"
#include "DbIdMapping.h"
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

TEST(Field, BelongsToItsObjectAndStandsInTheList) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  skewHandles(*database);
  const OdDbObjectId text = addText(*database, L"#");
  OdDbObjectId id, child;
  expectUndoRestores(*database, [&] {
    id = OdDbField::setField(*forWrite<OdDbText>(text), field(L"%<\\_FldIdx 0>%").get());
    child = forWrite<OdDbField>(id)->appendChild(field(L"\\AcVar Date").get());
    forWrite<OdDbField>(child)->addObjectId(text);
  });
  EXPECT_EQ(OdDbField::getField(*forRead<OdDbText>(text), L"text"), id);
  EXPECT_EQ(child.safeOpenObject()->ownerId(), id);
  const auto listed = [&] { return forRead<OdDbFieldList>(OdDbFieldList::listOf(*database))->fieldIds(); };
  EXPECT_EQ(listed(), (std::vector<OdDbObjectId>{id, child}));
  const OdDbDatabasePtr again = expectRoundTrip(*database);
  const auto read = forRead<OdDbField>(again->getOdDbObjectId(id.getHandle()));
  EXPECT_EQ(read->getFieldCode(), OdString(L"%<\\_FldIdx 0>%"));
  ASSERT_EQ(read->children().size(), 1u);
  EXPECT_EQ(read->children()[0].getHandle(), child.getHandle());
}

TEST(Field, TakenAwayGoesWithItsChildrenAndReplacedOnesAreErased) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId text = addText(*database, L"#");
  const OdDbObjectId old = OdDbField::setField(*forWrite<OdDbText>(text), field(L"old").get());
  const OdDbObjectId id = OdDbField::setField(*forWrite<OdDbText>(text), field(L"new").get());
  const OdDbObjectId child = forWrite<OdDbField>(id)->appendChild(field(L"child").get());
  EXPECT_TRUE(old.isErased());
  expectUndoRestores(*database, [&] { EXPECT_EQ(OdDbField::removeField(*forWrite<OdDbText>(text)), eOk); });
  EXPECT_TRUE(id.isErased());
  EXPECT_TRUE(child.isErased());
  EXPECT_TRUE(OdDbField::getField(*forRead<OdDbText>(text)).isNull());
  EXPECT_EQ(OdDbField::removeField(*forWrite<OdDbText>(text)), eKeyNotFound);
  const OdDbDatabasePtr again = expectRoundTrip(*database);
  EXPECT_TRUE(forRead<OdDbFieldList>(OdDbFieldList::listOf(*again))->fieldIds().empty());
}

TEST(Field, OfAClonedObjectIsANewOneThatIsListedToo) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  skewHandles(*database);
  const OdDbObjectId text = addText(*database, L"#");
  const OdDbObjectId id = OdDbField::setField(*forWrite<OdDbText>(text), field(L"%<\\_FldIdx 0>%").get());
  const OdDbObjectId child = forWrite<OdDbField>(id)->appendChild(field(L"\\AcVar Date").get());
  OdDbIdMapping mapping;
  OdDbObjectIdArray ids;
  ids.append(text);
  expectUndoRestores(*database,
                     [&] { ASSERT_EQ(database->deepCloneObjects(ids, database->getModelSpaceId(), mapping), eOk); });
  const OdDbObjectId copy = OdDbField::getField(*forRead<OdDbText>(mapping.valueOf(text)));
  ASSERT_EQ(copy, mapping.valueOf(id));
  EXPECT_EQ(forRead<OdDbField>(copy)->children(), (std::vector<OdDbObjectId>{mapping.valueOf(child)}));
  std::vector<OdDbObjectId> listed = forRead<OdDbFieldList>(OdDbFieldList::listOf(*database))->fieldIds();
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(listed, (std::vector<OdDbObjectId>{id, child, copy, mapping.valueOf(child)}));
  expectRoundTrip(*database);
}

TEST(Field, CodesOfAnyLengthComeBack) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId text = addText(*database, L"#");
  for (const int length : {0, 1, 250, 251, 500, 1234}) {
    OdString code;
    for (int i = 0; i < length; ++i)
      code += static_cast<wchar_t>(i % 7 == 0 ? 0x416 : L'a' + i % 26);
    const OdDbObjectId id = OdDbField::setField(*forWrite<OdDbText>(text), field(code).get());
    const OdDbDatabasePtr again = expectRoundTrip(*database);
    EXPECT_EQ(forRead<OdDbField>(again->getOdDbObjectId(id.getHandle()))->getFieldCode(), code) << length;
  }
}

} // namespace

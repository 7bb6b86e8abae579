// Annotative objects: how drawings store the property, and that taking it away leaves nothing behind.
#include "DbAnnotativeObjectPE.h"
#include "DbDictionary.h"
#include "DbDimension.h"
#include "DbMText.h"
#include "DbPaperOrientationPE.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;

namespace {

OdDbAnnotativeObjectPEPtr annotationOf(const OdDbObjectPtr& object) {
  return OdDbAnnotativeObjectPEPtr(queryAs<OdDbAnnotativeObjectPE>(object.get()), kTakeReference);
}
OdDbPaperOrientationPEPtr orientationOf(const OdDbObjectPtr& object) {
  return OdDbPaperOrientationPEPtr(queryAs<OdDbPaperOrientationPE>(object.get()), kTakeReference);
}
bool isAnnotative(OdDbObjectId id) {
  return annotationOf(id.safeOpenObject())->annotative(id.safeOpenObject());
}
OdResult setAnnotative(OdDbObjectId id, bool on) {
  const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForWrite);
  return annotationOf(object)->setAnnotative(object, on);
}

TEST(Annotative, IsSetAndTakenAwayOnEveryKindThatHasIt) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"door"), reference = addReference(*database, block);
  const OdDbObjectId kinds[] = {block,
                                reference,
                                addText(*database, L"x"),
                                addAttribute(reference, L"TAG", L"v"),
                                database->symbol(OdDb::kTextStyleTable, L"Standard"),
                                database->symbol(OdDb::kDimStyleTable, L"Standard")};
  const std::string before = drawing::canonicalDump(*database);
  for (OdDbObjectId id : kinds) {
    SCOPED_TRACE(id.safeOpenObject()->dxfName());
    EXPECT_FALSE(isAnnotative(id));
    EXPECT_THROW(annotationOf(id.safeOpenObject())->setAnnotative(id.safeOpenObject(), true), OdError);
    expectUndoRestores(*database, [&] { setAnnotative(id, true); });
    EXPECT_TRUE(isAnnotative(id));
    EXPECT_FALSE(database->symbol(OdDb::kRegAppTable, L"AcadAnnotative").isNull());
    const OdDbDatabasePtr again = expectRoundTrip(*database);
    EXPECT_TRUE(isAnnotative(again->objectIdOf(id.getHandle())));
    EXPECT_EQ(setAnnotative(id, false), eOk);
    EXPECT_TRUE(id.safeOpenObject()->xData().isNull());
    ASSERT_EQ(database->undo(), eOk);
    EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database)), "");
  }
  EXPECT_TRUE(annotationOf(database->getLayerZeroId().safeOpenObject()).isNull());
  EXPECT_EQ(annotationOf(block.safeOpenObject())->setAnnotative(nullptr, true), eNullObjectPtr);
}

TEST(Annotative, AReferenceFollowsItsDefinition) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"door"), reference = addReference(*database, block);
  setAnnotative(block, true);
  EXPECT_TRUE(isAnnotative(reference));
  EXPECT_EQ(setAnnotative(reference, false), eNotApplicable);
  setAnnotative(block, false);
  EXPECT_FALSE(isAnnotative(reference));
}

TEST(Annotative, IsReadFromTheFlagElseFromTheRepresentations) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId id = addText(*database, L"x");
  const OdDbObjectId extension = forWrite<OdDbText>(id)->createExtensionDictionary();
  const OdDbObjectId data =
      forWrite<OdDbDictionary>(extension)->setAt(L"AcDbContextDataManager", OdDbDictionary::createObject().get());
  const OdDbObjectId scales =
      forWrite<OdDbDictionary>(data)->setAt(L"ACDB_ANNOTATIONSCALES", OdDbDictionary::createObject().get());
  EXPECT_FALSE(isAnnotative(id)) << "an empty list says nothing";
  forWrite<OdDbDictionary>(scales)->setAt(L"*A1", OdDbXrecord::createObject().get());
  EXPECT_TRUE(isAnnotative(id));
  const OdResBufPtr off = OdResBuf::make(1001, OdString(L"AcadAnnotative"));
  off->setNext(OdResBuf::makeInteger(1070, 1))->setNext(OdResBuf::makeInteger(1070, 0));
  forWrite<OdDbText>(id)->setXData(off.get());
  EXPECT_FALSE(isAnnotative(id)) << "the flag decides";
  expectUndoRestores(*database, [&] { setAnnotative(id, false); });
  EXPECT_TRUE(data.isErased());
  EXPECT_TRUE(scales.isErased());
  EXPECT_EQ(forRead<OdDbDictionary>(extension)->numEntries(), 0u);
}

TEST(PaperOrientation, IsIndependentOfBeingAnnotative) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId id = addBlock(*database, L"door");
  const auto matches = [&] { return orientationOf(id.safeOpenObject())->paperOrientation(id.safeOpenObject()); };
  setAnnotative(id, true);
  expectUndoRestores(*database, [&] {
    const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForWrite);
    orientationOf(object)->setPaperOrientation(object, true);
  });
  EXPECT_TRUE(matches());
  setAnnotative(id, false);
  EXPECT_TRUE(matches());
  EXPECT_THROW(orientationOf(id.safeOpenObject())->setPaperOrientation(id.safeOpenObject(), false), OdError);
  const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForWrite);
  orientationOf(object)->setPaperOrientation(object, false);
  EXPECT_FALSE(matches());
  EXPECT_TRUE(object->xData().isNull());
}

} // namespace

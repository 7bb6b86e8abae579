// Undo takes a whole step back, whatever it touched, and redo brings it again; ids survive both.
#include "DbDictionary.h"
#include "DbSortentsTable.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;

namespace {

TEST(Undo, RestoresEveryKindOfChange) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"door"), text = addText(*database, L"one");
  const OdDbObjectId reference = addReference(*database, block);
  addAttribute(reference, L"TAG", L"value");
  addText(*database, L"inside", block);
  const struct {
    const char* what;
    std::function<void()> change;
  } cases[] = {
      {"property", [&] { forWrite<OdDbText>(text)->setTextString(L"two"); }},
      {"twice in one step",
       [&] {
         forWrite<OdDbText>(text)->setHeight(7);
         forWrite<OdDbText>(text)->setHeight(8);
       }},
      {"addition", [&] { addText(*database, L"three"); }},
      {"addition and erasure",
       [&] {
         forWrite<OdDbText>(addText(*database, L"four"))->erase();
         addLayer(*database, L"q");
       }},
      {"erasure with what is owned", [&] { forWrite<OdDbBlockReference>(reference)->erase(); }},
      {"attribute", [&] { addAttribute(reference, L"TAG2", L"value"); }},
      {"header",
       [&] {
         database->setINSBASE({4, 5, 6});
         database->setHeaderReal("LTSCALE", 40, 3);
       }},
      {"new header variable", [&] { database->setHeaderText("PROJECTNAME", 1, L"x"); }},
      {"extended data and reactors",
       [&] {
         const OdDbObjectPtr object = text.safeOpenObject(OdDb::kForWrite);
         const OdResBufPtr chain = OdResBuf::make(1001, OdString(L"APP"));
         chain->setNext(OdResBuf::makeInteger(1070, 5));
         object->setXData(chain.get());
         object->addPersistentReactor(block);
       }},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.what);
    expectUndoRestores(*database, row.change);
    ASSERT_EQ(database->undo(), eOk); // every case starts from the same drawing
  }
}

TEST(Undo, StepsGoBackAndForthAndANewOneEndsTheWayForward) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId text = addText(*database, L"0");
  const auto value = [&] { return forRead<OdDbText>(text)->textString(); };
  for (const wchar_t* next : {L"1", L"2", L"3"}) {
    database->startUndoRecord();
    forWrite<OdDbText>(text)->setTextString(next);
  }
  database->startUndoRecord(); // a step without changes is none
  for (const wchar_t* expected : {L"2", L"1", L"0"}) {
    ASSERT_EQ(database->undo(), eOk);
    EXPECT_EQ(value(), OdString(expected));
  }
  EXPECT_NE(database->undo(), eOk);
  ASSERT_EQ(database->redo(), eOk);
  EXPECT_EQ(value(), OdString(L"1"));
  database->startUndoRecord();
  forWrite<OdDbText>(text)->setTextString(L"other");
  EXPECT_FALSE(database->hasRedo());
  database->rollback();
  EXPECT_EQ(value(), OdString(L"1"));
  EXPECT_FALSE(database->hasRedo()) << "a rolled back step does not come again";

  ASSERT_EQ(database->undo(), eOk); // everything is taken back: a change without a mark is a step of its own
  forWrite<OdDbText>(text)->setTextString(L"unmarked");
  EXPECT_FALSE(database->hasRedo());
  ASSERT_EQ(database->undo(), eOk);
  EXPECT_EQ(value(), OdString(L"0"));
}

TEST(Undo, NothingIsRecordedBeforeTheFirstMarkOrWhileSwitchedOff) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId text = addText(*database, L"0");
  EXPECT_FALSE(database->hasUndo());
  database->startUndoRecord();
  forWrite<OdDbText>(text)->setTextString(L"1");
  database->disableUndoRecording(true);
  addText(*database, L"unrecorded");
  const std::size_t members = forRead<OdDbBlockTableRecord>(database->getModelSpaceId())->numMembers();
  database->disableUndoRecording(false);
  ASSERT_EQ(database->undo(), eOk);
  EXPECT_EQ(forRead<OdDbText>(text)->textString(), OdString(L"0"));
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(database->getModelSpaceId())->numMembers(), members);
}

TEST(Undo, RestoresSingleObjectsAndLeavesTheRestOfTheStep) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId kept = addText(*database, L"a"), restored = addText(*database, L"b");
  const OdDbObjectId reference = addReference(*database, addBlock(*database, L"door"));
  const OdDbObjectId attribute = addAttribute(reference, L"TAG", L"v");
  database->startUndoRecord();
  const std::string before = drawing::canonicalDump(*database);
  for (OdDbObjectId id : {kept, restored, reference})
    forWrite<OdDbEntity>(id)->transformBy(OdGeMatrix3d::translation({5, 0, 0}));
  OdDbObjectIdArray ids{restored, reference};
  database->restoreFromUndo(ids);
  EXPECT_EQ(forRead<OdDbText>(kept)->position().x, 5);
  EXPECT_EQ(forRead<OdDbText>(restored)->position().x, 0);
  EXPECT_EQ(forRead<OdDbBlockReference>(reference)->position().x, 0);
  EXPECT_EQ(forRead<OdDbAttribute>(attribute)->position().x, 0) << "parts go with their owner";
  ASSERT_EQ(database->undo(), eOk);
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database)), "");
}

TEST(DrawOrder, MovesToTopAndBottomKeepingTheOrderOfTheMoved) {
  const OdDbDatabasePtr database = skewedDrawing();
  const OdDbObjectId block = addBlock(*database, L"door");
  std::vector<OdDbObjectId> t;
  for (const wchar_t* name : {L"0", L"1", L"2", L"3"})
    t.push_back(addText(*database, name, block));
  const auto record = [&] { return forRead<OdDbBlockTableRecord>(block); };
  EXPECT_EQ(record()->drawOrder(), t);
  const OdSmartPtr<OdDbDictionary> extension =
      forWrite<OdDbDictionary>(forWrite<OdDbBlockTableRecord>(block)->createExtensionDictionary());
  const OdDbSortentsTablePtr made = OdDbSortentsTable::createObject();
  made->setBlockId(block);
  extension->setAt(L"ACAD_SORTENTS", made.get());
  OdDbObjectIdArray moved{t[2], t[0]};
  expectUndoRestores(*database, [&] { forWrite<OdDbSortentsTable>(made->objectId())->moveToTop(moved); });
  EXPECT_EQ(record()->drawOrder(), (std::vector<OdDbObjectId>{t[1], t[3], t[0], t[2]}));
  forWrite<OdDbSortentsTable>(made->objectId())->moveToBottom(moved);
  EXPECT_EQ(record()->drawOrder(), (std::vector<OdDbObjectId>{t[0], t[2], t[1], t[3]}));
  expectRoundTrip(*database);
  // Clones keep it although their handles differ.
  const OdDbDatabasePtr other = skewedDrawing();
  const OdDbIdMapping mapping = cloned({addReference(*database, block)}, other->getModelSpaceId());
  for (OdDbObjectId& id : t)
    id = mapping.valueOf(id);
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(mapping.valueOf(block))->drawOrder(),
            (std::vector<OdDbObjectId>{t[0], t[2], t[1], t[3]}));
}

} // namespace

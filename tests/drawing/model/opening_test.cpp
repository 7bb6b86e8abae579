// Ids, opening and modes: what opens, what does not and why, and that nothing changes behind a reader's back.
#include "DbCurves.h"
#include "DbDictionary.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;

namespace {

OdResult codeOf(const std::function<void()>& change) {
  try {
    change();
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

TEST(ObjectId, OfAClosedDrawingNeverOpensAgain) {
  OdDbObjectId id;
  OdDbObjectPtr held;
  {
    const OdDbDatabasePtr database = OdDbDatabase::create();
    id = addText(*database, L"one");
    held = id.safeOpenObject();
    EXPECT_TRUE(id.isValid());
  }
  const OdDbDatabasePtr other = OdDbDatabase::create(); // must not inherit the number
  addText(*other, L"two");
  OdDbObjectPtr object;
  EXPECT_FALSE(id.isValid());
  EXPECT_EQ(id.database(), nullptr);
  EXPECT_EQ(id.openObject(object), eDatabaseGone);
  EXPECT_TRUE(held->objectId().isNull()) << "whoever still holds the object owns a free one";
}

TEST(ObjectId, DoesNotOpenAndReturnsTheReason) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId locked = addLayer(*database, L"locked");
  forWrite<OdDbLayerTableRecord>(locked)->setIsLocked(true);
  const OdDbObjectId erased = addText(*database, L"erased"), onLocked = addText(*database, L"locked");
  forWrite<OdDbText>(onLocked)->setLayer(locked);
  forWrite<OdDbText>(erased)->erase();
  struct Case {
    const char* what;
    OdDbObjectId id;
    OdDb::OpenMode mode;
    bool openErased;
    OdResult expected;
  };
  for (const Case& row : {Case{"null", {}, OdDb::kForRead, false, eNullObjectId},
                          Case{"erased", erased, OdDb::kForRead, false, eWasErased},
                          Case{"erased on demand", erased, OdDb::kForRead, true, eOk},
                          Case{"locked for read", onLocked, OdDb::kForRead, false, eOk},
                          Case{"locked for write", onLocked, OdDb::kForWrite, false, eOnLockedLayer},
                          Case{"nothing behind it", OdDbObjectId(erased.serial(), 1u << 20), OdDb::kForRead, false,
                               eObjectDoesNotOpen}}) {
    OdDbObjectPtr object;
    EXPECT_EQ(row.id.openObject(object, row.mode, row.openErased), row.expected) << row.what;
    EXPECT_EQ(object.isNull(), row.expected != eOk) << row.what;
  }
  const OdDbObjectPtr reader = onLocked.safeOpenObject();
  EXPECT_EQ(codeOf([&] { reader->upgradeOpen(); }), eOnLockedLayer);
  EXPECT_TRUE(erased.isValid());
}

TEST(OpenMode, LastsUntilADowngradeOrTheLastRelease) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId id = addText(*database, L"one");
  {
    const OdDbObjectPtr reader = id.safeOpenObject();
    EXPECT_FALSE(reader->isWriteEnabled());
    { const OdDbObjectPtr writer = id.safeOpenObject(OdDb::kForWrite); }
    EXPECT_TRUE(reader->isWriteEnabled()) << "the mode is the object's, not the pointer's";
    reader->downgradeOpen();
    EXPECT_FALSE(reader->isWriteEnabled());
    reader->upgradeOpen();
    EXPECT_TRUE(reader->isWriteEnabled());
  }
  EXPECT_FALSE(id.safeOpenObject()->isWriteEnabled());
}

TEST(OpenMode, EveryChangeOfAnObjectOpenForReadThrowsAndChangesNothing) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId block = addBlock(*database, L"door"), text = addText(*database, L"one");
  const OdDbObjectId reference = addReference(*database, block);
  const OdDbObjectId layer = addLayer(*database, L"walls");
  const OdDbObjectId root = database->getNamedObjectsDictionaryId();
  const std::function<void()> changes[] = {
      [&] { forRead<OdDbText>(text)->setTextString(L"two"); },
      [&] { forRead<OdDbText>(text)->setLayer(L"walls"); },
      [&] { forRead<OdDbText>(text)->setColorIndex(1); },
      [&] { forRead<OdDbText>(text)->transformBy(OdGeMatrix3d()); },
      [&] { forRead<OdDbText>(text)->erase(); },
      [&] { forRead<OdDbText>(text)->createExtensionDictionary(); },
      [&] { forRead<OdDbText>(text)->addPersistentReactor(layer); },
      [&] { forRead<OdDbText>(text)->setXData(OdResBuf::make(1001, OdString(L"APP")).get()); },
      [&] { forRead<OdDbBlockReference>(reference)->setPosition(OdGePoint3d(1, 2, 3)); },
      [&] { forRead<OdDbBlockReference>(reference)->setBlockTableRecord(database->getModelSpaceId()); },
      [&] { forRead<OdDbBlockTableRecord>(block)->setOrigin(OdGePoint3d(1, 2, 3)); },
      [&] { forRead<OdDbBlockTableRecord>(block)->setName(L"gate"); },
      [&] { forRead<OdDbBlockTableRecord>(block)->appendEntity(OdDbLine::createObject().get()); },
      [&] { forRead<OdDbLayerTableRecord>(layer)->setIsLocked(true); },
      [&] { forRead<OdDbDictionary>(root)->setAt(L"x", text); },
      [&] { forRead<OdDbDictionary>(root)->remove(L"ACAD_GROUP"); },
      [&] { forRead<OdDbSymbolTable>(database->getLayerTableId())->add(OdDbLayerTableRecord::createObject().get()); },
  };
  const std::string before = drawing::canonicalDump(*database);
  for (std::size_t i = 0; i < std::size(changes); ++i)
    EXPECT_EQ(codeOf(changes[i]), eNotOpenForWrite) << "change " << i;
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*database)), "");
}

} // namespace

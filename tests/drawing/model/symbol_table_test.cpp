// Symbol tables: names without regard to case, freed by erasing, kept in step by undo.
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;

namespace {

OdDbObjectId layer(OdDbDatabase& database, const OdString& name) {
  return database.symbol(OdDb::kLayerTable, name);
}

TEST(SymbolTable, ErasingFreesTheNameAndKeepsTheOrder) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId b = addLayer(*database, L"b"), a = addLayer(*database, L"a");
  EXPECT_EQ(recordNames(*database, OdDb::kLayerTable), (std::vector<OdString>{L"0", L"b", L"a"}));
  forWrite<OdDbLayerTableRecord>(b)->erase();
  EXPECT_TRUE(layer(*database, L"b").isNull());
  EXPECT_EQ(forRead<OdDbSymbolTable>(database->getLayerTableId())->getAt(L"b", true), b);
  const OdDbObjectId second = addLayer(*database, L"B");
  EXPECT_FALSE(second.isNull());
  EXPECT_EQ(recordNames(*database, OdDb::kLayerTable), (std::vector<OdString>{L"0", L"a", L"B"}));
  EXPECT_EQ(layer(*database, L"a"), a);
  const auto erased = b.safeOpenObject(OdDb::kForWrite, true);
  EXPECT_EQ(erased->erase(false), eDuplicateRecordName);
  forWrite<OdDbLayerTableRecord>(second)->erase();
  EXPECT_EQ(erased->erase(false), eOk);
  EXPECT_EQ(layer(*database, L"B"), b);
}

TEST(SymbolTable, RenamingMovesTheNameAndRefusesATakenOne) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId a = addLayer(*database, L"\u00E4-\u0416"), b = addLayer(*database, L"b");
  EXPECT_TRUE(addLayer(*database, L"\u00C4-\u0436").isNull()) << "the name is taken";
  EXPECT_THROW(forWrite<OdDbLayerTableRecord>(b)->setName(L"\u00C4-\u0436"), OdError);
  forWrite<OdDbLayerTableRecord>(a)->setName(L"\u00C4-\u0416"); // its own name in other letters
  forWrite<OdDbLayerTableRecord>(b)->setName(L"c");
  EXPECT_EQ(layer(*database, L"\u00E4-\u0436"), a);
  EXPECT_TRUE(layer(*database, L"b").isNull());
  EXPECT_EQ(layer(*database, L"C"), b);
}

TEST(SymbolTable, AnonymousBlocksTakeTheNextNumber) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  addBlock(*database, L"*U2");
  const auto nameOf = [](OdDbObjectId id) { return forRead<OdDbBlockTableRecord>(id)->getName(); };
  EXPECT_EQ(nameOf(addBlock(*database, L"*U")), OdString(L"*U1"));
  EXPECT_EQ(nameOf(addBlock(*database, L"*U")), OdString(L"*U3"));
  EXPECT_EQ(nameOf(addBlock(*database, L"*D")), OdString(L"*D1"));
}

TEST(SymbolTable, FreeNamesAreTheLowestWhateverCameAndWent) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const auto next = [&] { return forRead<OdDbSymbolTable>(database->getLayerTableId())->freeName(L"a"); };
  EXPECT_EQ(next(), OdString(L"a"));
  std::vector<OdDbObjectId> made;
  for (const wchar_t* expected : {L"a", L"a-2", L"a-3", L"a-4"}) {
    EXPECT_EQ(next(), OdString(expected));
    made.push_back(addLayer(*database, next().c_str()));
  }
  forWrite<OdDbLayerTableRecord>(made[1])->erase();
  EXPECT_EQ(next(), OdString(L"a-2"));
  forWrite<OdDbLayerTableRecord>(made[3])->setName(L"A-2");
  EXPECT_EQ(next(), OdString(L"a-4"));
  forWrite<OdDbLayerTableRecord>(made[0])->setName(L"b");
  EXPECT_EQ(next(), OdString(L"a"));
}

TEST(SymbolTable, UndoKeepsLookupsConsistent) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId a = addLayer(*database, L"a"), b = addLayer(*database, L"b");
  OdDbObjectId fresh;
  expectUndoRestores(*database, [&] {
    forWrite<OdDbLayerTableRecord>(a)->setName(L"x");
    forWrite<OdDbLayerTableRecord>(b)->erase();
    fresh = addLayer(*database, L"b");
  });
  EXPECT_EQ(layer(*database, L"x"), a);
  EXPECT_EQ(layer(*database, L"b"), fresh);
  ASSERT_EQ(database->undo(), eOk);
  EXPECT_EQ(layer(*database, L"a"), a);
  EXPECT_EQ(layer(*database, L"b"), b);
  EXPECT_TRUE(layer(*database, L"x").isNull());
  EXPECT_TRUE(fresh.isErased());
}

} // namespace

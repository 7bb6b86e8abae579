// Dictionaries, lists of tagged values and extended data, in memory and through a file.
#include "DbDictionary.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

using namespace tests;

namespace {

std::vector<OdString> entryNames(const OdDbDictionary& dictionary) {
  std::vector<OdString> names;
  for (const OdDbDictionary::Entry& entry : dictionary.entries())
    names.push_back(entry.name);
  return names;
}

TEST(Dictionary, FindsWithoutRegardToCaseAndReplacesByName) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdSmartPtr<OdDbDictionary> root = forWrite<OdDbDictionary>(database->getNamedObjectsDictionaryId());
  const OdDbObjectId first = root->setAt(L"Mine", OdDbXrecord::createObject().get());
  const std::size_t entries = root->numEntries();
  EXPECT_EQ(root->getAt(L"mINE"), first);
  EXPECT_EQ(first.safeOpenObject()->ownerId(), root->objectId());
  const OdDbObjectId second = root->setAt(L"MINE", OdDbXrecord::createObject().get());
  EXPECT_TRUE(first.isErased()) << "the older object gives way";
  EXPECT_EQ(root->numEntries(), entries);
  EXPECT_EQ(root->getAt(L"Mine"), second);
  EXPECT_EQ(root->nameAt(second), OdString(L"Mine"));
  EXPECT_EQ(root->remove(L"mine"), second);
  EXPECT_TRUE(root->remove(L"mine").isNull());
  EXPECT_FALSE(second.isErased()) << "removing the name leaves the object";
}

TEST(Dictionary, KeepsItsOrderThroughAFileAndEndsWithItsOwner) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId text = addText(*database, L"owner");
  const OdDbObjectId id = forWrite<OdDbText>(text)->createExtensionDictionary();
  for (const wchar_t* name : {L"z", L"a", L"\u0416\u5b57", L"m"})
    forWrite<OdDbDictionary>(id)->setAt(name, OdDbXrecord::createObject().get());
  const OdDbDatabasePtr again = expectRoundTrip(*database);
  EXPECT_EQ(entryNames(*forRead<OdDbDictionary>(again->objectIdOf(id.getHandle()))),
            (std::vector<OdString>{L"z", L"a", L"\u0416\u5b57", L"m"}));
  const OdDbObjectId entry = forRead<OdDbDictionary>(id)->getAt(L"z");
  expectUndoRestores(*database, [&] { forWrite<OdDbText>(text)->erase(); });
  EXPECT_TRUE(id.isErased());
  EXPECT_TRUE(entry.isErased());
}

// Large ones answer by an index; whatever changes the entries must change what it finds.
TEST(Dictionary, LargeOnesFindWhatIsThereAfterEveryChange) {
  constexpr int kMany = 40;
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const auto root = forWrite<OdDbDictionary>(database->getNamedObjectsDictionaryId());
  const auto many = forWrite<OdDbDictionary>(root->setAt(L"Many", OdDbDictionary::createObject().get()));
  std::vector<OdDbObjectId> ids;
  const auto name = [](int n) {
    OdString text;
    return text.format(L"Entry%d", n);
  };
  for (int n = 0; n < kMany; ++n) {
    ids.push_back(many->setAt(name(n), OdDbXrecord::createObject().get()));
    EXPECT_EQ(many->getAt(L"eNTRY0"), ids[0]);
  }
  const auto expectAll = [&](const OdDbDictionary& dictionary) {
    for (int n = 0; n < kMany; ++n) {
      EXPECT_EQ(dictionary.getAt(name(n)), ids[static_cast<std::size_t>(n)]) << n;
      EXPECT_EQ(dictionary.nameAt(ids[static_cast<std::size_t>(n)]), name(n));
    }
  };
  expectAll(*many);
  database->startUndoRecord();
  EXPECT_EQ(many->remove(name(3)), ids[3]);
  EXPECT_TRUE(many->getAt(name(3)).isNull());
  EXPECT_TRUE(many->nameAt(ids[3]).isEmpty());
  EXPECT_EQ(many->getAt(name(4)), ids[4]);
  const OdDbObjectId other = many->setAt(name(5), OdDbXrecord::createObject().get());
  EXPECT_EQ(many->getAt(name(5)), other);
  EXPECT_EQ(many->nameAt(other), name(5));
  EXPECT_TRUE(many->nameAt(ids[5]).isEmpty());
  forWrite<OdDbObject>(ids[6])->erase();
  EXPECT_TRUE(many->getAt(name(6)).isNull());
  ASSERT_EQ(database->undo(), eOk);
  expectAll(*many);
  const OdDbDatabasePtr target = OdDbDatabase::create();
  const OdDbIdMapping mapping = cloned({many->objectId()}, target->getNamedObjectsDictionaryId());
  for (OdDbObjectId& id : ids)
    id = mapping.valueOf(id);
  expectAll(*forRead<OdDbDictionary>(mapping.valueOf(many->objectId())));
}

// Codes that mean something to the record itself (280) are data like any other behind its head.
TEST(Xrecord, GivesBackEveryKindOfValue) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId text = addText(*database, L"target");
  OdResBufPtr tail, head = OdResBuf::make(1, OdString(L"\u00DF \\U+00DF ^I %%d"));
  tail = head->setNext(OdResBuf::makeInteger(280, 7));
  tail = tail->setNext(OdResBuf::makeInteger(280, 8));
  tail = tail->setNext(OdResBuf::make(10, OdGePoint3d(1, -2, 1e-300)));
  tail = tail->setNext(OdResBuf::make(40, 0.1));
  tail = tail->setNext(OdResBuf::makeInteger(90, -2147483648LL));
  tail = tail->setNext(OdResBuf::makeInteger(160, INT64_MAX));
  tail = tail->setNext(OdResBuf::make(330, text));
  const OdResBufPtr bytes = tail->setNext(OdResBuf::make(310));
  bytes->setBinary(std::string("\0\xFF", 2));
  const OdSmartPtr<OdDbXrecord> record = OdDbXrecord::createObject();
  record->setValues(head.get());
  forWrite<OdDbDictionary>(database->getNamedObjectsDictionaryId())->setAt(L"MINE", record.get());
  const OdDbDatabasePtr again = expectRoundTrip(*database);
  const OdDbObjectId id = again->objectIdOf(record->getDbHandle());
  const OdResBufPtr chain = forRead<OdDbXrecord>(id)->values();
  const OdResBuf* at = chain.get();
  EXPECT_EQ(at->getString(), head->getString());
  EXPECT_EQ((at = at->next().get())->getInt(), 7);
  EXPECT_EQ((at = at->next().get())->getInt(), 8);
  EXPECT_EQ((at = at->next().get())->getPoint3d().z, 1e-300);
  EXPECT_EQ((at = at->next().get())->getDouble(), 0.1);
  EXPECT_EQ((at = at->next().get())->getInt(), -2147483648LL);
  EXPECT_EQ((at = at->next().get())->getInt(), INT64_MAX);
  EXPECT_EQ((at = at->next().get())->getObjectId(), again->objectIdOf(text.getHandle()));
  EXPECT_EQ((at = at->next().get())->getBinary(), std::string("\0\xFF", 2));
}

std::string applications(const OdDbObject& object) {
  std::string all;
  const OdResBufPtr chain = object.xData();
  for (const OdResBuf* at = chain.get(); at != nullptr; at = at->next().get())
    all += at->groupCode() == 1001 ? at->getString().toUtf8() + ":" : std::to_string(at->getInt()) + " ";
  return all;
}

TEST(ExtendedData, IsSetReplacedAndRemovedByApplication) {
  const OdDbDatabasePtr database = OdDbDatabase::create();
  const OdDbObjectId id = addText(*database, L"x");
  const auto set = [&](std::initializer_list<std::pair<const wchar_t*, int>> parts) {
    OdResBufPtr head, tail;
    for (const auto& [name, value] : parts) {
      const OdResBufPtr start = OdResBuf::make(1001, OdString(name));
      tail = tail.isNull() ? (head = start) : tail->setNext(start);
      if (value != 0)
        tail = tail->setNext(OdResBuf::makeInteger(1070, value));
    }
    forWrite<OdDbText>(id)->setXData(head.get());
  };
  struct Case {
    std::initializer_list<std::pair<const wchar_t*, int>> parts;
    const char* expected;
  };
  for (const Case& row : {Case{{{L"A", 1}, {L"B", 2}}, "A:1 B:2 "}, Case{{{L"a", 3}}, "B:2 a:3 "},
                          Case{{{L"C", 0}}, "B:2 a:3 "}, Case{{{L"B", 0}}, "a:3 "}, Case{{{L"A", 0}}, ""}}) {
    set(row.parts);
    EXPECT_EQ(applications(*id.safeOpenObject()), row.expected);
  }
  EXPECT_TRUE(id.safeOpenObject()->xData(L"A").isNull());
}

} // namespace

// All entities of real drawings go into a block of the same drawing and into another drawing; what they own goes with
// them and is nobody else's.
#include "DbBlockTable.h"
#include "DbEntity.h"
#include "DbIdMapping.h"
#include "drawing/dump.h"
#include "tests/corpus/drawings.h"
#include "tests/support/oracles.h"

#include <algorithm>
#include <map>

namespace {

class Owned final : public drawing::ReferenceVisitor {
public:
  void visit(OdDbObjectId& id, OdDb::ReferenceType type) override {
    if (type == OdDb::kHardOwnershipRef && !id.isNull())
      ids.push_back(id);
  }
  std::vector<OdDbObjectId> ids;
};

// Objects that more than one living object owns, with the names of their kinds.
std::vector<std::string> ownedTwice(const OdDbDatabase& database) {
  std::map<OdDbObjectId, std::vector<std::string>> owners;
  for (OdDbObjectId id : database.allIds()) {
    const OdDbObjectPtr object = id.safeOpenObject();
    if (object.isNull())
      continue;
    Owned owned;
    object->visitReferences(owned);
    std::sort(owned.ids.begin(), owned.ids.end());
    owned.ids.erase(std::unique(owned.ids.begin(), owned.ids.end()), owned.ids.end());
    for (OdDbObjectId part : owned.ids)
      owners[part].push_back(object->dxfName() + " " + id.getHandle().ascii());
  }
  std::vector<std::string> all;
  for (const auto& [id, names] : owners) {
    const OdDbObjectPtr object = id.safeOpenObject();
    if (names.size() > 1 && !object.isNull())
      all.push_back(object->dxfName() + " of " + names[0] + " and " + names[1]);
  }
  return all;
}

// The clones take the room that their sources take.
void expectAlike(const OdDbObjectIdArray& ids, const OdDbIdMapping& mapping) {
  for (const OdDbObjectId id : ids) {
    const OdDbObjectId clone = mapping.valueOf(id);
    EXPECT_EQ(id.objectClass(), clone.objectClass());
    EXPECT_TRUE(corpus::sameExtents<OdDbEntity>(id, clone)) << id.getHandle().ascii();
  }
}

TEST(Clone, WhatEntitiesOwnGoesWithThem) {
  corpus::forEachDrawing([](const std::string&, const drawing::ReadResult& read) {
    const auto before = ownedTwice(*read.database);
    const OdDbObjectIdArray ids = tests::entitiesOf(read.database->getModelSpaceId());
    OdDbDatabasePtr other = OdDbDatabase::create();
    tests::skewHandles(*other);
    OdDbIdMapping here, there;
    ASSERT_EQ(read.database->wblockCloneObjects(ids, other->getModelSpaceId(), there, OdDb::kDrcIgnore), eOk);
    ASSERT_EQ(read.database->deepCloneObjects(ids, tests::addBlock(*read.database, L"clone of all"), here), eOk);
    EXPECT_EQ(ownedTwice(*read.database), before);
    EXPECT_EQ(ownedTwice(*other), std::vector<std::string>());
    expectAlike(ids, here);
    expectAlike(ids, there);
    tests::expectRoundTrip(*other);
    tests::expectSound(*other);
  });
}

} // namespace

// Dynamic blocks of real drawings: which references are dynamic, and that they stay so, with all that their definition
// needs, when they are cloned in their drawing, into another one, and when the whole drawing is inserted.
#include "DbDictionary.h"
#include "DbDynBlockReference.h"
#include "DbIdMapping.h"
#include "drawing/file.h"
#include "tests/corpus/drawings.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

namespace {

using tests::forRead;

struct Known {
  const char* file;
  std::size_t references; // dynamic ones in model space
  const char* name;
};

constexpr Known kKnown[] = {
    {"dynamic-blocks/BLOCKBASEPOINTPARAMETER.dxf", 1, "BASE_POINT_PARAMETER"},
    {"dynamic-blocks/BLOCKFLIPPARAMETER.dxf", 2, "BLOCK_FLIP_PARAMETER"},
    {"dynamic-blocks/BLOCKLINEARPARAMETER.dxf", 2, "LINEAR_PARAM"},
    {"dynamic-blocks/BLOCKLOOKUPPARAMETER.dxf", 4, "My_Look_Block"},
    {"dynamic-blocks/BLOCKVISIBILITYPARAMETER.dxf", 4, "block_visibility_parameter"},
    {"dynamic-blocks/dynamic-block-circle.dxf", 2, "my-dynamic-block"},
    {"dynamic-blocks/dynblk1.dxf", 2, "XYZ"},
    {"sample-versions/sample_AC1015_ascii.dxf", 2, "my-dynamic-block"},
    {"sample-versions/sample_AC1021_ascii.dxf", 2, "my-dynamic-block"},
    {"sample-versions/sample_AC1032_ascii.dxf", 2, "my-dynamic-block"},
    {"sample-versions/sample_AC1032_binary.dxf", 2, "my-dynamic-block"},
};

OdDbObjectIdArray dynamicReferences(OdDbObjectId block) {
  OdDbObjectIdArray ids;
  for (const OdDbObjectId& id : tests::entitiesOf(block)) {
    if (OdDbDynBlockReference(id).isDynamicBlock())
      ids.append(id);
  }
  return ids;
}

// References that lead somewhere from the objects in the extension dictionary, at any depth.
std::size_t linksBelow(OdDbObjectId root) {
  struct Collect : drawing::ReferenceVisitor {
    void visit(OdDbObjectId& id, OdDb::ReferenceType) override {
      if (!id.isNull())
        ids.push_back(id);
    }
    std::vector<OdDbObjectId> ids;
  };
  std::size_t links = 0;
  std::vector<OdDbObjectId> owned;
  if (const auto object = forRead<OdDbObject>(root); !object->extensionDictionary().isNull())
    owned.push_back(object->extensionDictionary());
  for (std::size_t i = 0; i < owned.size(); ++i) {
    const auto object = forRead<OdDbObject>(owned[i]);
    Collect collect;
    object->visitReferences(collect);
    for (const OdDbObjectId& id : collect.ids)
      EXPECT_EQ(id.database(), root.database());
    links += collect.ids.size();
    object->ownedObjects(owned);
  }
  return links;
}

// The copies show what their originals show, and the definition behind them is whole.
void expectSameShapes(const OdDbObjectIdArray& originals, const OdDbObjectIdArray& copies) {
  ASSERT_EQ(originals.size(), copies.size());
  for (unsigned i = 0; i < originals.size(); ++i) {
    const OdDbDynBlockReference original(originals[i]), copy(copies[i]);
    const OdDbDynBlockTableRecord from(original.dynamicBlockTableRecord()), to(copy.dynamicBlockTableRecord());
    EXPECT_EQ(from.trueName(), to.trueName());
    EXPECT_TRUE(to.isDynamicBlock());
    EXPECT_EQ(original.anonymousBlockTableRecord().isNull(), copy.anonymousBlockTableRecord().isNull());
    EXPECT_EQ(linksBelow(originals[i]), linksBelow(copies[i]));
    EXPECT_EQ(linksBelow(from.blockId()), linksBelow(to.blockId()));
    const auto shown = forRead<OdDbBlockTableRecord>(forRead<OdDbBlockReference>(originals[i])->blockTableRecord());
    const auto shownCopy = forRead<OdDbBlockTableRecord>(forRead<OdDbBlockReference>(copies[i])->blockTableRecord());
    EXPECT_EQ(shown->numMembers(), shownCopy->numMembers());
  }
}

class DynamicBlocks : public testing::TestWithParam<Known> {
protected:
  void SetUp() override {
    const drawing::ReadResult read = drawing::readDrawing(corpus::folder() + GetParam().file);
    ASSERT_FALSE(read.database.isNull()) << read.message;
    database_ = read.database;
    references_ = dynamicReferences(database_->getModelSpaceId());
    target_ = OdDbDatabase::create();
    tests::skewHandles(*target_);
    for (int n = 0; n < 3; ++n)
      tests::addBlock(*target_, L"*U"); // their numbers are taken
  }
  OdDbDatabasePtr database_, target_;
  OdDbObjectIdArray references_;
};

TEST_P(DynamicBlocks, AreKnownByTheirTrueNames) {
  EXPECT_EQ(references_.size(), GetParam().references);
  for (const OdDbObjectId& id : references_) {
    const OdDbDynBlockReference reference(id);
    EXPECT_EQ(OdDbDynBlockTableRecord(reference.dynamicBlockTableRecord()).trueName().toUtf8(), GetParam().name);
    const OdDbObjectId shown = forRead<OdDbBlockReference>(id)->blockTableRecord();
    EXPECT_EQ(OdDbDynBlockTableRecord(shown).trueName().toUtf8(), GetParam().name);
  }
}

TEST_P(DynamicBlocks, StayDynamicInClones) {
  const OdDbObjectId block = tests::addBlock(*database_, L"made of them");
  OdDbIdMapping mapping;
  ASSERT_EQ(database_->deepCloneObjects(references_, block, mapping), eOk);
  expectSameShapes(references_, dynamicReferences(block));
  tests::expectRoundTrip(*database_);
}

TEST_P(DynamicBlocks, StayDynamicInOtherDrawings) {
  OdDbIdMapping mapping;
  ASSERT_EQ(database_->wblockCloneObjects(references_, target_->getModelSpaceId(), mapping, OdDb::kDrcIgnore), eOk);
  expectSameShapes(references_, dynamicReferences(target_->getModelSpaceId()));
  tests::expectSound(*target_);
  const OdDbDatabasePtr again = tests::expectRoundTrip(*target_);
  expectSameShapes(references_, dynamicReferences(again->getModelSpaceId()));
}

TEST_P(DynamicBlocks, StayDynamicWhenTheirDrawingIsInserted) {
  for (const wchar_t* name : {L"first", L"second"}) { // the second time the definition is there
    const OdDbObjectId block = target_->insert(name, database_.get());
    ASSERT_FALSE(block.isNull());
    expectSameShapes(references_, dynamicReferences(block));
  }
  tests::expectSound(*target_);
}

INSTANTIATE_TEST_SUITE_P(All, DynamicBlocks, testing::ValuesIn(kKnown), [](const auto& row) {
  std::string name = row.param.file;
  name = name.substr(name.find('/') + 1);
  for (char& ch : name)
    ch = std::isalnum(static_cast<unsigned char>(ch)) != 0 ? ch : '_';
  return name;
});

} // namespace

// Which blocks are dynamic, by each of the marks that files use, and that the marks go along with clones.
#include "DbDynBlockReference.h"
#include "tests/support/dynamic_blocks.h"
#include "tests/support/oracles.h"

namespace tests {
namespace {

class DynamicBlock : public testing::Test {
protected:
  DynamicBlock() {
    definition_ = addBlock(*database_, L"door");
    makeDynamic(definition_);
    shape_ = addShape(definition_);
    plain_ = addBlock(*database_, L"wall");
  }
  const OdDbDatabasePtr database_ = OdDbDatabase::create();
  OdDbObjectId definition_, shape_, plain_;
};

TEST_F(DynamicBlock, IsIdentifiedByTheReferencedBlock) {
  const OdDbObjectId gone = addBlock(*database_, L"gone");
  const OdDbObjectId orphan = addBlock(*database_, L"*U");
  markShape(orphan, gone);
  forWrite<OdDbObject>(gone)->erase();
  const OdDbObjectId strange = addBlock(*database_, L"*U");
  markShape(strange, database_->getLayerZeroId());
  const OdDbObjectId itself = addBlock(*database_, L"*U");
  markShape(itself, itself);
  const OdDbObjectId old = addBlock(*database_, L"*U");
  setData(old, L"AcDbDynamicBlockTrueName", 1000, {}, L"window");
  const struct {
    const char* what;
    OdDbObjectId shown, definition, shape;
    const wchar_t* name;
  } rows[] = {
      {"a shape", shape_, definition_, shape_, L"door"},
      {"the definition itself", definition_, definition_, {}, L"door"},
      {"an ordinary block", plain_, {}, {}, L""},
      {"a shape of an erased block", orphan, {}, {}, L""},
      {"a shape of something that is no block", strange, {}, {}, L""},
      {"a shape of itself", itself, {}, {}, L""},
      {"a definition under an anonymous name", old, old, {}, L"window"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    const OdDbObjectId id = addReference(*database_, row.shown);
    const OdDbDynBlockReference byId(id);
    EXPECT_EQ(byId.isDynamicBlock(), !row.definition.isNull());
    EXPECT_EQ(byId.dynamicBlockTableRecord(), row.definition);
    EXPECT_EQ(byId.anonymousBlockTableRecord(), row.shape);
    EXPECT_EQ(OdDbDynBlockReference(forRead<OdDbBlockReference>(id).get()).dynamicBlockTableRecord(), row.definition);
    EXPECT_EQ(OdDbDynBlockTableRecord(row.shown).trueName(), OdString(row.name));
  }
  EXPECT_FALSE(OdDbDynBlockReference(OdDbObjectId()).isDynamicBlock());
  EXPECT_FALSE(OdDbDynBlockReference(definition_).isDynamicBlock()); // no reference
  EXPECT_EQ(OdDbDynBlockTableRecord(definition_).getAnonymousBlockIds().size(), 1u);
  EXPECT_TRUE(OdDbDynBlockTableRecord(shape_).getAnonymousBlockIds().isEmpty());
}

TEST_F(DynamicBlock, DefinitionOfAShapeGoesToAnotherDrawingWithIt) {
  addReference(*database_, shape_);
  const OdDbDatabasePtr target = skewedDrawing();
  addBlock(*target, L"*U"); // takes the shape's number
  const OdDbObjectId made = target->insert(L"house", database_.get());
  ASSERT_FALSE(made.isNull());
  const OdDbObjectId id = forRead<OdDbBlockTableRecord>(made)->newIterator()->objectId();
  const OdDbDynBlockReference reference(id);
  EXPECT_EQ(reference.dynamicBlockTableRecord(), target->symbol(OdDb::kBlockTable, L"door"));
  EXPECT_TRUE(reference.isDynamicBlock());
  EXPECT_EQ(OdDbDynBlockTableRecord(reference.anonymousBlockTableRecord()).trueName(), OdString(L"door"));
  expectSound(*target);
  expectRoundTrip(*target);
}

} // namespace
} // namespace tests

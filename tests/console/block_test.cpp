// Making blocks: what happens to the objects, and that a step that fails leaves nothing behind.
#include "tests/console/console_run.h"

#include "console/blocks/block_objects.h"
#include "console/blocks/make_block.h"
#include "console/prompts/selection.h"

#include "DbAnnotationScale.h"
#include "DbAttribute.h"
#include "DbCurves.h"
#include "DbDictionary.h"
#include "DbViewport.h"
#include "tests/support/drawings.h"

namespace {

using console::Status;
using namespace tests;

constexpr char kTiltedUcs[] = "UCS 3point 0.1,0.7,0.3 1.3,2.9,0.4 -0.2,1.9,3.1\n";
constexpr char kAwkwardLine[] = "LINE 0.1,0.2,0.3 1.7,3.3,5.9\n\n";

struct Ends {
  OdGePoint3d start, end;
};

Ends endsOf(OdDbObjectId id) {
  const OdDbLinePtr line = id.safeOpenObject(OdDb::kForRead, true);
  return {line->startPoint(), line->endPoint()};
}

bool bitEqual(const OdGePoint3d& one, const OdGePoint3d& other) {
  return one.x == other.x && one.y == other.y && one.z == other.z;
}

OdDbBlockReferencePtr onlyReference(TestSession& console) {
  const OdDbObjectIdArray ids = console.objects();
  EXPECT_EQ(ids.length(), 1);
  return ids[0].safeOpenObject();
}

// Kept ones are the same to the last bit.
TEST(BlockObjects, StayOrAreDrawnWhereTheyWereUnderATiltedUcs) {
  TestSession console;
  console.run(std::string("LAYER Make here\n\n") + kTiltedUcs + kAwkwardLine);
  const OdDbObjectId line = console.objects()[0];
  const Ends before = endsOf(line);
  ASSERT_EQ(console.run("BLOCK kept 0.3,0.9,0.77 All\n\nKeep\n"), Status::kDone) << console.takeShown();
  EXPECT_TRUE(bitEqual(endsOf(line).start, before.start) && bitEqual(endsOf(line).end, before.end));
  ASSERT_EQ(console.run("BLOCK piece 0.3,0.9,0.77 All\n\nConvert\n"), Status::kDone) << console.takeShown();
  const OdDbBlockReferencePtr reference = onlyReference(console);
  EXPECT_EQ(reference->layer(), L"here");
  const OdDbBlockTableRecordPtr block = reference->blockTableRecord().safeOpenObject();
  const Ends stored = endsOf(block->newIterator()->objectId());
  EXPECT_TRUE((reference->blockTransform() * stored.start).isEqualTo(before.start));
  EXPECT_TRUE((reference->blockTransform() * stored.end).isEqualTo(before.end));
  EXPECT_TRUE(stored.start.isEqualTo(OdGePoint3d(0.1 - 0.3, 0.2 - 0.9, 0.3 - 0.77)));
}

TEST(BlockObjects, ReferenceGetsItsAttributesButNotConstantOnes) {
  TestSession console;
  console.run("ATTDEF NO Number\n12\n20,20 2.5\nATTDEF FIX Fixed\n1\n5,5 1\nUCS Z 90\n");
  forWrite<OdDbAttributeDefinition>(console.objects()[1])->setConstant(true);
  ASSERT_EQ(console.run("BLOCK part 1,1 All\n\nConvert\n"), Status::kDone) << console.takeShown();
  const OdDbBlockReferencePtr reference = onlyReference(console);
  const OdDbObjectIdArray attributes = reference->attributeIds();
  ASSERT_EQ(attributes.length(), 1);
  const OdDbAttributePtr attribute = attributes[0].safeOpenObject();
  EXPECT_EQ(attribute->tag(), L"NO");
  EXPECT_EQ(attribute->textString(), L"12");
  EXPECT_TRUE(attribute->position().isEqualTo(OdGePoint3d(20, 20, 0)));
  EXPECT_NEAR(attribute->rotation(), 0, 1e-12);
}

TEST(BlockObjects, RedefinedBlockHasItsOriginAtTheBasePoint) {
  TestSession console;
  console.run("LINE 0,0 1,0\n\nBLOCK part 0,0 All\n\nDelete\nLINE 7,7 8,7\n\n");
  const OdDbObjectId id = console.database().symbol(OdDb::kBlockTable, L"part");
  forWrite<OdDbBlockTableRecord>(id)->setOrigin(OdGePoint3d(3, 3, 3));
  ASSERT_EQ(console.run("BLOCK part 1 7,7 All\n\nConvert\n"), Status::kDone) << console.takeShown();
  const OdDbBlockTableRecordPtr block = id.safeOpenObject();
  EXPECT_TRUE(bitEqual(block->origin(), OdGePoint3d(0, 0, 0)));
  EXPECT_TRUE(endsOf(block->newIterator()->objectId()).start.isEqualTo(OdGePoint3d(0, 0, 0)));
}

// The contents of an annotative block are scaled by the annotation scale; its reference makes up for it.
TEST(BlockObjects, AnnotativeReferenceShowsThemInTheirSize) {
  TestSession console;
  console.run("LINE 1,1 3,1\n\n");
  OdDbDatabase& database = console.database();
  const auto named = forWrite<OdDbDictionary>(database.getNamedObjectsDictionaryId());
  const OdSmartPtr<OdDbScale> scale = OdDbScale::createObject();
  scale->setScaleName(L"1:4");
  scale->setUnits(1, 4);
  forWrite<OdDbDictionary>(named->setAt(L"ACAD_SCALELIST", OdDbDictionary::createObject()))->setAt(L"A0", scale);
  ASSERT_EQ(database.setCannoscale(L"1:4"), eOk);
  console::BlockRequest request;
  request.name = L"note";
  request.basePointUcs = OdGePoint3d(1, 1, 0);
  request.ids = console.objects();
  request.space = database.getModelSpaceId();
  request.annotative = true;
  const auto make = [&] { console::makeBlock(console.session(), request); };
  ASSERT_EQ(console.session().attempt("BLOCK", console::Command::Kind::kModifies, make), Status::kDone);
  const OdDbBlockReferencePtr reference = onlyReference(console);
  const OdDbBlockTableRecordPtr block = reference->blockTableRecord().safeOpenObject();
  const Ends stored = endsOf(block->newIterator()->objectId());
  EXPECT_TRUE(stored.end.isEqualTo(OdGePoint3d(0.5, 0, 0)));
  EXPECT_TRUE((reference->blockTransform() * stored.end).isEqualTo(OdGePoint3d(3, 1, 0)));
}

// Attribute definitions come last, in the order in which they were picked; cameras and locked objects stay out.
TEST(BlockObjects, AreFilteredAndOrdered) {
  TestSession console;
  console.run("LAYER Make grid\nSet 0\nLock grid\n\nATTDEF A A\na\n0,0 1\nLINE 0,0 1,0\n\nATTDEF B B\nb\n0,1 1\n"
              "CIRCLE 0,0 1\n");
  addTo<OdDbCamera>(console.database().getModelSpaceId());
  const OdDbObjectIdArray all = console.objects();
  OdDbObjectIdArray picked;
  for (const int at : {2, 4, 1, 0, 3})
    picked.append(all[at]);
  const console::BlockObjects objects = console::objectsForBlock(console.session(), L"b", picked);
  EXPECT_EQ(objects.ids, (OdDbObjectIdArray{all[1], all[3], all[2], all[0]}));
  EXPECT_EQ(objects.cameras, 1U);
  EXPECT_NE(console.takeShown().find("1 camera is skipped."), std::string::npos);
  EXPECT_THROW(console::objectsForBlock(console.session(), L"b", OdDbObjectIdArray{all[4]}), console::Failure);
}

// Two references to the next definition in each of many: the way back is found without walking all ways.
TEST(Selection, ExcludesTheViewportOfTheLayoutItself) {
  TestSession console;
  const OdDbObjectId layout = console.database().getPaperSpaceId(), space = console.database().getModelSpaceId();
  for (const OdDbObjectId block : {layout, space}) {
    addText(console.database(), L"x", block);
    for (int number = 0; number < 2; ++number)
      forWrite<OdDbBlockTableRecord>(block)->appendEntity(OdDbViewport::createObject());
  }
  EXPECT_EQ(console::pickableObjects(layout).length(), 2);
  EXPECT_EQ(console::pickableObjects(space).length(), 3);
}

TEST(BlockChain, OfSharedDefinitionsIsFoundInOneTraversal) {
  TestSession console;
  OdDbDatabase& database = console.database();
  const OdDbObjectId wanted = addBlock(database, L"door");
  OdDbObjectId below = wanted;
  for (int level = 0; level < 60; ++level) {
    const OdDbObjectId block = addBlock(database, (L"b" + std::to_wstring(level)).c_str());
    addReference(database, addBlock(database, (L"leaf" + std::to_wstring(level)).c_str()), block);
    addReference(database, below, block);
    addReference(database, below, block);
    below = block;
  }
  const OdDbObjectIdArray top{addReference(database, below)};
  const std::string chain = console::chainBackTo(wanted, top).toUtf8();
  EXPECT_EQ(chain.find("\"door\" contains \"b59\" (reference "), 0U) << chain;
  EXPECT_NE(chain.find(" contains \"b0\" (reference "), std::string::npos);
  EXPECT_EQ(chain.find("leaf"), std::string::npos);
  const OdDbObjectId other = addBlock(database, L"window");
  EXPECT_TRUE(console::chainBackTo(other, top).isEmpty());
}

TEST(BlockNames, AreRefusedWithTheReason) {
  TestSession console;
  console.run("CIRCLE 0,0 1\nBLOCK edited 0,0 All\n\nKeep\nBEDIT edited\n");
  forWrite<OdDbBlockTableRecord>(addBlock(console.database(), L"site"))->setXref(L"site.dxf");
  addBlock(console.database(), L"site|tree");
  const struct {
    std::string name;
    const char* part;
  } kCases[] = {{"a*b", "is the name of an anonymous block"}, // stars are looked at first
                {"a<b", "\"<\" is not allowed"},
                {"a`b", "\"`\" is not allowed"},
                {"*Paper_Space0", "is the name of model space or paper space"},
                {"*MODEL_SPACE", "is the name of model space or paper space"},
                {"SITE", "is an external reference or belongs to one"},
                {"site|tree", "is an external reference or belongs to one"},
                {"EDITED", "is open in the block editor"},
                {"a\xFF", "cannot be stored in a file"},
                {std::string(1024, 'n'), "不能长于 255 个字符"}};
  const std::string before = console.dump();
  for (const auto& row : kCases) {
    console.takeShown();
    EXPECT_EQ(console.run("BLOCK " + row.name + " 0,0 All\n\nKeep\n"), Status::kRefused) << row.name;
    EXPECT_NE(console.takeShown().find(row.part), std::string::npos) << row.name;
    EXPECT_EQ(console.dump(), before) << row.name;
  }
}

// Everything that is typed for a BLOCK that replaces another one, cut off behind each answer.
TEST(BlockCommand, InputThatEndsInAPromptChangesNothing) {
  TestSession console;
  console.run("LINE 0,0 1,0\n\nBLOCK part 0,0 All\n\nConvert\nLINE 3,3 4,4\n\n");
  const std::string before = console.dump();
  const std::vector<std::string> answers = {"BLOCK\n", "part\n", "是\n", "0,0\n", "Last\n", "Layer\n0\n"};
  std::string script;
  for (const std::string& answer : answers) {
    script += answer;
    EXPECT_EQ(console.run(script), Status::kCancelled) << script;
    EXPECT_EQ(console.dump(), before) << script;
  }
  EXPECT_EQ(console.run(script + "\n"), Status::kRefused); // all holds a reference to the block itself
  EXPECT_EQ(console.dump(), before);
}

TEST(BlockCommand, IsAllOrNothingWhereverTheHostFails) {
  bool failed = true;
  for (int n = 1; failed; ++n) {
    ASSERT_LT(n, 1000);
    TestSession console;
    console.run("LAYER Make locked\n\nLINE 0,0 1,0\n\nLAYER Make free\n\nLINE 2,2 1,0\n\nLAYER Lock locked\n\n");
    const std::string before = console.dump();
    int left = n;
    failed = false;
    console.session().host().calls().setAdmit([&](const char*) {
      const bool fails = --left == 0;
      failed = failed || fails;
      return !fails;
    });
    const Status status = console.run("BLOCK part 0,0 All\n\nConvert\n");
    console.session().host().calls().setAdmit({});
    const bool made = !console.database().symbol(OdDb::kBlockTable, L"part").isNull();
    EXPECT_EQ(made, status == Status::kDone) << n;
    EXPECT_TRUE(made || console.dump() == before) << n;
  }
}

} // namespace

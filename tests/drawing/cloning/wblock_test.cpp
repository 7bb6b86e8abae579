// Parts of a drawing as drawings of their own: what they need comes along as it is in the source, nothing else does,
// and the source stays as it was.
#include "DbAnnotationScale.h"
#include "DbAnnotativeObjectPE.h"
#include "DbDictionary.h"
#include "DbDimAssoc.h"
#include "DbDynBlockReference.h"
#include "DbImageObjects.h"
#include "DbRasterImage.h"
#include "DbShape.h"
#include "drawing/wblock.h"
#include "tests/support/drawings.h"
#include "tests/support/dynamic_blocks.h"
#include "tests/support/oracles.h"
#include "tests/support/scratch_folder.h"

#include <fstream>

namespace {

using namespace tests;

struct Wblock : testing::Test {
  OdDbDatabasePtr source = OdDbDatabase::create();
  OdDbObjectId door, leaf, text;

  Wblock() {
    skewHandles(*source);
    addLayer(*source, L"unused");
    addBlock(*source, L"nobody's");
    leaf = addBlock(*source, L"leaf");
    text = addText(*source, L"hinge", leaf);
    forWrite<OdDbText>(text)->setLayer(addLayer(*source, L"used"));
    door = addBlock(*source, L"door");
    addReference(*source, leaf, door);
    const auto record = forWrite<OdDbBlockTableRecord>(door);
    record->setOrigin({3, 4, 0});
    record->setBlockInsertUnits(OdDb::kUnitsInches);
    record->setComments(L"opens to the left");
    record->setBlockScaling(OdDbBlockTableRecord::kUniform);
    record->setExplodable(false);
    source->setHeaderReal("LTSCALE", 40, 12.5);
    source->setHeaderReal("DIMSCALE", 40, 50);
    source->setHeaderInt("SPLFRAME", 70, 1);
    source->setHeaderText("DIMBLK", 1, L"nobody's");
    source->setINSBASE({9, 9, 9});
    forWrite<OdDbLayerTableRecord>(source->getLayerZeroId())->setColor({3, OdCmColor::kNoTrueColor});
  }
};

TEST_F(Wblock, ABlockIsWrittenWithDependenciesAndProperties) {
  const std::string before = drawing::canonicalDump(*source);
  const OdDbDatabasePtr made = drawing::wblockBlock(door);
  ASSERT_FALSE(made.isNull());
  EXPECT_EQ(firstDifference(before, drawing::canonicalDump(*source)), "");
  EXPECT_EQ(recordNames(*made, OdDb::kBlockTable), (std::vector<OdString>{L"*Model_Space", L"*Paper_Space", L"leaf"}));
  EXPECT_EQ(recordNames(*made, OdDb::kLayerTable), (std::vector<OdString>{L"0", L"used"}));
  EXPECT_EQ(forRead<OdDbLayerTableRecord>(made->getLayerZeroId())->color().index, 3) << "as in the source";
  EXPECT_EQ(made->getINSBASE(), OdGePoint3d(3, 4, 0));
  EXPECT_EQ(made->getINSUNITS(), OdDb::kUnitsInches);
  EXPECT_EQ(made->headerReal("LTSCALE"), 12.5);
  EXPECT_EQ(made->headerReal("DIMSCALE"), 50);
  EXPECT_EQ(made->headerInt("SPLFRAME"), 1);
  EXPECT_EQ(made->headerText("DIMBLK"), L"") << "names a block that stays behind";
  expectSound(*made);
  expectRoundTrip(*made);

  const OdDbDatabasePtr target = OdDbDatabase::create();
  const auto again = forRead<OdDbBlockTableRecord>(target->insert(L"gate", made.get()));
  EXPECT_EQ(again->origin(), OdGePoint3d(3, 4, 0));
  EXPECT_EQ(again->comments(), L"opens to the left");
  EXPECT_EQ(again->blockScaling(), OdDbBlockTableRecord::kUniform);
  EXPECT_FALSE(forRead<OdDbBlockTableRecord>(made->getModelSpaceId())->explodable());
}

TEST_F(Wblock, ADynamicBlockStaysOneAndARefilledOneFollowsItsFile) {
  makeDynamic(door);
  const OdDbDatabasePtr made = drawing::wblockBlock(door), plain = drawing::wblockBlock(leaf);
  const OdDbDatabasePtr target = OdDbDatabase::create();
  const auto isDynamic = [&](const OdString& name) {
    return OdDbDynBlockTableRecord(target->symbol(OdDb::kBlockTable, name)).isDynamicBlock();
  };
  for (const auto& [name, file, dynamic] : {std::tuple{L"a", made, true},
                                            {L"b", plain, false},
                                            {L"a", plain, false},
                                            {L"b", made, true},
                                            {L"b", made, true}}) {
    ASSERT_FALSE(target->insert(name, file.get()).isNull());
    EXPECT_EQ(isDynamic(name), dynamic) << OdString(name).toUtf8();
    expectSound(*target);
  }
  expectUndoRestores(*target, [&] { target->insert(L"b", plain.get()); });
}

TEST_F(Wblock, ObjectsKeepTheirOrderAndAssociationsAreWholeOrAbsent) {
  const OdDbObjectId line = addText(*source, L"line"), dimension = addText(*source, L"dimension"),
                     reference = addReference(*source, door);
  const OdDbDimAssocPtr association = OdDbDimAssoc::createObject();
  association->addPoint(1, line);
  OdDbObjectId posted;
  ASSERT_EQ(association->post(dimension, posted), eOk);
  for (const auto& [ids, isTied] :
       {std::pair{OdDbObjectIdArray{reference, dimension, line}, true}, {{dimension}, false}}) {
    const OdDbDatabasePtr made = drawing::wblockObjects(ids);
    const auto space = forRead<OdDbBlockTableRecord>(made->getModelSpaceId());
    OdDbObjectId tied;
    OdDbObjectIdArray::size_type at = 0;
    for (auto it = space->newIterator(); !it->done(); it->step(), ++at) {
      EXPECT_EQ(it->entity()->isA(), ids[at].safeOpenObject()->isA());
      const auto one = OdDbText::cast(it->entity());
      if (!one.isNull() && one->textString() == L"dimension")
        tied = it->objectId();
    }
    EXPECT_EQ(at, ids.size());
    EXPECT_EQ(!OdDbDimAssoc::associationOf(tied).isNull(), isTied);
    EXPECT_EQ(made->getINSBASE(), OdGePoint3d());
    EXPECT_EQ(made->getINSUNITS(), source->getINSUNITS());
    EXPECT_EQ(recordNames(*made, OdDb::kBlockTable).size(), isTied ? 4u : 2u);
    expectSound(*made);
    expectRoundTrip(*made);
  }
  EXPECT_TRUE(drawing::wblockObjects({}).isNull());
}

// An arrow that differs from the style's is named in extended data; whether frames show, beside the header.
TEST_F(Wblock, DisplayVariablesAreWrittenWithTheObjects) {
  const OdResBufPtr data = OdResBuf::make(1001, L"ACAD");
  OdResBufPtr tail = data->setNext(OdResBuf::make(1000, L"DSTYLE"));
  tail = tail->setNext(OdResBuf::make(1070, std::int16_t(341)));
  tail->setNext(OdResBuf::make(1005, addBlock(*source, L"_Open30")));
  forWrite<OdDbText>(text)->setXData(data.get());
  forWrite<OdDbDictionary>(source->getNamedObjectsDictionaryId())->setAt(L"ACAD_IMAGE_VARS", new OdDbRasterVariables);
  const OdDbObjectId picture = addTo<OdDbRasterImage>(source->getModelSpaceId())->objectId();
  for (const auto& [ids, hasArrow, hasFrames] :
       {std::tuple{OdDbObjectIdArray{text}, true, false}, {{picture}, false, true}, {{text, picture}, true, true}}) {
    const OdDbDatabasePtr made = drawing::wblockObjects(ids);
    const auto dictionary = forRead<OdDbDictionary>(made->getNamedObjectsDictionaryId());
    EXPECT_EQ(!made->symbol(OdDb::kBlockTable, L"_Open30").isNull(), hasArrow);
    EXPECT_EQ(dictionary->has(L"ACAD_IMAGE_VARS"), hasFrames);
    expectSound(*made);
    expectRoundTrip(*made);
  }
}

// They have no names, and a shape does not contain its own.
TEST_F(Wblock, ShapeFilesAreClonedAndDistinguished) {
  const auto addShapeFile = [](OdDbDatabase& to, const wchar_t* file) {
    const auto style = OdDbTextStyleTableRecord::createObject();
    style->setFlag(1, true);
    style->setFileName(file);
    forWrite<OdDbSymbolTable>(to.getTextStyleTableId())->add(style.get());
  };
  const auto files = [](const OdDbDatabase& of) {
    std::vector<OdString> all;
    const auto table = forRead<OdDbSymbolTable>(of.getTextStyleTableId());
    for (auto it = table->newIterator(); !it->done(); it->step()) {
      const OdDbTextStyleTableRecordPtr style = it->getRecord();
      if (style->isShapeFile())
        all.push_back(style->fileName());
    }
    return all;
  };
  addShapeFile(*source, L"a.shx");
  addShapeFile(*source, L"b.shx");
  addTo<OdDbShape>(leaf)->setName(L"zigzag");
  const OdDbDatabasePtr made = drawing::wblockBlock(door);
  EXPECT_EQ(files(*made), (std::vector<OdString>{L"a.shx", L"b.shx"}));
  EXPECT_EQ(files(*drawing::wblockObjects({text})), std::vector<OdString>());
  expectSound(*made);
  expectRoundTrip(*made);

  const OdDbDatabasePtr target = OdDbDatabase::create();
  addShapeFile(*target, L"c.shx");
  addShapeFile(*target, L"B.SHX");
  target->insert(L"door", made.get());
  EXPECT_EQ(files(*target), (std::vector<OdString>{L"c.shx", L"B.SHX", L"a.shx"}));
  expectSound(*target);
  expectUndoRestores(*target, [&] { target->insert(L"again", made.get()); });
}

TEST_F(Wblock, PathsAreRebasedToTheNewFolder) {
  const ScratchFolder folder;
  for (const char* file : {"site.dxf", "tree.png"})
    std::ofstream(folder.at(file)) << "there";
  source->fileInfo().path = folder.at("plan.dxf");
  const OdDbObjectId site = addBlock(*source, L"site"), gone = addBlock(*source, L"gone");
  forWrite<OdDbBlockTableRecord>(site)->setXref(L".\\site.dxf");
  forWrite<OdDbBlockTableRecord>(gone)->setXref(L".\\gone.dxf");
  addReference(*source, site, door);
  addReference(*source, gone, door);
  addReference(*source, door);
  const OdDbObjectId pictures =
      forWrite<OdDbDictionary>(source->getNamedObjectsDictionaryId())->setAt(L"ACAD_IMAGE_DICT", new OdDbDictionary);
  const OdDbObjectId shown = forWrite<OdDbText>(text)->createExtensionDictionary();
  for (const wchar_t* file : {L"tree.png", L"", L"gone.png"}) {
    const OdSmartPtr<OdDbRasterImageDef> definition = OdDbRasterImageDef::createObject();
    definition->setSourceFileName(file);
    const OdString name = OdString(L"of ") + file;
    const OdDbObjectId id = forWrite<OdDbDictionary>(pictures)->setAt(name, definition.get());
    const OdSmartPtr<OdDbXrecord> needs = OdDbXrecord::createObject();
    needs->setValues(OdResBuf::make(340, id).get());
    forWrite<OdDbDictionary>(shown)->setAt(name, needs.get());
  }
  for (const OdDbDatabasePtr& made : {drawing::wblockBlock(door, folder.at("library/door.dxf")),
                                      drawing::wblockDrawing(*source, folder.at("library/all.dxf"))}) {
    const auto path = [&](const wchar_t* name) {
      return forRead<OdDbBlockTableRecord>(made->symbol(OdDb::kBlockTable, name))->pathName();
    };
    EXPECT_EQ(path(L"site"), L"..\\site.dxf");
    EXPECT_EQ(path(L"gone"), L".\\gone.dxf");
    const auto root = forRead<OdDbDictionary>(made->getNamedObjectsDictionaryId());
    const auto picture = [&](const wchar_t* name) {
      const auto all = forRead<OdDbDictionary>(root->getAt(L"ACAD_IMAGE_DICT"));
      return forRead<OdDbRasterImageDef>(all->getAt(name))->sourceFileName();
    };
    EXPECT_EQ(picture(L"of tree.png"), L"..\\tree.png");
    EXPECT_EQ(picture(L"of gone.png"), L"gone.png");
    EXPECT_EQ(picture(L"of "), L"");
  }
}

} // namespace

// XREF, BEDIT, BCLOSE and DOCS: what they make, what they refuse, and that a refusal or UNDO leaves nothing of them.
#include "tests/console/console_run.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

namespace {

using namespace tests;
using console::Status;
using drawing::XrefStatus;

class XrefCommand : public testing::Test {
protected:
  XrefCommand() {
    const OdDbDatabasePtr site = OdDbDatabase::create();
    addLayer(*site, L"WALLS");
    forWrite<OdDbEntity>(addText(*site, L"site"))->setLayer(L"WALLS");
    site->setINSUNITS(OdDb::kUnitsMeters);
    site->setINSBASE({1, 0, 0});
    save(*site, "site.dxf");
    const OdDbDatabasePtr back = OdDbDatabase::create();
    addXref(*back, L"main");
    save(*back, "back.dxf");
    scratch_.write("broken.dxf", "no drawing");
    run("SAVEAS " + scratch_.path("main.dxf") + "\n\n");
  }
  static void addXref(OdDbDatabase& database, const OdString& name) {
    const OdDbObjectId block = addBlock(database, name);
    forWrite<OdDbBlockTableRecord>(block)->setXref(name + L".dxf");
    addReference(database, block);
  }
  void save(const OdDbDatabase& database, const std::string& name) { scratch_.save(database, name); }
  Status run(const std::string& script) { return session_.run(script); }
  Status attach(const std::string& file, const std::string& rest = "\n0,0\n\n\n") {
    return run("XREF Attach " + scratch_.path(file) + "\n" + rest);
  }
  OdDbBlockTableRecordPtr block(const OdString& name) {
    return session_.database().symbol(OdDb::kBlockTable, name).safeOpenObject();
  }

  Scratch scratch_;
  TestSession session_;
};

TEST_F(XrefCommand, AttachesByTheFileWithTheUnitsOfBoth) {
  const std::string before = session_.dump();
  ASSERT_EQ(attach("site.dxf", "\n10,20\n2\n90\n"), Status::kDone);
  const OdDbBlockTableRecordPtr site = block(L"site");
  ASSERT_FALSE(site.isNull());
  EXPECT_EQ(site->origin(), OdGePoint3d(1, 0, 0));
  const OdDbBlockReferencePtr reference = site->getBlockReferenceIds()[0].safeOpenObject();
  EXPECT_EQ(reference->scaleFactors().sx, 2000); // metres in a drawing of millimetres
  EXPECT_EQ(attach("site.dxf"), Status::kDone);  // the same block again
  EXPECT_EQ(site->getBlockReferenceIds().size(), 2u);
  EXPECT_EQ(run("UNDO\nUNDO\n"), Status::kDone);
  EXPECT_EQ(session_.dump(), before);
  EXPECT_EQ(run("XREF Overlay " + scratch_.path("site.dxf") + "\nplan\n0,0\n\n\n"), Status::kDone);
  EXPECT_TRUE(block(L"plan")->isFromOverlayReference());
  EXPECT_EQ(run("NEW\nYes\n"), Status::kDone); // no file, no folder to start from
  EXPECT_EQ(attach("site.dxf"), Status::kDone);
  EXPECT_EQ(block(L"site")->pathName(), session_.session().host().paths().toDrawing(scratch_.path("site.dxf")));
}

TEST_F(XrefCommand, RefusesWhatCannotBeAttached) {
  addBlock(session_.database(), L"taken");
  const struct {
    std::string file, rest;
    Status status;
  } rows[] = {
      {"back.dxf", "\n0,0\n\n\n", Status::kDone}, // the circle is in the other drawing, where it is cut
      {"broken.dxf", "\n0,0\n\n\n", Status::kUnreadable}, {"site.dxf", "taken\n0,0\n\n\n", Status::kRefused},
      {"site.dxf", "a|b\n0,0\n\n\n", Status::kRefused},   {"site.dxf", "*Model_Space\n0,0\n\n\n", Status::kRefused},
      {"site.dxf", "\n0,0\n0\n", Status::kRefused},       {"site.dxf", "", Status::kCancelled},
  };
  for (const auto& row : rows) {
    const std::string before = session_.dump();
    EXPECT_EQ(attach(row.file, row.rest), row.status) << row.file << " " << row.rest;
    if (row.status != Status::kDone) {
      EXPECT_EQ(firstDifference(before, session_.dump()), "") << row.file << " " << row.rest;
    }
  }
}

TEST_F(XrefCommand, DetachesWithAllThatOnlyTheReferenceNeeded) {
  attach("site.dxf");
  OdDbDatabase& database = session_.database();
  const OdDbObjectId room = addBlock(database, L"room");
  addReference(database, block(L"site")->objectId(), room);
  addLayer(database, L"site|WALLS");
  const OdDbObjectId used = addLayer(database, L"site|USED"), text = addText(database, L"x");
  forWrite<OdDbEntity>(text)->setLayer(used);
  const OdDbObjectIdArray references = block(L"site")->getBlockReferenceIds();
  EXPECT_EQ(run("XREF Detach none\n"), Status::kRefused);
  EXPECT_EQ(run("LAYER Lock 0\n\nXREF Detach site\n"), Status::kRefused); // one that shows it is locked
  EXPECT_FALSE(references[0].isErased());
  EXPECT_EQ(run("LAYER Unlock 0\n\nXREF Detach SITE\n"), Status::kDone);
  EXPECT_TRUE(block(L"site").isNull());
  EXPECT_EQ(references.size(), 2u);
  for (const OdDbObjectId& id : references)
    EXPECT_TRUE(id.isErased());
  EXPECT_TRUE(database.symbol(OdDb::kLayerTable, L"site|WALLS").isNull());
  EXPECT_EQ(database.symbol(OdDb::kLayerTable, L"site$0$USED"), used);
  expectSound(database);
}

TEST_F(XrefCommand, ReloadsWhatHasChangedAndBindsWhatIsThere) {
  attach("site.dxf");
  const OdDbObjectId site = block(L"site")->objectId();
  const OdDbDatabasePtr changed = OdDbDatabase::create();
  addText(*changed, L"one");
  addText(*changed, L"two");
  changed->setINSBASE({7, 7, 0});
  save(*changed, "site.dxf");
  forWrite<OdDbBlockTableRecord>(site)->setIsUnloaded(true);
  EXPECT_EQ(run("XREF Reload *\n"), Status::kDone);
  EXPECT_EQ(block(L"site")->origin(), OdGePoint3d(7, 7, 0));
  EXPECT_EQ(block(L"site")->xrefStatus(), XrefStatus::kLoaded);
  std::filesystem::remove(scratch_.path("site.dxf"));
  EXPECT_EQ(run("XREF Reload site\n"), Status::kRefused);
  EXPECT_NE(session_.takeShown().find("\"site\": site.dxf, not found"), std::string::npos);
  std::string before = session_.dump();
  EXPECT_EQ(run("XREF Bind site\n"), Status::kRefused);
  EXPECT_EQ(session_.dump(), before);
  save(*changed, "site.dxf");
  EXPECT_EQ(run("XREF Reload site\n\nXREF Bind site\n"), Status::kDone);
  EXPECT_FALSE(block(L"site")->isFromExternalReference());
  EXPECT_EQ(block(L"site")->numMembers(), 2u);
  expectSound(session_.database());
  EXPECT_EQ(run("UNDO\n"), Status::kDone);
  EXPECT_EQ(block(L"site")->xrefStatus(), XrefStatus::kLoaded);
}

TEST_F(XrefCommand, AnEditedBlockIsWhatCommandsWorkOn) {
  OdDbDatabase& database = session_.database();
  const OdDbObjectId door = addBlock(database, L"door");
  addReference(database, door);
  EXPECT_EQ(run("BEDIT door\nLINE 0,0 1,0\n\n"), Status::kDone);
  EXPECT_EQ(forRead<OdDbBlockTableRecord>(door)->numMembers(), 1u);
  EXPECT_EQ(session_.objects().size(), 1u);
  const std::string before = session_.dump();
  EXPECT_EQ(run("XREF Attach " + scratch_.path("site.dxf") + "\ndoor\n0,0\n\n\n"), Status::kRefused);
  EXPECT_EQ(run("BEDIT door\n"), Status::kRefused); // one at a time
  EXPECT_EQ(session_.dump(), before);
  EXPECT_EQ(run("ERASE All\n\nBCLOSE\nLINE 0,0 1,0\n\n"), Status::kDone);
  EXPECT_EQ(session_.objects().size(), 2u);
  session_.takeShown();
  EXPECT_EQ(run("BEDIT door\nBCLOSE\nBCLOSE\n"), Status::kRefused);
  EXPECT_NE(session_.takeShown().find("The block \"door\" is closed."), std::string::npos);
  EXPECT_EQ(run("BLOCK gate\n5,5\nAll\n\nKeep\nBEDIT gate\nUNDO\n"), Status::kDone); // what is gone is closed
  EXPECT_NE(session_.takeShown().find("The block \"gate\" is closed."), std::string::npos);
  EXPECT_EQ(run("LINE 0,0 1,0\n\n"), Status::kDone);
  EXPECT_EQ(session_.objects().size(), 3u);
}

TEST_F(XrefCommand, ContentsOfLayoutsAndXrefsAreNotEdited) {
  OdDbDatabase& database = session_.database();
  attach("site.dxf");
  addBlock(database, L"*U");
  addBlock(database, L"site|door");
  for (const char* name : {"none", "", "*Model_Space", "*Paper_Space", "*U1", "site", "site|door"}) {
    EXPECT_EQ(run(std::string("BEDIT ") + name + "\n"), Status::kRefused) << name;
    EXPECT_EQ(session_.session().drawing().document->blockEditorName(), L"") << name;
  }
}

TEST_F(XrefCommand, IsClonedWithAnInsertedDrawing) {
  const OdDbDatabasePtr part = OdDbDatabase::create();
  addXref(*part, L"site");
  save(*part, "part.dxf");
  EXPECT_EQ(run("INSERT part=" + scratch_.path("part.dxf") + "\n\n\n\n\n"), Status::kDone);
  EXPECT_EQ(block(L"site")->xrefStatus(), XrefStatus::kLoaded) << session_.takeShown();
}

TEST_F(XrefCommand, SeveralDrawingsAreOpenEachWithItsOwnSteps) {
  const auto current = [this] { return session_.session().drawing().document->fileName().right(8); };
  EXPECT_EQ(run("LINE 0,0 1,0\n\nDOCS Open " + scratch_.path("site.dxf") + "\n"), Status::kDone);
  EXPECT_EQ(current(), L"site.dxf");
  EXPECT_EQ(session_.objects().size(), 1u);
  EXPECT_EQ(run("UNDO\n"), Status::kRefused); // nothing was done here
  EXPECT_EQ(run("ERASE All\n\nDOCS Open " + scratch_.path("./main.dxf") + "\n"), Status::kDone); // open already
  EXPECT_EQ(current(), L"main.dxf");
  EXPECT_EQ(session_.session().backgroundDrawings().size(), 1u);
  for (const char* wrong : {"DOCS Switch 3\n", "DOCS Switch 0\n", "DOCS Switch x\n", "QUIT\nNo\n"})
    EXPECT_NE(run(wrong), Status::kDone) << wrong;
  EXPECT_EQ(run("DOCS Open " + scratch_.path("broken.dxf") + "\n"), Status::kUnreadable);
  EXPECT_EQ(current(), L"main.dxf");
  EXPECT_EQ(run("UNDO\nDOCS Switch 2\nUNDO\n"), Status::kDone);
  EXPECT_EQ(session_.objects().size(), 1u);
  session_.takeShown();
  EXPECT_EQ(run("DOCS\n\nDOCS Close\nYes\nDOCS Close\n"), Status::kRefused);
  EXPECT_EQ(current(), L"main.dxf");
  EXPECT_TRUE(session_.session().backgroundDrawings().empty());
  EXPECT_EQ(session_.session().host().documents().all().size(), 1u);
}

} // namespace

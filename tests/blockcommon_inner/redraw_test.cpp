// Highlighting through the document manager, and the current UCS.
#include "blockcommon/host/services.h"
#include "morvane/testing.h"

#include "DbBlockTable.h"
#include "DbCurves.h"

#include <gtest/gtest.h>

namespace {

class Redraw : public testing::Test {
protected:
  Redraw() {
    const OdDbBlockTableRecordPtr space = database_->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    line_ = space->appendOdDbEntity(OdDbLine::createObject());
    mvsi::mvsidbGetAdsName(name_, line_);
  }
  bool isHighlighted() { return OdDbEntityPtr(line_.safeOpenObject())->isHighlighted(); }

  morvane::ScriptedHost host_;
  OdDbDatabasePtr database_ = OdDbDatabase::create();
  mvsi::MvsiApDocument* document_ = host_.host().documents().open(database_);
  OdDbObjectId line_;
  long name_[2] = {0, 0};
};

TEST_F(Redraw, HighlightsAndRefreshesTheCurrentDocument) {
  EXPECT_EQ(hostAccess::mvsiedRedraw(name_, 3), RTNORM);
  EXPECT_TRUE(isHighlighted());
  EXPECT_EQ(document_->refreshCount(), 1u);
  EXPECT_EQ(hostAccess::mvsiedRedraw(name_, 4), RTNORM);
  EXPECT_FALSE(isHighlighted());
  host_.host().documents().close(document_);
  EXPECT_EQ(hostAccess::mvsiedRedraw(name_, 3), RTNORM); // nothing to refresh
  EXPECT_TRUE(isHighlighted());
}

TEST_F(Redraw, RefusesWhatCannotBeHighlighted) {
  const long none[2] = {0, 0};
  EXPECT_EQ(hostAccess::mvsiedRedraw(none, 3), RTERROR);
  long layer[2];
  mvsi::mvsidbGetAdsName(layer, database_->getLayerZeroId());
  EXPECT_THROW(hostAccess::mvsiedRedraw(layer, 3), OdError_NotThatKindOfClass);
  line_.safeOpenObject(OdDb::kForWrite)->erase();
  EXPECT_EQ(hostAccess::mvsiedRedraw(name_, 3), RTERROR);
  EXPECT_EQ(document_->refreshCount(), 0u);
  mv_arbitDict_register(kDocMgr, new OdRxObject);
  EXPECT_THROW(hostAccess::mvsiedRedraw(name_, 3), OdError_NotThatKindOfClass);
  mv_arbitDict_unregister(kDocMgr);
  EXPECT_EQ(hostAccess::mvsiedRedraw(layer, 3), RTERROR);
}

TEST_F(Redraw, CurrentUcsNeedsNoServiceButADatabase) {
  for (const wchar_t* name : {kEditGetServer, kSelectorServer, kEditSystemServer, kDbServer, kDocMgr})
    mv_arbitDict_unregister(name);
  const OdGeMatrix3d moved = OdGeMatrix3d::translation(OdGeVector3d(1, 2, 3));
  mvsi::mvsidbSetUcsMatrix(moved, database_);
  OdGeMatrix3d matrix;
  EXPECT_EQ(hostAccess::currentUcsMatrix(matrix), RTNORM);
  EXPECT_EQ(matrix, moved);
  mvsi::mvsidbSetWorkingDatabase(nullptr);
  matrix.setToIdentity();
  EXPECT_EQ(hostAccess::currentUcsMatrix(matrix), RTERROR);
  EXPECT_EQ(matrix, OdGeMatrix3d::kIdentity);
}

} // namespace

// Highlighting through the document manager, and the current UCS.
#include "blockcommon/host/services.h"
#include "tests/support/open_document.h"

namespace {

class Redraw : public tests::OpenDocument {
protected:
  Redraw() { mvsi::mvsidbGetAdsName(name_, text_); }
  bool isHighlighted() { return tests::forRead<OdDbEntity>(text_)->isHighlighted(); }

  const OdDbObjectId text_ = tests::addText(*database_, L"x");
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
  long layer[2] = {0, 0};
  EXPECT_EQ(hostAccess::mvsiedRedraw(layer, 3), RTERROR); // no name yet
  mvsi::mvsidbGetAdsName(layer, database_->getLayerZeroId());
  EXPECT_THROW(hostAccess::mvsiedRedraw(layer, 3), OdError_NotThatKindOfClass);
  tests::forWrite<OdDbEntity>(text_)->erase();
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

// The thumbnail that is drawn of a document: its bytes, whose view is drawn, what is kept, and every way to have none.
#include "blockcommon/document_queries.h"
#include "tests/support/open_document.h"

#include "DbFaces.h"
#include "drawing/file.h"

namespace {

using namespace commonFun;
using namespace tests;

class Thumbnail : public testing::Test {
protected:
  // Red all over, and twice as wide as a thumbnail is against its height.
  static OdDbDatabasePtr redDrawing() {
    OdDbDatabasePtr database = OdDbDatabase::create();
    const auto solid = addTo<OdDbSolid>(database->getModelSpaceId());
    solid->setColorIndex(1);
    const OdGePoint3d corners[] = {{0, 0, 0}, {300, 0, 0}, {0, 100, 0}, {300, 100, 0}};
    for (int i = 0; i < 4; ++i)
      solid->setPointAt(i, corners[i]);
    return database;
  }
  static std::string pixel(const std::string& bitmap, std::size_t x, std::size_t y) {
    return bitmap.size() < 40 ? "" : bitmap.substr(40 + 4 * (y * 480 + x), 4);
  }

  morvane::FaultyHost host_;
  morvane::Documents& documents_ = host_.host().documents();
};

TEST_F(Thumbnail, IsABitmapOfTheDocument) {
  OdDbDatabasePtr database = redDrawing();
  documents_.open(database);
  documents_.open(OdDbDatabase::create()); // another one is current
  ASSERT_TRUE(createDib(database));
  const std::string bitmap = database->thumbnailBitmap();
  ASSERT_EQ(bitmap.size(), 40u + 4 * 480 * 320);
  EXPECT_EQ(bitmap.substr(0, 40),
            std::string("\x28\0\0\0\xE0\1\0\0\xC0\xFE\xFF\xFF\1\0\x20\0", 16) + std::string(24, '\0'));
  const std::string red("\0\0\xFF\xFF", 4), white("\xFF\xFF\xFF\xFF", 4);
  EXPECT_EQ(pixel(bitmap, 240, 160), red);
  EXPECT_EQ(pixel(bitmap, 470, 160), white); // the margin
  EXPECT_EQ(pixel(bitmap, 240, 20), white);  // a wide drawing leaves room above
  EXPECT_TRUE(database->retainOriginalThumbnailBitmap());
  const drawing::ReadResult saved = drawing::readDrawingFromMemory(drawing::writeDrawingToMemory(*database));
  EXPECT_EQ(saved.database->thumbnailBitmap(), bitmap);
}

TEST_F(Thumbnail, OfADrawingThatIsNotOpenDrawsTheCurrentOne) {
  documents_.open(redDrawing());
  OdDbDatabasePtr loose = OdDbDatabase::create();
  EXPECT_TRUE(createDib(loose));
  EXPECT_EQ(pixel(loose->thumbnailBitmap(), 240, 160), std::string("\0\0\xFF\xFF", 4));
}

TEST_F(Thumbnail, IsNotMadeWithoutAPicture) {
  OdDbDatabasePtr database = redDrawing(), none;
  EXPECT_FALSE(createDib(none));
  EXPECT_FALSE(createDib(database)); // no document at all
  documents_.open(database);
  host_.failOperation("drawOffScreen");
  EXPECT_FALSE(createDib(database));
  EXPECT_EQ(database->thumbnailBitmap(), "");
  EXPECT_FALSE(database->retainOriginalThumbnailBitmap());
  EXPECT_TRUE(createDib(database));
  host_.host().services().remove(kDocMgr);
  EXPECT_FALSE(createDib(database));
}

} // namespace

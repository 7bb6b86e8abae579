// Pictures of documents: as large as the rectangle whatever its corners, of the space that is current, or none at all.
#include "morvane/host_api.h"
#include "morvane/testing.h"
#include "tests/support/drawings.h"

#include "DbFaces.h"

namespace {

void fill(OdDbObjectId block, std::int16_t color) {
  const auto solid = tests::addTo<OdDbSolid>(block);
  solid->setColorIndex(color);
  const OdGePoint3d corners[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}};
  for (int i = 0; i < 4; ++i)
    solid->setPointAt(i, corners[i]);
}

TEST(OffScreen, DrawsTheCurrentSpaceIntoTheRectangle) {
  morvane::ScriptedHost host;
  const OdDbDatabasePtr database = OdDbDatabase::create();
  fill(database->getModelSpaceId(), 1);
  fill(database->getPaperSpaceId(), 5);
  mvsi::MvsiApDocument* document = host.host().documents().open(database);
  const OdRxObjectPtr service = mv_arbitDict_getservice(kDocMgr);
  auto* manager = dynamic_cast<MvDocManager*>(service.get());
  const struct {
    mvsi::MvsiDeviceRect rectangle;
    int width, height; // 0: no picture
  } cases[] = {
      {{0, 320, 480, 0}, 480, 320}, {{0, 0, 7, 5}, 7, 5},     {{10, -5, -10, 5}, 20, 10},   {{5, 0, 5, 9}, 0, 0},
      {{0, 9, 9, 9}, 0, 0},         {{0, 0, 30001, 1}, 0, 0}, {{0, 0, 30000, 30000}, 0, 0},
  };
  for (const auto& [rectangle, width, height] : cases) {
    mvsi::MvsiImage drawn;
    EXPECT_EQ(manager->drawOffScreen(document, rectangle, drawn), width > 0 ? RTNORM : RTERROR);
    EXPECT_EQ(std::make_pair(drawn.width, drawn.height), std::make_pair(width, height));
    EXPECT_EQ(drawn.pixels.size(), static_cast<std::size_t>(4 * width * height));
  }
  mvsi::MvsiImage image;
  const auto middle = [&] {
    manager->drawOffScreen(document, {0, 0, 9, 9}, image);
    const auto* pixel = image.pixels.data() + 4 * (4 * 9 + 4);
    return std::vector<int>(pixel, pixel + 4);
  };
  EXPECT_EQ(middle(), (std::vector{255, 0, 0, 255}));
  database->setHeaderInt("TILEMODE", 70, 0);
  EXPECT_EQ(middle(), (std::vector{0, 0, 255, 255}));
  EXPECT_EQ(manager->drawOffScreen(nullptr, {0, 0, 9, 9}, image), RTERROR);
  const mvsi::MvsiApDocumentPtr held(document);
  host.host().documents().close(document);
  EXPECT_EQ(manager->drawOffScreen(document, {0, 0, 9, 9}, image), RTERROR);
}

} // namespace

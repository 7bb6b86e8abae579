// Every drawing has a picture, within the limits, and nothing that shows is missing from it.
#include "tests/corpus/drawings.h"

#include "DbBlockTable.h"
#include "DbCurves.h"
#include "DbPolyline.h"
#include "DbSymbolRecords.h"
#include "drawing/picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

bool isVisible(const OdDbEntity& entity) {
  const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::cast(entity.layerId().safeOpenObject().get());
  return !entity.isInvisible() && (layer.isNull() || (!layer->isOff() && !layer->isFrozen()));
}

// What the visible lines and round curves of a space take, and whether there is anything else in it.
struct Plain {
  OdGeExtents3d extents;
  bool hasOthers = false;
};

Plain plainOf(OdDbObjectId space) {
  Plain plain;
  const OdDbBlockTableRecordPtr record = space.safeOpenObject();
  for (auto at = record->newIterator(); !at->done(); at->step()) {
    const OdDbEntityPtr entity = at->entity();
    if (entity.isNull() || !isVisible(*entity))
      continue;
    const OdDbPolylinePtr polyline = OdDbPolyline::cast(entity.get());
    const bool isThin = !polyline.isNull() && polyline->getConstantWidth() == 0;
    const bool isPlain = entity->isKindOf(OdDbLine::desc()) || entity->isKindOf(OdDbRoundCurve::desc()) || isThin;
    if (isPlain)
      entity->getGeomExtents(plain.extents);
    else
      plain.hasOthers = true;
  }
  return plain;
}

double sizeOf(const OdGeExtents3d& box) {
  return std::max(box.maxPoint().x - box.minPoint().x, box.maxPoint().y - box.minPoint().y);
}

void checkPicture(OdDbObjectId space) {
  const drawing::Picture picture(space);
  const drawing::PictureReport& report = picture.report();
  EXPECT_FALSE(report.reachedLimit);
  const Plain plain = plainOf(space);
  if (!plain.extents.isValidExtents())
    return;
  ASSERT_FALSE(report.isEmpty);
  // Curves are drawn as short lines, which lie a little inside.
  const double nearly = 1e-3 * sizeOf(plain.extents) + 1e-9;
  const OdGePoint3d &min = report.extents.minPoint(), &max = report.extents.maxPoint();
  EXPECT_LE(min.x, plain.extents.minPoint().x + nearly);
  EXPECT_LE(min.y, plain.extents.minPoint().y + nearly);
  EXPECT_GE(max.x, plain.extents.maxPoint().x - nearly);
  EXPECT_GE(max.y, plain.extents.maxPoint().y - nearly);
  if (!plain.hasOthers) {
    EXPECT_LE(sizeOf(report.extents), sizeOf(plain.extents) + nearly);
  }
  const drawing::Bitmap bitmap = picture.bitmap();
  EXPECT_TRUE(std::any_of(bitmap.rgba.begin(), bitmap.rgba.end(), [](std::uint8_t part) { return part < 128; }));
}

TEST(CorpusPictures, MatchTheStoredRenderings) {
  std::size_t pictured = 0;
  corpus::forEachDrawing([&](const std::string&, const drawing::ReadResult& read) {
    checkPicture(read.database->getModelSpaceId());
    EXPECT_FALSE(drawing::Picture(read.database->getPaperSpaceId()).report().reachedLimit);
    ++pictured;
  });
  EXPECT_GE(pictured, 360u);
}

} // namespace

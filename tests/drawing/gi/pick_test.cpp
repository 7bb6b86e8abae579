// What windows, crossing windows and fences take: by what shows, not by extents.
#include "DbBlockReference.h"
#include "DbCurves.h"
#include "DbFaces.h"
#include "DbPolyline.h"
#include "drawing/pick.h"
#include "tests/support/drawings.h"

#include <functional>

namespace {

using drawing::ViewPicker;

class Pick : public testing::Test {
protected:
  OdDbDatabasePtr database_ = OdDbDatabase::create();

  template <class T>
  OdSmartPtr<T> add(OdDbObjectId block = OdDbObjectId()) {
    return tests::addTo<T>(block.isNull() ? database_->getModelSpaceId() : block);
  }
  OdDbObjectId line(OdGePoint3d from, OdGePoint3d to, OdDbObjectId block = OdDbObjectId()) {
    const auto line = add<OdDbLine>(block);
    line->setStartPoint(from);
    line->setEndPoint(to);
    return line->objectId();
  }
  ViewPicker picker() { return ViewPicker(database_->getModelSpaceId()); }
};

// A slanted line and a circle around the window: their extents meet it, they themselves do not.
TEST_F(Pick, GoesByTheCurvesThemselves) {
  const OdDbObjectId slanted = line({0, 0, 0}, {10, 10, 0});
  const auto circle = add<OdDbCircle>();
  circle->setCenter({5, 5, 0});
  circle->setRadius(20);
  const struct {
    OdGePoint2d corner, opposite;
    bool lineInside, lineTouched, circleTouched;
  } kCases[] = {{{6, 1}, {9, 4}, false, false, false},   {{4, 5}, {6, 7}, false, true, false},
                {{-1, -1}, {11, 11}, true, true, false}, {{11, 11}, {-1, -1}, true, true, false},
                {{0, 0}, {10, 10}, true, true, false},   {{10, 10}, {12, 12}, false, true, false},
                {{24, 4}, {26, 6}, false, false, true},  {{-30, -30}, {40, 40}, true, true, true}};
  for (const auto& row : kCases) {
    const OdDbObjectIdArray inside = picker().inside(row.corner, row.opposite);
    const OdDbObjectIdArray touched = picker().touching(row.corner, row.opposite);
    const std::string where = std::to_string(row.corner.x) + " " + std::to_string(row.opposite.x);
    EXPECT_EQ(inside.contains(slanted), row.lineInside) << where;
    EXPECT_EQ(touched.contains(slanted), row.lineTouched) << where;
    EXPECT_EQ(touched.contains(circle->objectId()), row.circleTouched) << where;
  }
}

TEST_F(Pick, AFenceTakesWhatItCrosses) {
  const OdDbObjectId low = line({0, 0, 0}, {10, 0, 0}), high = line({0, 5, 0}, {10, 5, 0});
  const auto fill = add<OdDbSolid>();
  for (int at = 0; at < 4; ++at)
    fill->setPointAt(at, OdGePoint3d(20 + 5 * (at % 2), 5 * (at / 2), 0));
  const OdDbObjectId solid = fill->objectId();
  const struct {
    std::vector<OdGePoint2d> path;
    OdDbObjectIdArray picked;
  } kCases[] = {{{{1, -1}, {1, 1}}, {low}},    {{{1, -1}, {1, 6}}, {low, high}},
                {{{10, 0}, {12, 0}}, {low}},   {{{1, 1}, {2, 1}, {2, 4}}, {}},
                {{{22, 2}, {23, 3}}, {solid}}, // inside of it
                {{{-1, 0}, {-5, 0}}, {}},      {{}, {}}};
  for (const auto& row : kCases)
    EXPECT_EQ(picker().along(row.path), row.picked);
}

// References are taken by what they show; what does not show is not taken.
TEST_F(Pick, ChecksOnlyVisibleEntities) {
  const OdDbObjectId block = tests::addBlock(*database_, L"part"), hidden = tests::addLayer(*database_, L"hidden");
  line({0, 0, 0}, {1, 1, 0}, block);
  const OdDbObjectId reference = tests::addReference(*database_, block);
  tests::forWrite<OdDbBlockReference>(reference)->setPosition({100, 0, 0});
  const OdDbObjectId off = line({100, 0, 0}, {101, 0, 0}), invisible = line({100, 0, 0}, {101, 0, 0});
  tests::forWrite<OdDbEntity>(off)->setLayer(hidden);
  tests::forWrite<OdDbLayerTableRecord>(hidden)->setIsOff(true);
  tests::forWrite<OdDbEntity>(invisible)->setInvisible(true);
  EXPECT_EQ(picker().inside({99, -1}, {102, 2}), OdDbObjectIdArray{reference});
  EXPECT_EQ(picker().touching({100.5, 0.4}, {100.6, 0.7}), OdDbObjectIdArray{reference});
  EXPECT_TRUE(picker().touching({-1, -1}, {2, 2}).isEmpty());
  const auto ray = add<OdDbRay>();
  ray->setBasePoint({0, 50, 0});
  ray->setUnitDir({1, 0, 0});
  EXPECT_TRUE(picker().inside({-1e6, -1e6}, {1e6, 1e6}).contains(reference));
  EXPECT_FALSE(picker().inside({-1e6, -1e6}, {1e6, 1e6}).contains(ray->objectId()));
  EXPECT_EQ(picker().touching({9000, 49}, {9001, 51}), OdDbObjectIdArray{ray->objectId()});
  EXPECT_TRUE(picker().touching({-9000, 49}, {-8000, 51}).isEmpty());
  EXPECT_EQ(picker().along({{5, 49}, {5, 51}}), OdDbObjectIdArray{ray->objectId()});
}

TEST_F(Pick, IsMadeInTheView) {
  const OdDbObjectId upright = line({0, 0, 0}, {0, 0, 10});
  const OdGeMatrix3d front = OdGeMatrix3d::rotation(-1.5707963267948966, OdGeVector3d::kXAxis);
  const ViewPicker side(database_->getModelSpaceId(), front);
  EXPECT_EQ(side.touching({-1, 4}, {1, 6}), OdDbObjectIdArray{upright});
  EXPECT_TRUE(picker().touching({-1, 4}, {1, 6}).isEmpty());
  EXPECT_EQ(picker().touching({-1, -1}, {1, 1}), OdDbObjectIdArray{upright});
}

} // namespace

// Every entity of real drawings goes where a matrix takes it, or says no and stays; the way back leads to where it was.
#include "DbBlockTable.h"
#include "DbEntity.h"
#include "tests/corpus/drawings.h"
#include "tests/support/drawings.h"

#include <set>

namespace {

bool near(const OdGePoint3d& a, const OdGePoint3d& b, double size) {
  return a.distanceTo(b) <= 1e-8 * (1 + size);
}

bool sameBox(const OdGeExtents3d& a, const OdGeExtents3d& b) {
  const double size = a.minPoint().asVector().length() + a.maxPoint().asVector().length();
  return near(a.minPoint(), b.minPoint(), size) && near(a.maxPoint(), b.maxPoint(), size);
}

// Quarter turns, scales and moves: boxes of points go to boxes.
OdGeMatrix3d boxToBox(double scale) {
  return OdGeMatrix3d::translation({100, -20, 3}) * OdGeMatrix3d::scaling(scale) *
         OdGeMatrix3d::rotation(1.5707963267948966, OdGeVector3d::kZAxis);
}

// Kinds that cannot grow, and parts that follow their owner only.
const std::set<std::string> kMayRefuse{
    "3DSOLID", "REGION", "ACAD_PROXY_ENTITY", "VIEWPORT", "VERTEX", "POLYLINE", "BLOCK", "ENDBLK", "3DLINE"};

OdDbEntityPtr entityOf(OdDbObjectId id) {
  return OdDbEntity::cast(id.safeOpenObject(OdDb::kForWrite).get());
}

// What takes the matrix goes where it leads, perhaps as another kind, and back again. False when it says no.
bool isRestoredByInverse(OdDbObjectId id, const std::string& where, const OdGeMatrix3d& matrix) {
  OdGeExtents3d before, after, back;
  const bool sized = entityOf(id)->getGeomExtents(before) == eOk && before.isValidExtents();
  if (entityOf(id)->transformBy(matrix) != eOk)
    return false;
  EXPECT_EQ(sized, entityOf(id)->getGeomExtents(after) == eOk && after.isValidExtents()) << where;
  EXPECT_EQ(entityOf(id)->transformBy(matrix.inverse()), eOk) << where;
  if (!sized)
    return true;
  OdGeExtents3d wanted = before;
  wanted.transformBy(matrix);
  EXPECT_TRUE(sameBox(after, wanted)) << where;
  EXPECT_EQ(entityOf(id)->getGeomExtents(back), eOk) << where;
  EXPECT_TRUE(sameBox(back, before)) << where;
  return true;
}

using Check = void (*)(OdDbObjectId, const std::string& kind, const std::string& where);

void forAllEntities(Check check) {
  corpus::forEachDrawing([check](const std::string&, const drawing::ReadResult& read) {
    for (OdDbObjectId id : read.database->allIds()) {
      if (const OdDbEntityPtr entity = entityOf(id); !entity.isNull())
        check(id, entity->dxfName(), entity->dxfName() + " " + id.getHandle().ascii());
    }
  });
}

TEST(Transform, InverseMatrixRestoresEveryEntity) {
  forAllEntities([](OdDbObjectId id, const std::string& kind, const std::string& where) {
    const bool went = isRestoredByInverse(id, where, boxToBox(kind == "ACAD_TABLE" ? 1 : 2));
    EXPECT_TRUE(went || kMayRefuse.count(kind) > 0) << where;
  });
}

// Boxes stay boxes here, too: whoever says yes must have stretched what it draws.
TEST(Transform, WhatIsStretchedIsAsLargeAsItShouldBe) {
  forAllEntities([](OdDbObjectId id, const std::string& kind, const std::string& where) {
    const bool went =
        isRestoredByInverse(id, where, OdGeMatrix3d::scaling(OdGeScale3d(2, 0.5, 1), OdGePoint3d(1, 2, 3)));
    const bool must = kind == "LINE" || kind == "CIRCLE" || kind == "ARC" || kind == "ELLIPSE" || kind == "SPLINE";
    EXPECT_TRUE(went || !must) << where;
  });
}

} // namespace

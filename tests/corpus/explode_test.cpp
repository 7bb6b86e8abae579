// Every reference of real drawings is taken apart, or stays whole with a reason; what takes its place lies where it
// lay.
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "drawing/explode.h"
#include "tests/corpus/drawings.h"

#include <gtest/gtest.h>

namespace {

bool isInside(const OdGeExtents3d& inner, const OdGeExtents3d& outer) {
  const double slack = 1e-6 * (1 + outer.minPoint().asVector().length() + outer.maxPoint().asVector().length());
  const OdGeVector3d low = inner.minPoint() - outer.minPoint(), high = outer.maxPoint() - inner.maxPoint();
  return low.x >= -slack && low.y >= -slack && high.x >= -slack && high.y >= -slack;
}

TEST(Explode, EveryReferenceIsExplodedOrUnchanged) {
  std::size_t explodedCount = 0, refused = 0;
  corpus::forEachDrawing([&](const std::string&, const drawing::ReadResult& read) {
    for (OdDbObjectId id : read.database->allIds()) {
      OdGeExtents3d shown;
      {
        const auto reference = OdDbBlockReference::cast(id.safeOpenObject());
        if (reference.isNull() || reference->getGeomExtents(shown) != eOk)
          continue;
      }
      drawing::ExplodeOptions options;
      options.objects = 100'000;
      const drawing::Exploded exploded = drawing::explodeReference(id, options);
      const bool whole = exploded.refusal != drawing::ExplodeRefusal::kNone;
      EXPECT_EQ(id.isErased(), !whole) << id.getHandle().ascii();
      ++(whole ? refused : explodedCount);
      for (const OdDbObjectId made : exploded.made) {
        OdGeExtents3d box;
        const OdDbEntityPtr entity = made.safeOpenObject();
        const bool sized = entity->getGeomExtents(box) == eOk && box.isValidExtents();
        EXPECT_TRUE(!sized || isInside(box, shown)) << id.getHandle().ascii() << ' ' << entity->dxfName();
      }
    }
  });
  EXPECT_GE(explodedCount, 530U);
  EXPECT_LE(refused, 1U);
  std::cout << explodedCount << " taken apart, " << refused << " stayed\n";
}

} // namespace

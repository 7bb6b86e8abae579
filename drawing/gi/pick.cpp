#include "drawing/pick.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "drawing/gi/scene_builder.h"
#include "drawing/gi/text/outlines.h"
#include "drawing/model/object_store.h"

#include <algorithm>

namespace drawing {
namespace {

using gi::Box;
using gi::Outlines;
using gi::Polygon;
using gi::Segment;

Box boxOf(const OdGePoint2d& corner, const OdGePoint2d& opposite) {
  Box box;
  box.add(corner);
  box.add(opposite);
  return box;
}

std::vector<Segment> sidesOf(const Polygon& ring) {
  std::vector<Segment> sides;
  for (std::size_t at = 0, before = ring.size() - 1; at < ring.size(); before = at++)
    sides.push_back({ring[before], ring[at]});
  return sides;
}

bool isInside(const Box& box, const Outlines& outlines) {
  const auto contains = [&](const OdGePoint2d& point) { return gi::isInside(box, point); };
  const auto containsRing = [&](const Polygon& ring) { return std::all_of(ring.begin(), ring.end(), contains); };
  return std::all_of(outlines.segments.begin(), outlines.segments.end(),
                     [&](const Segment& segment) {
                       return segment.startsHere && segment.endsHere && contains(segment.from) && contains(segment.to);
                     }) &&
         std::all_of(outlines.points.begin(), outlines.points.end(), contains) &&
         std::all_of(outlines.fills.begin(), outlines.fills.end(), [&](const std::vector<Polygon>& rings) {
           return std::all_of(rings.begin(), rings.end(), containsRing);
         });
}

bool reachesInto(const Box& box, Segment segment) {
  return gi::cutAt(box, segment);
}

bool touchesFill(const Box& box, const std::vector<Polygon>& rings) {
  for (const Polygon& ring : rings) {
    for (const Segment& side : sidesOf(ring)) {
      if (reachesInto(box, side))
        return true;
    }
  }
  return gi::encloses(rings, {box.minX, box.minY}); // no side reaches in: all of the box is inside, or nothing
}

bool touches(const Box& box, const Outlines& outlines) {
  return std::any_of(outlines.segments.begin(), outlines.segments.end(),
                     [&](const Segment& segment) { return reachesInto(box, segment); }) ||
         std::any_of(outlines.points.begin(), outlines.points.end(),
                     [&](const OdGePoint2d& point) { return gi::isInside(box, point); }) ||
         std::any_of(outlines.fills.begin(), outlines.fills.end(),
                     [&](const std::vector<Polygon>& rings) { return touchesFill(box, rings); });
}

bool touchesFill(const Segment& part, const std::vector<Polygon>& rings) {
  for (const Polygon& ring : rings) {
    const std::vector<Segment> sides = sidesOf(ring);
    if (std::any_of(sides.begin(), sides.end(), [&](const Segment& side) { return gi::touches(part, side); }))
      return true;
  }
  return gi::encloses(rings, part.from);
}

bool touches(const Segment& part, const Outlines& outlines) {
  return std::any_of(outlines.segments.begin(), outlines.segments.end(),
                     [&](const Segment& segment) { return gi::touches(segment, part); }) ||
         std::any_of(outlines.points.begin(), outlines.points.end(),
                     [&](const OdGePoint2d& point) {
                       return gi::touches({point, point}, part);
                     }) ||
         std::any_of(outlines.fills.begin(), outlines.fills.end(),
                     [&](const std::vector<Polygon>& rings) { return touchesFill(part, rings); });
}

} // namespace

ViewPicker::ViewPicker(OdDbObjectId block, const OdGeMatrix3d& toView) : block_(block), toView_(toView) {}

template <class Test>
OdDbObjectIdArray ViewPicker::pick(const Test& test) const {
  OdDbObjectIdArray picked;
  const auto* record = getIf<OdDbBlockTableRecord>(block_);
  if (!isAlive(record))
    return picked;
  gi::TraitResolver resolver(*record->database(), {});
  gi::DrawContext context = gi::drawContextOf(*record, resolver);
  context.toScene = toView_ * context.toScene;
  const PictureOptions options;
  for (const OdDbObjectId id : record->members().ids()) {
    gi::DisplayList list;
    PictureReport report;
    gi::SceneBuilder(list, resolver, options, report).runOne(id, context);
    const Outlines outlines = gi::outlinesOf(list);
    if (!outlines.isEmpty() && test(outlines))
      picked.append(id);
  }
  return picked;
}

OdDbObjectIdArray ViewPicker::inside(const OdGePoint2d& corner, const OdGePoint2d& opposite) const {
  const Box box = boxOf(corner, opposite);
  return pick([&](const Outlines& outlines) { return isInside(box, outlines); });
}

OdDbObjectIdArray ViewPicker::touching(const OdGePoint2d& corner, const OdGePoint2d& opposite) const {
  const Box box = boxOf(corner, opposite);
  return pick([&](const Outlines& outlines) { return touches(box, outlines); });
}

OdDbObjectIdArray ViewPicker::along(const std::vector<OdGePoint2d>& path) const {
  std::vector<Segment> parts;
  for (std::size_t at = 0; at < path.size(); ++at)
    parts.push_back({path[at == 0 ? 0 : at - 1], path[at]});
  return pick([&](const Outlines& outlines) {
    return std::any_of(parts.begin(), parts.end(), [&](const Segment& part) { return touches(part, outlines); });
  });
}

} // namespace drawing

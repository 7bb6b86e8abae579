#include "drawing/gi/scene/display_list.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

bool isFinite(const OdGePoint2d& point) {
  constexpr double kMaxCoordinate = 1e250; // differences and products of coordinates stay numbers
  return std::fabs(point.x) < kMaxCoordinate && std::fabs(point.y) < kMaxCoordinate;
}

} // namespace

void Box::add(const OdGePoint2d& point) {
  minX = std::min(minX, point.x);
  minY = std::min(minY, point.y);
  maxX = std::max(maxX, point.x);
  maxY = std::max(maxY, point.y);
}

void Box::cutAt(const Box& other) {
  minX = std::max(minX, other.minX);
  minY = std::max(minY, other.minY);
  maxX = std::min(maxX, other.maxX);
  maxY = std::min(maxY, other.maxY);
}

std::int32_t DisplayList::addClip(std::int32_t parent, std::vector<OdGePoint2d> polygon, bool inverted) {
  Clip clip;
  clip.parent = parent;
  if (inverted)
    clip.box = {-1e300, -1e300, 1e300, 1e300};
  else
    for (const OdGePoint2d& point : polygon)
      clip.box.add(point);
  if (parent >= 0)
    clip.box.cutAt(clips[static_cast<std::size_t>(parent)].box);
  clipPoints_ += polygon.size();
  clip.polygon = std::move(polygon);
  clip.inverted = inverted;
  clips.push_back(std::move(clip));
  return static_cast<std::int32_t>(clips.size() - 1);
}

bool DisplayList::showsNothing(std::int32_t clip) const {
  return clip >= 0 && !clips[static_cast<std::size_t>(clip)].box.isValid();
}

void DisplayList::grow(Box box, std::int32_t clip) {
  if (clip >= 0)
    box.cutAt(clips[static_cast<std::size_t>(clip)].box);
  if (!box.isValid())
    return;
  extents.add({box.minX, box.minY});
  extents.add({box.maxX, box.maxY});
}

// One of the latest pens when it is the same: drawings change between few.
void DisplayList::add(ItemKind kind, const Pen& pen, std::int32_t clip, std::size_t first, std::size_t end) {
  constexpr std::size_t kLatest = 16;
  std::size_t at = pens.size();
  const std::size_t oldest = at - std::min(at, kLatest);
  while (at > oldest && !(pens[at - 1] == pen))
    --at;
  if (at == oldest) {
    pens.push_back(pen);
    at = pens.size();
  }
  items.push_back({kind, static_cast<std::uint32_t>(at - 1), clip, first, end});
}

void DisplayList::stroke(const std::vector<OdGePoint2d>& path, const Pen& pen, std::int32_t clip) {
  const std::size_t first = points.size();
  Box box;
  for (const OdGePoint2d& point : path) {
    if (!isFinite(point))
      break;
    points.push_back(point);
    box.add({point.x - pen.width / 2, point.y - pen.width / 2});
    box.add({point.x + pen.width / 2, point.y + pen.width / 2});
  }
  if (points.size() == first)
    return;
  grow(box, clip);
  add(ItemKind::kStroke, pen, clip, first, points.size());
}

void DisplayList::fill(const std::vector<std::vector<OdGePoint2d>>& outlines, Color color, std::int32_t clip) {
  const std::size_t first = rings.size();
  Box box;
  for (const std::vector<OdGePoint2d>& ring : outlines) {
    if (ring.size() < 3 || !std::all_of(ring.begin(), ring.end(), isFinite))
      continue;
    rings.push_back({points.size(), points.size() + ring.size()});
    points.insert(points.end(), ring.begin(), ring.end());
    for (const OdGePoint2d& point : ring)
      box.add(point);
  }
  if (rings.size() == first)
    return;
  grow(box, clip);
  Pen pen;
  pen.color = color;
  add(ItemKind::kFill, pen, clip, first, rings.size());
}

void DisplayList::addGlyphs(const std::vector<PlacedOutline>& placed, const Box& box, Color color, std::int32_t clip) {
  if (placed.empty() || !isFinite({box.minX, box.minY}) || !isFinite({box.maxX, box.maxY}))
    return;
  const std::size_t first = glyphs.size();
  glyphs.insert(glyphs.end(), placed.begin(), placed.end());
  grow(box, clip);
  Pen pen;
  pen.color = color;
  add(ItemKind::kGlyphs, pen, clip, first, glyphs.size());
}

void DisplayList::pointSymbol(const PointSymbol& symbol, const Pen& pen, std::int32_t clip) {
  if (!isFinite(symbol.at))
    return;
  Box box;
  const double half = std::max(symbol.size, 0.0) / 2;
  box.add({symbol.at.x - half, symbol.at.y - half});
  box.add({symbol.at.x + half, symbol.at.y + half});
  grow(box, clip);
  pointSymbols.push_back(symbol);
  add(ItemKind::kPointSymbol, pen, clip, pointSymbols.size() - 1, pointSymbols.size());
}

void DisplayList::endless(const OdGePoint2d& from, const OdGePoint2d& through, bool bothWays, const Pen& pen,
                          std::int32_t clip) {
  if (!isFinite(from) || !isFinite(through))
    return;
  farthest.add(from);
  points.push_back(from);
  points.push_back(through);
  add(bothWays ? ItemKind::kFullLine : ItemKind::kHalfLine, pen, clip, points.size() - 2, points.size());
}

} // namespace drawing::gi

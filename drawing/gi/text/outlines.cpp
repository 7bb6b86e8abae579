#include "drawing/gi/text/outlines.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {
namespace {

double cross(const OdGePoint2d& origin, const OdGePoint2d& a, const OdGePoint2d& b) {
  return (a.x - origin.x) * (b.y - origin.y) - (a.y - origin.y) * (b.x - origin.x);
}

bool isBetween(const OdGePoint2d& from, const OdGePoint2d& to, const OdGePoint2d& point) {
  return std::min(from.x, to.x) <= point.x && point.x <= std::max(from.x, to.x) && std::min(from.y, to.y) <= point.y &&
         point.y <= std::max(from.y, to.y);
}

int sign(double value) {
  return value > 0 ? 1 : value < 0 ? -1 : 0;
}

class OutlineReader {
public:
  explicit OutlineReader(const DisplayList& list) : list_(list) {}

  Outlines run() {
    for (const Item& item : list_.items)
      add(item);
    return std::move(out_);
  }

private:
  void add(const Item& item) {
    clip_ = item.clip < 0 ? nullptr : &list_.clips[static_cast<std::size_t>(item.clip)];
    switch (item.kind) {
    case ItemKind::kStroke:
      return addStroke(item);
    case ItemKind::kFill:
      return addFill(item);
    case ItemKind::kGlyphs:
      for (std::size_t at = item.first; at < item.end; ++at)
        addGlyphs(list_.glyphs[at]);
      return;
    case ItemKind::kPointSymbol:
      for (std::size_t at = item.first; at < item.end; ++at)
        addPoint(list_.pointSymbols[at].at);
      return;
    case ItemKind::kHalfLine:
    case ItemKind::kFullLine:
      addSegment({list_.points[item.first], list_.points[item.first + 1], item.kind == ItemKind::kHalfLine, false});
    }
  }

  void addPoint(const OdGePoint2d& point) {
    if (clip_ == nullptr || isInside(clip_->box, point))
      out_.points.push_back(point);
  }

  void addSegment(Segment segment) {
    if (clip_ == nullptr || cutAt(clip_->box, segment))
      out_.segments.push_back(segment);
  }

  void addStroke(const Item& item) {
    if (item.end - item.first == 1)
      addPoint(list_.points[item.first]);
    for (std::size_t at = item.first; at + 1 < item.end; ++at)
      addSegment({list_.points[at], list_.points[at + 1]});
  }

  void addRings(std::vector<Polygon> rings) {
    for (Polygon& ring : rings) {
      for (OdGePoint2d& point : ring) {
        if (clip_ != nullptr)
          point = {std::clamp(point.x, clip_->box.minX, clip_->box.maxX),
                   std::clamp(point.y, clip_->box.minY, clip_->box.maxY)};
      }
    }
    out_.fills.push_back(std::move(rings));
  }

  void addFill(const Item& item) {
    std::vector<Polygon> rings;
    for (std::size_t at = item.first; at < item.end; ++at) {
      const auto begin = list_.points.begin();
      rings.emplace_back(begin + static_cast<std::ptrdiff_t>(list_.rings[at].first),
                         begin + static_cast<std::ptrdiff_t>(list_.rings[at].end));
    }
    addRings(std::move(rings));
  }

  void addGlyphs(const PlacedOutline& glyphs) {
    std::vector<Polygon> rings = *glyphs.outline;
    for (Polygon& ring : rings) {
      for (OdGePoint2d& point : ring)
        point = glyphs.transform * point;
    }
    addRings(std::move(rings));
  }

  const DisplayList& list_;
  const Clip* clip_ = nullptr;
  Outlines out_;
};

} // namespace

Outlines outlinesOf(const DisplayList& list) {
  return OutlineReader(list).run();
}

bool isInside(const Box& box, const OdGePoint2d& point) {
  return box.minX <= point.x && point.x <= box.maxX && box.minY <= point.y && point.y <= box.maxY;
}

// Along the segment the parameter runs from 0 to 1; each side of the box leaves an interval of it.
bool cutAt(const Box& box, Segment& segment) {
  const double dx = segment.to.x - segment.from.x, dy = segment.to.y - segment.from.y;
  double low = segment.startsHere ? 0 : -HUGE_VAL, high = segment.endsHere ? 1 : HUGE_VAL;
  const double sides[4][2] = {{-dx, segment.from.x - box.minX},
                              {dx, box.maxX - segment.from.x},
                              {-dy, segment.from.y - box.minY},
                              {dy, box.maxY - segment.from.y}};
  for (const auto& [along, room] : sides) {
    if (along == 0 && room < 0)
      return false;
    if (along < 0)
      low = std::max(low, room / along);
    if (along > 0)
      high = std::min(high, room / along);
  }
  if (!(low <= high) || std::isinf(low) || std::isinf(high))
    return false;
  const OdGePoint2d start = segment.from;
  segment = {{start.x + dx * low, start.y + dy * low}, {start.x + dx * high, start.y + dy * high}};
  return true;
}

bool touches(const Segment& one, const Segment& other) {
  if (!one.startsHere || !one.endsHere) { // as far as it may matter
    Box box;
    box.add(other.from);
    box.add(other.to);
    Segment part = one;
    return cutAt(box, part) && touches(part, other);
  }
  if (!other.startsHere || !other.endsHere)
    return touches(other, one);
  const double a = cross(one.from, one.to, other.from), b = cross(one.from, one.to, other.to);
  const double c = cross(other.from, other.to, one.from), d = cross(other.from, other.to, one.to);
  if (sign(a) * sign(b) < 0 && sign(c) * sign(d) < 0)
    return true;
  return (a == 0 && isBetween(one.from, one.to, other.from)) || (b == 0 && isBetween(one.from, one.to, other.to)) ||
         (c == 0 && isBetween(other.from, other.to, one.from)) || (d == 0 && isBetween(other.from, other.to, one.to));
}

bool encloses(const std::vector<Polygon>& rings, const OdGePoint2d& point) {
  bool inside = false;
  for (const Polygon& ring : rings) {
    for (std::size_t at = 0, before = ring.size() - 1; at < ring.size(); before = at++) {
      const OdGePoint2d &a = ring[before], &b = ring[at];
      if ((a.y > point.y) != (b.y > point.y) && point.x < a.x + (point.y - a.y) * (b.x - a.x) / (b.y - a.y))
        inside = !inside;
    }
  }
  return inside;
}

} // namespace drawing::gi

// A display list as plain geometry: points, segments and filled rings, cut at what clips them.
#pragma once

#include "drawing/gi/scene/display_list.h"

namespace drawing::gi {

struct Segment {
  OdGePoint2d from, to;
  bool startsHere = true, endsHere = true; // false: it goes on and on
};

using Polygon = std::vector<OdGePoint2d>;

// Clips are taken for the boxes of what they let through.
struct Outlines {
  std::vector<Segment> segments;           // of strokes and endless lines
  std::vector<OdGePoint2d> points;         // of signs, and strokes without length
  std::vector<std::vector<Polygon>> fills; // inside is what an odd number of the rings encloses
  bool isEmpty() const { return segments.empty() && points.empty() && fills.empty(); }
};

Outlines outlinesOf(const DisplayList& list);

bool isInside(const Box& box, const OdGePoint2d& point); // or on its sides
// The part of the segment in the box; false when there is none.
bool cutAt(const Box& box, Segment& segment);
bool touches(const Segment& one, const Segment& other);
bool encloses(const std::vector<Polygon>& rings, const OdGePoint2d& point);

} // namespace drawing::gi

// What a picture shows, in drawing units and in the order in which it is drawn.
#pragma once

#include "Ge/GePoint2d.h"
#include "drawing/gi/scene/palette.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace drawing::gi {

struct Box {
  double minX = 1e300, minY = 1e300, maxX = -1e300, maxY = -1e300;
  bool isValid() const { return minX <= maxX && minY <= maxY; }
  void add(const OdGePoint2d& point);
  void cutAt(const Box& other);
};

// Dashes above 0, gaps below, 0 for dots; drawing units.
using Pattern = std::vector<double>;

struct Pen {
  Color color;
  double width = 0;                       // drawing units; 0: by weight
  double weight = 0;                      // millimetres on the paper; 0: as thin as can be
  std::shared_ptr<const Pattern> pattern; // null: continuous
  double patternScale = 1;
  friend bool operator==(const Pen&, const Pen&) = default;
};

// Closed rings in the units of the letters: 1 is the height of a capital.
using Outline = std::vector<std::vector<OdGePoint2d>>;

// x' = xx * x + xy * y + x0, and y' alike.
struct Affine2d {
  double xx = 1, yx = 0, xy = 0, yy = 1, x0 = 0, y0 = 0;
  OdGePoint2d operator*(const OdGePoint2d& p) const { return {xx * p.x + xy * p.y + x0, yx * p.x + yy * p.y + y0}; }
};

struct PlacedOutline {
  std::shared_ptr<const Outline> outline;
  Affine2d transform;
};

// The sign of a point. A size of 0 or below is a share of the picture's height in hundredths (0: five).
struct PointSymbol {
  OdGePoint2d at;
  int mode = 0;
  double size = 0;
};

enum class ItemKind : std::uint8_t {
  kStroke, // points first .. end - 1
  kFill,   // rings first .. end - 1; inside is what an odd number of them encloses
  kGlyphs,
  kPointSymbol,
  kHalfLine, // two points: from the first through the second and on
  kFullLine  // the same to both sides
};

struct Item {
  ItemKind kind = ItemKind::kStroke;
  std::uint32_t pen = 0;
  std::int32_t clip = -1;
  std::size_t first = 0, end = 0;
};

// Shows the inside of its polygon, or the outside; and of that what its parent shows.
struct Clip {
  std::int32_t parent = -1;
  std::vector<OdGePoint2d> polygon;
  bool inverted = false;
  Box box; // of what may show; parents reckoned in
};

// Points first .. end - 1.
struct Ring {
  std::size_t first = 0, end = 0;
};

class DisplayList {
public:
  std::vector<OdGePoint2d> points;
  std::vector<Ring> rings;
  std::vector<PlacedOutline> glyphs;
  std::vector<PointSymbol> pointSymbols;
  std::vector<Pen> pens;
  std::vector<Clip> clips;
  std::vector<Item> items;
  Box extents;  // of all that has any
  Box farthest; // with the base points of endless lines

  std::int32_t addClip(std::int32_t parent, std::vector<OdGePoint2d> polygon, bool inverted);
  bool showsNothing(std::int32_t clip) const;
  std::size_t size() const { return points.size() + glyphs.size() + clipPoints_; } // what memory goes with

  // Points that are not finite end the stroke; lists of less than one point add nothing.
  void stroke(const std::vector<OdGePoint2d>& path, const Pen& pen, std::int32_t clip);
  void fill(const std::vector<std::vector<OdGePoint2d>>& outlines, Color color, std::int32_t clip);
  void addGlyphs(const std::vector<PlacedOutline>& placed, const Box& box, Color color, std::int32_t clip);
  void pointSymbol(const PointSymbol& symbol, const Pen& pen, std::int32_t clip);
  void endless(const OdGePoint2d& from, const OdGePoint2d& through, bool bothWays, const Pen& pen, std::int32_t clip);

private:
  void add(ItemKind kind, const Pen& pen, std::int32_t clip, std::size_t first, std::size_t end);
  void grow(Box box, std::int32_t clip);

  std::size_t clipPoints_ = 0;
};

} // namespace drawing::gi

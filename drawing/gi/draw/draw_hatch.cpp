// Hatches: areas, patterns, gradients as the colour they begin with.
#include "DbDatabase.h"
#include "DbHatch.h"
#include "drawing/entities/hatch/hatch_fill.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/records/raw_groups.h"

namespace drawing::gi {

namespace {

constexpr std::size_t kMaxCuts = 4'000'000;
constexpr std::size_t kMaxLines = 100'000;

class HatchPlane {
public:
  explicit HatchPlane(const OdDbHatch& hatch)
      : plane_(OdGeMatrix3d::planeToWorld(hatch.normal())), elevation_(hatch.elevation()) {}
  OdGePoint3d operator()(const OdGePoint2d& point) const { return plane_ * OdGePoint3d(point, elevation_); }
  std::vector<Path> rings(const std::vector<Polygon>& loops) const {
    std::vector<Path> rings;
    for (const Polygon& loop : loops) {
      Path& ring = rings.emplace_back();
      for (const OdGePoint2d& point : loop)
        ring.push_back((*this)(point));
    }
    return rings;
  }

private:
  OdGeMatrix3d plane_;
  double elevation_;
};

bool isGradient(const OdDbHatch& hatch) {
  return rawInteger(hatch.groups(), 450) != 0;
}

// The first color of a gradient follows its first position.
Color gradientColor(const OdDbHatch& hatch, Canvas& canvas) {
  const GroupList& groups = hatch.groups();
  const std::size_t first = groups.find(463);
  OdCmColor color = {OdCmColor::kByLayer, OdCmColor::kNoTrueColor};
  for (std::size_t i = first + 1; i < groups.size() && groups[i].code != 463; ++i) {
    if (groups[i].code == 63 && groups[i].kind != GroupKind::kUnparsed)
      color.index = static_cast<std::int16_t>(groups[i].integer);
    else if (groups[i].code == 421 && groups[i].kind != GroupKind::kUnparsed)
      color.trueColor = static_cast<std::int32_t>(groups[i].integer & 0xFFFFFF);
  }
  if (color.index == OdCmColor::kByLayer && color.trueColor < 0)
    return canvas.traits().color;
  return canvas.resolver().colorOf(color, canvas.traits(), canvas.traits().color);
}

void drawPattern(const OdDbHatch& hatch, const std::vector<Polygon>& loops, const HatchPlane& plane, Canvas& canvas) {
  std::size_t cuts = 0;
  const auto lines = hatchLines(hatch, loops, kMaxCuts, &cuts);
  canvas.charge(cuts / 4); // they are quick
  if (!lines || lines->size() > kMaxLines) {
    // So fine a pattern is an even tint.
    Color tint = canvas.traits().color;
    tint.a = static_cast<std::uint8_t>(tint.a / 2);
    canvas.fill(plane.rings(loops), tint);
    return canvas.reportNotDrawn("fine-pattern");
  }
  Pen pen = canvas.pen();
  pen.pattern = nullptr;
  for (const HatchLine& line : *lines)
    canvas.stroke({plane(line.from), plane(line.to)}, false, pen);
}

} // namespace

void drawHatch(const OdDbHatch& hatch, Canvas& canvas) {
  const HatchPlane plane(hatch);
  const std::vector<Polygon> loops = hatchLoops(hatch);
  const bool isPolygon = hatch.isKindOf(OdDbMPolygon::desc());
  if (canvas.database().headerInt("FILLMODE", 1) != 0) {
    if (isGradient(hatch))
      canvas.fill(plane.rings(loops), gradientColor(hatch, canvas));
    else if (hatch.isSolidFill())
      canvas.fill(plane.rings(loops));
    else
      drawPattern(hatch, loops, plane, canvas);
  }
  for (const Path& ring : plane.rings(loops)) {
    if (isPolygon)
      canvas.stroke(ring, true);
  }
}

} // namespace drawing::gi

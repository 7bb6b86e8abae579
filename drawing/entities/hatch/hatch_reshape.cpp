#include "drawing/entities/hatch/hatch_reshape.h"

#include "DbCurves.h"
#include "Ge/GeUtil.h"

#include <cmath>

namespace drawing {

namespace {

constexpr std::int64_t kPolylineFlag = 2, kLine = 1, kEllipse = 3;

class Reshaper {
public:
  Reshaper(const GroupList& from, const PlaneMap& map, double elevation)
      : from_(from), map_(map), elevation_(elevation) {}

  bool run();
  GroupList& result() { return to_; }

private:
  struct Vertex {
    OdGePoint3d point;
    double bulge = 0;
  };

  double realIn(const HatchPart& part, int code, double absent = 0) const;
  std::int64_t integerIn(const HatchPart& part, int code, std::int64_t absent) const;
  std::vector<Vertex> verticesOf(const HatchPart& part) const;
  void copyMoved(const HatchPart& part);
  void copyPattern(const HatchPart& part);
  void copyPatternLine(std::size_t first, std::size_t end);
  bool addRound(const HatchPart& part);
  bool addEllipse(const OdGePoint3d& center, const OdGeVector3d& major, double ratio, double start, double end,
                  bool counterClockwise);
  bool addLoop(const HatchPart& part);
  bool addBulge(const Vertex& from, const OdGePoint3d& to);
  void addLine(const OdGePoint3d& from, const OdGePoint3d& to);
  void point(int code, const OdGePoint3d& p);

  const GroupList& from_;
  const PlaneMap& map_;
  const double elevation_;
  GroupList to_;
};

bool Reshaper::run() {
  for (const HatchPart& part : hatchParts(from_)) {
    bool done = true;
    if (part.kind == HatchPartKind::kHeader || part.kind == HatchPartKind::kLoopHeader)
      to_.append(from_, part.first, part.end - part.first);
    else if (part.kind == HatchPartKind::kArc || part.kind == HatchPartKind::kEllipse)
      done = addRound(part);
    else if (part.kind == HatchPartKind::kPolyline)
      done = addLoop(part);
    else if (part.kind == HatchPartKind::kPattern)
      copyPattern(part);
    else if (part.kind == HatchPartKind::kGradient)
      done = integerIn(part, 450, 0) == 0, to_.append(from_, part.first, part.end - part.first);
    else
      copyMoved(part);
    if (!done)
      return false;
  }
  return true;
}

double Reshaper::realIn(const HatchPart& part, int code, double absent) const {
  const std::size_t i = from_.find(code, part.first);
  return i < part.end && from_[i].kind == GroupKind::kReal ? from_[i].real : absent;
}

std::int64_t Reshaper::integerIn(const HatchPart& part, int code, std::int64_t absent) const {
  const std::size_t i = from_.find(code, part.first);
  return i < part.end && from_[i].kind != GroupKind::kUnparsed ? from_[i].integer : absent;
}

void Reshaper::point(int code, const OdGePoint3d& p) {
  to_.real(code, p.x);
  to_.real(code + 10, p.y);
}

// Lines, splines and seeds: what the plane's own map does to points and vectors is all there is to it.
void Reshaper::copyMoved(const HatchPart& part) {
  GroupList own;
  own.append(from_, part.first, part.end - part.first);
  moveHatchPart(own, {part.kind, 0, own.size()}, map_, elevation_);
  to_.append(own, 0, own.size());
}

bool Reshaper::addRound(const HatchPart& part) {
  const bool circle = part.kind == HatchPartKind::kArc;
  const double size = realIn(part, 40);
  const OdGeVector3d major = circle ? OdGeVector3d(size, 0, 0) : OdGeVector3d(realIn(part, 11), realIn(part, 21), 0);
  const bool counterClockwise = integerIn(part, 73, 1) != 0;
  double start = toRadians(realIn(part, 50)), end = toRadians(realIn(part, 51));
  if (!counterClockwise) { // counted clockwise
    std::swap(start, end);
    start = -start;
    end = -end;
  }
  const OdGePoint3d center(realIn(part, 10), realIn(part, 20), elevation_);
  if (!addEllipse(center, major, circle ? 1 : size, start, end, counterClockwise))
    return false;
  // Behind the last edge of a loop: what bounds it.
  const std::size_t rest = from_.find(97, part.first);
  if (rest < part.end)
    to_.append(from_, rest, part.end - rest);
  return true;
}

// The arc runs from start to end counter-clockwise; the edge runs along it that way or the other.
bool Reshaper::addEllipse(const OdGePoint3d& center, const OdGeVector3d& major, double ratio, double start, double end,
                          bool counterClockwise) {
  const OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
  const double sweep = end - start > 0 ? end - start : end - start + kTwoPi;
  const bool made = ellipse->set(center, OdGeVector3d::kZAxis, major, ratio, start, start + sweep) == eOk &&
                    ellipse->transformBy(map_.matrix()) == eOk;
  if (!made)
    return false;
  double from = ellipse->startParam(), to = ellipse->endParam();
  const bool runsOn = counterClockwise != map_.isMirrored();
  if (!runsOn) {
    std::swap(from, to);
    from = -from;
    to = -to;
  }
  to_.integer(72, kEllipse);
  point(10, ellipse->center());
  point(11, OdGePoint3d() + ellipse->majorAxis());
  to_.real(40, ellipse->radiusRatio());
  to_.real(50, toDegrees(from));
  to_.real(51, toDegrees(to));
  to_.integer(73, runsOn ? 1 : 0);
  return true;
}

std::vector<Reshaper::Vertex> Reshaper::verticesOf(const HatchPart& part) const {
  std::vector<Vertex> vertices;
  for (std::size_t i = part.first; i + 1 < part.end; ++i) {
    if (from_[i].code == 10 && from_[i].kind == GroupKind::kReal && from_[i + 1].code == 20)
      vertices.push_back({OdGePoint3d(from_[i].real, from_[i + 1].real, elevation_), 0});
    else if (from_[i].code == 42 && from_[i].kind == GroupKind::kReal && !vertices.empty())
      vertices.back().bulge = from_[i].real;
  }
  // The last group may be a bulge, too.
  if (part.end > part.first && from_[part.end - 1].code == 42 && !vertices.empty())
    vertices.back().bulge = from_[part.end - 1].real;
  return vertices;
}

void Reshaper::addLine(const OdGePoint3d& from, const OdGePoint3d& to) {
  to_.integer(72, kLine);
  point(10, map_.point(from));
  point(11, map_.point(to));
}

bool Reshaper::addBulge(const Vertex& from, const OdGePoint3d& to) {
  const OdGeVector3d chord = to - from.point;
  if (!(chord.length() > 0))
    return true;
  const double offset = (1 - from.bulge * from.bulge) / (4 * from.bulge);
  const OdGePoint3d center = from.point + chord * 0.5 + OdGeVector3d(-chord.y, chord.x, 0) * offset;
  const OdGeVector3d first = from.point - center, last = to - center;
  double start = std::atan2(first.y, first.x), end = std::atan2(last.y, last.x);
  if (from.bulge < 0)
    std::swap(start, end);
  return addEllipse(center, OdGeVector3d(first.length(), 0, 0), 1, start, end, from.bulge > 0);
}

bool Reshaper::addLoop(const HatchPart& part) {
  const std::vector<Vertex> vertices = verticesOf(part);
  bool bent = false;
  for (const Vertex& vertex : vertices)
    bent = bent || vertex.bulge != 0;
  if (!bent) {
    copyMoved(part);
    return true;
  }
  const bool closed = integerIn(part, 73, 1) != 0;
  const std::size_t edges = closed ? vertices.size() : vertices.size() - 1;
  to_.integer(92, from_[part.first].integer & ~kPolylineFlag);
  const std::size_t count = to_.size();
  to_.integer(93, static_cast<std::int64_t>(edges));
  std::int64_t made = 0;
  for (std::size_t i = 0; i < edges; ++i) {
    const OdGePoint3d& next = vertices[(i + 1) % vertices.size()].point;
    const std::size_t before = to_.size();
    if (vertices[i].bulge == 0)
      addLine(vertices[i].point, next);
    else if (!addBulge(vertices[i], next))
      return false;
    made += to_.size() > before ? 1 : 0;
  }
  to_.setInteger(count, made);
  const std::size_t rest = from_.find(97, part.first);
  if (rest < part.end)
    to_.append(from_, rest, part.end - rest);
  return true;
}

// Each line of the pattern goes where the map takes it, with dashes as long as its own direction makes them. The angle
// and the scale that the pattern was chosen with stay: no pair of them makes these lines.
void Reshaper::copyPattern(const HatchPart& part) {
  std::size_t line = part.first;
  while (line < part.end && from_[line].code != 53)
    ++line;
  to_.append(from_, part.first, line - part.first);
  while (line < part.end) {
    const std::size_t next = std::min(from_.find(53, line + 1), part.end);
    copyPatternLine(line, next);
    line = next;
  }
}

void Reshaper::copyPatternLine(std::size_t first, std::size_t end) {
  GroupList own;
  own.append(from_, first, end - first);
  const double angle = toRadians(own[0].real);
  const double stretch = map_.vector(OdGeVector3d(std::cos(angle), std::sin(angle), 0)).length();
  moveHatchPart(own, {HatchPartKind::kPattern, 0, own.size()}, map_, elevation_);
  for (std::size_t i = 0; i < own.size(); ++i) {
    if (own[i].code == 49)
      own.setReal(i, from_[first + i].real * stretch);
    else if (own[i].code == 47) // the size of a pixel says nothing about lines
      own.setReal(i, from_[first + i].real);
  }
  to_.append(own, 0, own.size());
}

} // namespace

bool reshapeHatch(GroupList& groups, const PlaneMap& map, double elevation) {
  Reshaper reshaper(groups, map, elevation);
  if (!reshaper.run())
    return false;
  groups = std::move(reshaper.result());
  return true;
}

} // namespace drawing

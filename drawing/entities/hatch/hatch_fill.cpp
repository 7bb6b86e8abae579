#include "drawing/entities/hatch/hatch_fill.h"

#include "DbHatch.h"
#include "Ge/GeUtil.h"
#include "drawing/entities/curves/tessellate.h"
#include "drawing/entities/hatch/hatch_parts.h"

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

// The numbers of a part in file order, by code.
class PartReader {
public:
  PartReader(const GroupList& groups, const HatchPart& part) : groups_(groups), part_(part) {}

  double real(int code, double absent = 0) const {
    for (std::size_t i = part_.first; i < part_.end; ++i) {
      if (groups_[i].code == code && groups_[i].kind == GroupKind::kReal)
        return groups_[i].real;
    }
    return absent;
  }
  std::int64_t integer(int code, std::int64_t absent) const {
    for (std::size_t i = part_.first; i < part_.end; ++i) {
      if (groups_[i].code == code && groups_[i].kind != GroupKind::kReal)
        return groups_[i].integer;
    }
    return absent;
  }
  std::vector<double> reals(int code) const {
    std::vector<double> all;
    for (std::size_t i = part_.first; i < part_.end; ++i) {
      if (groups_[i].code == code && groups_[i].kind == GroupKind::kReal)
        all.push_back(groups_[i].real);
    }
    return all;
  }

private:
  const GroupList& groups_;
  const HatchPart& part_;
};

void addPolyline(const GroupList& groups, const HatchPart& part, Polygon& polygon) {
  struct Vertex {
    OdGePoint2d point;
    double bulge = 0;
  };
  std::vector<Vertex> vertices;
  for (std::size_t i = part.first; i < part.end; ++i) {
    if (groups[i].code == 10 && i + 1 < part.end)
      vertices.push_back({{groups[i].real, groups[i + 1].real}});
    else if (groups[i].code == 42 && !vertices.empty())
      vertices.back().bulge = groups[i].real;
  }
  for (std::size_t i = 0; i < vertices.size(); ++i)
    flattenBulge(vertices[i].point, vertices[(i + 1) % vertices.size()].point, vertices[i].bulge, polygon);
}

void addFlat(const std::vector<OdGePoint3d>& points, Polygon& polygon) {
  for (const OdGePoint3d& point : points)
    polygon.emplace_back(point.x, point.y);
}

void addRound(const PartReader& part, bool isEllipse, Polygon& polygon) {
  const double size = part.real(40);
  const OdGeVector3d major = isEllipse ? OdGeVector3d(part.real(11), part.real(21), 0) : OdGeVector3d(size, 0, 0);
  const OdGeVector3d minor = OdGeVector3d(-major.y, major.x, 0) * (isEllipse ? size : 1);
  double start = toRadians(part.real(50)), end = toRadians(part.real(51));
  if (end <= start)
    end += kTwoPi;
  std::vector<OdGePoint3d> points;
  const bool clockwise = part.integer(73, 1) == 0; // angles are counted clockwise, too
  flattenArc({part.real(10), part.real(20), 0}, major, clockwise ? -minor : minor, start, end, points);
  addFlat(points, polygon);
}

void addSpline(const PartReader& part, Polygon& polygon) {
  Nurbs curve;
  curve.degree = static_cast<int>(part.integer(94, 3));
  curve.knots = part.reals(40);
  curve.weights = part.reals(42);
  const std::vector<double> x = part.reals(10), y = part.reals(20);
  for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i)
    curve.points.emplace_back(x[i], y[i], 0);
  std::vector<OdGePoint3d> points;
  flattenNurbs(curve, points);
  addFlat(points, polygon);
}

void addEdge(const GroupList& groups, const HatchPart& part, Polygon& polygon) {
  const PartReader reader(groups, part);
  if (part.kind == HatchPartKind::kLine) {
    polygon.emplace_back(reader.real(10), reader.real(20));
    polygon.emplace_back(reader.real(11), reader.real(21));
  } else if (part.kind == HatchPartKind::kSpline) {
    addSpline(reader, polygon);
  } else {
    addRound(reader, part.kind == HatchPartKind::kEllipse, polygon);
  }
}

struct PatternLine {
  double angle = 0;
  OdGePoint2d base, offset;
  std::vector<double> dashes; // above 0 drawn, below 0 not
};

std::vector<PatternLine> patternOf(const OdDbHatch& hatch) {
  const GroupList& groups = hatch.groups();
  std::vector<PatternLine> lines;
  for (const HatchPart& part : hatchParts(groups, hatch.onlyPolylines())) {
    for (std::size_t i = part.first; part.kind == HatchPartKind::kPattern && i < part.end; ++i) {
      const double value = groups[i].kind == GroupKind::kReal ? groups[i].real : 0;
      if (groups[i].code == 53)
        lines.emplace_back().angle = toRadians(value);
      if (lines.empty())
        continue;
      PatternLine& line = lines.back();
      double* const slot = groups[i].code == 43   ? &line.base.x
                           : groups[i].code == 44 ? &line.base.y
                           : groups[i].code == 45 ? &line.offset.x
                           : groups[i].code == 46 ? &line.offset.y
                                                  : nullptr;
      if (slot != nullptr)
        *slot = value;
      else if (groups[i].code == 49)
        line.dashes.push_back(value);
    }
  }
  return lines;
}

// Cuts one family of parallel lines at the loops.
class Cutter {
public:
  Cutter(const PatternLine& line, const std::vector<Polygon>& loops, std::size_t& left, std::vector<HatchLine>& out)
      : line_(line), loops_(loops), left_(left), out_(out), dx_(std::cos(line.angle)), dy_(std::sin(line.angle)),
        step_(across(line.offset)) {}

  bool run() { // false: too much work
    double low = HUGE_VAL, high = -HUGE_VAL;
    for (const Polygon& loop : loops_) {
      for (const OdGePoint2d& point : loop) {
        const double at = across({point.x - line_.base.x, point.y - line_.base.y});
        low = std::min(low, at);
        high = std::max(high, at);
        ++points_;
      }
    }
    if (points_ == 0)
      return true;
    if (std::fabs(step_) < 1e-12)
      return false;
    const double first = std::ceil(std::min(low / step_, high / step_));
    const double last = std::floor(std::max(low / step_, high / step_));
    if ((last - first + 1) * static_cast<double>(points_) > static_cast<double>(left_))
      return false;
    for (double k = first; k <= last; ++k) {
      if (!cut({line_.base.x + k * line_.offset.x, line_.base.y + k * line_.offset.y}))
        return false;
    }
    return true;
  }

private:
  double across(const OdGePoint2d& v) const { return dx_ * v.y - dy_ * v.x; }
  double along(const OdGePoint2d& v) const { return dx_ * v.x + dy_ * v.y; }

  bool cut(const OdGePoint2d& origin) {
    left_ -= std::min(left_, points_);
    hits_.clear();
    for (const Polygon& loop : loops_) {
      for (std::size_t i = 0; i < loop.size(); ++i)
        hit(origin, loop[i], loop[(i + 1) % loop.size()]);
    }
    std::sort(hits_.begin(), hits_.end());
    for (std::size_t i = 0; i + 1 < hits_.size(); i += 2) {
      if (!dashed(origin, hits_[i], hits_[i + 1]))
        return false;
    }
    return true;
  }

  // A corner counts for the edge that goes up from it only.
  void hit(const OdGePoint2d& origin, const OdGePoint2d& a, const OdGePoint2d& b) {
    const OdGePoint2d p(a.x - origin.x, a.y - origin.y), q(b.x - origin.x, b.y - origin.y);
    const double pa = across(p), qa = across(q);
    if ((pa > 0) == (qa > 0))
      return;
    const double part = pa / (pa - qa);
    hits_.push_back(along(p) + (along(q) - along(p)) * part);
  }

  void add(const OdGePoint2d& origin, double from, double to) {
    out_.push_back({{origin.x + dx_ * from, origin.y + dy_ * from}, {origin.x + dx_ * to, origin.y + dy_ * to}});
  }

  bool dashed(const OdGePoint2d& origin, double from, double to) {
    double period = 0;
    for (const double dash : line_.dashes)
      period += std::fabs(dash);
    if (line_.dashes.empty() || period <= 0) {
      add(origin, from, to);
      return true;
    }
    const double work = ((to - from) / period + 2) * static_cast<double>(line_.dashes.size());
    if (!(work < static_cast<double>(left_)))
      return false;
    left_ -= static_cast<std::size_t>(work);
    for (double at = std::floor(from / period) * period; at < to; at += period) {
      double begin = at;
      for (const double dash : line_.dashes) {
        const double end = begin + std::fabs(dash);
        if (dash >= 0 && end >= from && begin <= to)
          add(origin, std::max(begin, from), std::min(end, to));
        begin = end;
      }
    }
    return true;
  }

  const PatternLine& line_;
  const std::vector<Polygon>& loops_;
  std::size_t& left_;
  std::vector<HatchLine>& out_;
  double dx_, dy_, step_;
  std::size_t points_ = 0;
  std::vector<double> hits_;
};

struct Edge {
  OdGePoint2d low, high;
  double xAt(double y) const { return low.x + (high.x - low.x) * (y - low.y) / (high.y - low.y); }
};

std::vector<Edge> edgesOf(const std::vector<Polygon>& loops) {
  std::vector<Edge> edges;
  for (const Polygon& loop : loops) {
    for (std::size_t i = 0; i < loop.size(); ++i) {
      const OdGePoint2d &a = loop[i], &b = loop[(i + 1) % loop.size()];
      if (a.y != b.y)
        edges.push_back(a.y < b.y ? Edge{a, b} : Edge{b, a});
    }
  }
  return edges;
}

} // namespace

std::vector<Polygon> hatchLoops(const OdDbHatch& hatch) {
  const GroupList& groups = hatch.groups();
  std::vector<Polygon> loops;
  for (const HatchPart& part : hatchParts(groups, hatch.onlyPolylines())) {
    if (part.kind == HatchPartKind::kLoopHeader || part.kind == HatchPartKind::kPolyline)
      loops.emplace_back();
    if (part.kind == HatchPartKind::kPolyline)
      addPolyline(groups, part, loops.back());
    else if (part.kind > HatchPartKind::kPolyline && part.kind <= HatchPartKind::kSpline && !loops.empty())
      addEdge(groups, part, loops.back());
  }
  return loops;
}

std::optional<std::vector<HatchLine>> hatchLines(const OdDbHatch& hatch, const std::vector<Polygon>& loops,
                                                 std::size_t limit, std::size_t* spent) {
  std::vector<HatchLine> lines;
  std::size_t left = limit;
  bool isWhole = true;
  for (const PatternLine& line : patternOf(hatch))
    isWhole = isWhole && Cutter(line, loops, left, lines).run();
  if (spent != nullptr)
    *spent = limit - left;
  return isWhole ? std::optional(std::move(lines)) : std::nullopt;
}

std::optional<std::vector<Trapezoid>> hatchArea(const std::vector<Polygon>& loops, std::size_t limit) {
  const std::vector<Edge> edges = edgesOf(loops);
  std::vector<double> levels;
  for (const Edge& edge : edges) {
    levels.push_back(edge.low.y);
    levels.push_back(edge.high.y);
  }
  std::sort(levels.begin(), levels.end());
  levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
  if (levels.size() > limit / std::max<std::size_t>(edges.size(), 1))
    return std::nullopt;
  std::vector<Trapezoid> area;
  std::vector<const Edge*> crossing;
  for (std::size_t i = 0; i + 1 < levels.size(); ++i) {
    const double low = levels[i], high = levels[i + 1], middle = (low + high) / 2;
    crossing.clear();
    for (const Edge& edge : edges) {
      if (edge.low.y <= low && edge.high.y >= high)
        crossing.push_back(&edge);
    }
    std::sort(crossing.begin(), crossing.end(),
              [middle](const Edge* a, const Edge* b) { return a->xAt(middle) < b->xAt(middle); });
    for (std::size_t j = 0; j + 1 < crossing.size(); j += 2) {
      const Edge &left = *crossing[j], &right = *crossing[j + 1];
      area.push_back({{{left.xAt(low), low}, {right.xAt(low), low}, {left.xAt(high), high}, {right.xAt(high), high}}});
    }
  }
  return area;
}

} // namespace drawing

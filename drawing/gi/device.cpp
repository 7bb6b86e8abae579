#include "drawing/gi/device.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

constexpr double kMargin = 64;      // pixels around the picture that are kept
constexpr double kMaxMargin = 1e5;  // for pens of any width
constexpr double kFinestPeriod = 3; // pixels of a pattern that still shows

using Pixels = std::vector<OdGePoint2d>;

// One side of the frame: keeps what is on the inner side of x (or y) = limit.
struct Side {
  bool isX;
  double limit;
  double sign; // 1 keeps what is above
  double depth(const OdGePoint2d& p) const { return ((isX ? p.x : p.y) - limit) * sign; }
};

Pixels cutAt(const Pixels& ring, const Side& side) {
  Pixels kept;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const OdGePoint2d &from = ring[i], &to = ring[(i + 1) % ring.size()];
    const double a = side.depth(from), b = side.depth(to);
    if (a >= 0)
      kept.push_back(from);
    if ((a >= 0) != (b >= 0))
      kept.push_back(from + (to - from) * (a / (a - b)));
  }
  return kept;
}

struct Part {
  double from = 0, to = 1; // shares of the segment
};

// The share of the segment within the box; from above to when there is none.
Part partInside(const OdGePoint2d& a, const OdGePoint2d& b, const Box& box) {
  Part part;
  const double starts[] = {a.x - box.minX, box.maxX - a.x, a.y - box.minY, box.maxY - a.y};
  const double ends[] = {b.x - box.minX, box.maxX - b.x, b.y - box.minY, box.maxY - b.y};
  for (int i = 0; i < 4; ++i) {
    if (starts[i] < 0 && ends[i] < 0)
      return {1, 0};
    if (starts[i] < 0)
      part.from = std::max(part.from, starts[i] / (starts[i] - ends[i]));
    else if (ends[i] < 0)
      part.to = std::min(part.to, starts[i] / (starts[i] - ends[i]));
  }
  return part;
}

// Goes along a path and takes down what the pen draws of it.
class Tracer {
public:
  Tracer(const Pen& pen, double scale, std::size_t& dashesLeft) : dashesLeft_(dashesLeft) {
    if (pen.pattern == nullptr || dashesLeft == 0)
      return;
    for (const double dash : *pen.pattern) {
      dashes_.push_back(dash * pen.patternScale * scale);
      period_ += std::fabs(dashes_.back());
    }
    if (!(period_ >= kFinestPeriod) || !std::isfinite(period_))
      dashes_.clear();
  }

  void segment(const OdGePoint2d& a, const OdGePoint2d& b, const Part& part) {
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (part.from <= part.to) {
      if (dashes_.empty())
        add(a + (b - a) * part.from, a + (b - a) * part.to);
      else
        dash(a, b, length, part);
    }
    along_ += length;
  }

  std::vector<Pixels> take() { return std::move(pieces_); }

private:
  void dash(const OdGePoint2d& a, const OdGePoint2d& b, double length, const Part& part) {
    const double first = along_ + part.from * length, last = along_ + part.to * length;
    const auto at = [&](double where) { return length > 0 ? a + (b - a) * ((where - along_) / length) : a; };
    for (double period = std::floor(first / period_) * period_; period <= last; period += period_) {
      double begin = period;
      for (const double one : dashes_) {
        const double end = begin + std::fabs(one);
        if (one >= 0 && end >= first && begin <= last)
          add(at(std::max(begin, first)), at(std::min(end, last)));
        begin = end;
      }
    }
  }

  void add(const OdGePoint2d& from, const OdGePoint2d& to) {
    dashesLeft_ -= std::min<std::size_t>(dashesLeft_, dashes_.empty() ? 0 : 1);
    if (!pieces_.empty() && pieces_.back().back().x == from.x && pieces_.back().back().y == from.y)
      pieces_.back().push_back(to);
    else
      pieces_.push_back({from, to});
  }

  std::size_t& dashesLeft_;
  std::vector<double> dashes_;
  double period_ = 0, along_ = 0;
  std::vector<Pixels> pieces_;
};

} // namespace

bool Device::contains(const OdGePoint2d& pixel) const {
  return pixel.x >= -kMargin && pixel.x <= view_.width + kMargin && pixel.y >= -kMargin &&
         pixel.y <= view_.height + kMargin;
}

Pixels Device::frame() const {
  const double right = view_.width + kMargin, bottom = view_.height + kMargin;
  return {{-kMargin, -kMargin}, {right, -kMargin}, {right, bottom}, {-kMargin, bottom}};
}

double Device::reachFrom(const OdGePoint2d& pixel) const {
  return std::hypot(pixel.x, pixel.y) + 2.0 * (view_.width + view_.height) + 4 * kMargin;
}

Pixels Device::inside(const Pixels& ring) const {
  if (std::all_of(ring.begin(), ring.end(), [this](const OdGePoint2d& point) { return contains(point); }))
    return ring;
  const Side sides[] = {{true, -kMargin, 1},
                        {true, view_.width + kMargin, -1},
                        {false, -kMargin, 1},
                        {false, view_.height + kMargin, -1}};
  Pixels kept = ring;
  for (const Side& side : sides)
    kept = cutAt(kept, side);
  return kept;
}

std::vector<Pixels> Device::strokes(const Pixels& path, const Pen& pen, double width) {
  const double margin = std::min(kMargin + width, kMaxMargin);
  const Box box{-margin, -margin, view_.width + margin, view_.height + margin};
  if (path.size() == 1)
    return contains(path[0]) ? std::vector<Pixels>{{path[0], path[0]}} : std::vector<Pixels>{};
  Tracer tracer(pen, view_.scale, dashesLeft_);
  for (std::size_t i = 0; i + 1 < path.size(); ++i)
    tracer.segment(path[i], path[i + 1], partInside(path[i], path[i + 1], box));
  return tracer.take();
}

} // namespace drawing::gi

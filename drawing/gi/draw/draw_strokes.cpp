// Lines of several strokes.
#include "DbMline.h"
#include "DbStyles.h"
#include "Ge/GeUtil.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/model/object_store.h"

#include <algorithm>

namespace drawing::gi {

namespace {

using Vertex = OdDbMline::Vertex;

// Where a stroke crosses the mitre of a vertex.
OdGePoint3d crossing(const Vertex& vertex, std::size_t stroke) {
  const std::vector<double>* cuts = stroke < vertex.strokes.size() ? &vertex.strokes[stroke].cuts : nullptr;
  return vertex.point + vertex.miter * (cuts == nullptr || cuts->empty() ? 0 : cuts->front());
}

// The cuts after the first are in turn the start and the end of the line.
void drawStroke(const Vertex& from, const Vertex& to, std::size_t stroke, const Pen& pen, Canvas& canvas) {
  const OdGePoint3d start = crossing(from, stroke), end = crossing(to, stroke);
  const std::vector<double>& cuts = from.strokes[stroke].cuts;
  if (cuts.size() < 3)
    return canvas.stroke({start, end}, false, pen);
  const double length = (end - start).length();
  for (std::size_t i = 1; i < cuts.size(); i += 2) {
    const double first = cuts[i], last = i + 1 < cuts.size() ? cuts[i + 1] : length;
    if (first < length)
      canvas.stroke({start + from.direction * first, start + from.direction * std::min(last, length)}, false, pen);
  }
}

class MlineDrawing {
public:
  MlineDrawing(const OdDbMline& line, Canvas& canvas)
      : line_(line), canvas_(canvas), style_(getIf<OdDbMlineStyle>(line.style())) {
    for (int i = 0; i < line.numVertices(); ++i)
      strokes_ = std::max(strokes_, line.vertexAt(i).strokes.size());
  }

  void draw() {
    if (line_.numVertices() < 2 || strokes_ == 0)
      return;
    if (style_ != nullptr && style_->filled())
      fill();
    const int segments = line_.numVertices() - (line_.isClosed() ? 0 : 1);
    for (std::size_t stroke = 0; stroke < strokes_; ++stroke) {
      const Pen pen = penOf(stroke);
      for (int i = 0; i < segments; ++i)
        drawSegment(i, stroke, pen);
    }
    if (style_ != nullptr)
      drawEnds();
  }

private:
  const Vertex& vertex(int i) const { return line_.vertexAt(i % line_.numVertices()); }

  Pen penOf(std::size_t stroke) const {
    Pen pen = canvas_.pen();
    if (style_ == nullptr || stroke >= style_->elements().size())
      return pen;
    const OdDbMlineStyle::Element& element = style_->elements()[stroke];
    pen.color = canvas_.resolver().colorOf(element.color, canvas_.traits(), canvas_.traits().color);
    if (!element.linetype.isNull())
      pen.pattern = canvas_.resolver().patternOf(element.linetype);
    return pen;
  }

  void drawSegment(int i, std::size_t stroke, const Pen& pen) {
    if (stroke < vertex(i).strokes.size())
      drawStroke(vertex(i), vertex(i + 1), stroke, pen, canvas_);
  }

  void fill() {
    Path ring, back;
    for (int i = 0; i < line_.numVertices(); ++i) {
      ring.push_back(crossing(vertex(i), 0));
      back.push_back(crossing(vertex(i), strokes_ - 1));
    }
    const Color color = canvas_.resolver().colorOf(style_->fillColor(), canvas_.traits(), canvas_.traits().color);
    if (line_.isClosed())
      return canvas_.fill({ring, back}, color);
    ring.insert(ring.end(), back.rbegin(), back.rend());
    canvas_.fill({ring}, color);
  }

  void across(const Vertex& at) { canvas_.line(crossing(at, 0), crossing(at, strokes_ - 1)); }

  // Half a circle over the end, on the side that `outward` points to.
  void round(const Vertex& at, const OdGeVector3d& outward) {
    const OdGePoint3d first = crossing(at, 0), last = crossing(at, strokes_ - 1);
    const OdGePoint3d center = first + (last - first) * 0.5;
    const OdGeVector3d radius = first - center;
    Path path;
    addArcTo(path, center, radius, outward.normal() * radius.length(), 0, kPi);
    canvas_.stroke(path);
  }

  void drawEnds() {
    const int count = line_.numVertices();
    for (int i = 1; i + 1 < count && style_->showsMiters(); ++i)
      across(vertex(i));
    if (line_.isClosed())
      return;
    if (style_->startSquareCap())
      across(vertex(0));
    if (style_->startRoundCap())
      round(vertex(0), -vertex(0).direction);
    if (style_->endSquareCap())
      across(vertex(count - 1));
    if (style_->endRoundCap())
      round(vertex(count - 1), vertex(count - 2).direction);
  }

  const OdDbMline& line_;
  Canvas& canvas_;
  const OdDbMlineStyle* style_;
  std::size_t strokes_ = 0;
};

} // namespace

void drawMline(const OdDbMline& line, Canvas& canvas) {
  MlineDrawing(line, canvas).draw();
}

} // namespace drawing::gi

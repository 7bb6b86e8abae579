#include "drawing/dxf/r12/primitives.h"

#include "DbDatabase.h"
#include "DbSymbolRecords.h"
#include "Ge/GeUtil.h"
#include "drawing/model/object_store.h"

#include <algorithm>
#include <cmath>

namespace drawing::dxf {

namespace {

constexpr double kUsualReach = 1000;  // of drawings without extents
constexpr double kLineStep = 5.0 / 3; // between base lines, in heights

// How wide a character is about, in heights: there are no fonts at hand.
double widthOf(wchar_t c) {
  return c >= 0x2E80 ? 1.2 : 0.8;
}

// Lines as the writer broke them, broken again where they are wider than the box.
std::vector<OdString> brokenLines(const OdDbMText& text) {
  std::vector<OdString> lines(1);
  double width = 0;
  int space = -1; // where the line may be broken
  const OdString plain = text.plainText();
  for (int i = 0; i < plain.getLength(); ++i) {
    const wchar_t c = plain.getAt(i);
    if (c == L'\n') {
      lines.emplace_back();
      width = 0;
      space = -1;
      continue;
    }
    if (c == L' ')
      space = lines.back().getLength();
    lines.back() += c;
    width += widthOf(c) * text.textHeight();
    if (text.width() <= 0 || width <= text.width() || space < 0)
      continue;
    const OdString rest = lines.back().mid(space + 1);
    lines.back() = lines.back().left(space);
    lines.push_back(rest);
    space = -1;
    width = 0;
    for (int j = 0; j < rest.getLength(); ++j)
      width += widthOf(rest.getAt(j)) * text.textHeight();
  }
  return lines;
}

} // namespace

void R12Drawing::normal(const OdGeVector3d& n) {
  if (n.x == 0 && n.y == 0 && n.z == 1)
    return;
  sink().real(210, n.x);
  sink().real(220, n.y);
  sink().real(230, n.z);
}

void R12Drawing::line(const OdGePoint3d& from, const OdGePoint3d& to) {
  writer_.begin("LINE", source_);
  point(10, from);
  point(11, to);
}

void R12Drawing::vertex(const OdGePoint3d& p, int flags) {
  writer_.begin("VERTEX", source_);
  point(10, p);
  if (flags != 0)
    sink().integer(70, flags);
}

void R12Drawing::polyline(const std::vector<OdGePoint3d>& points, bool closed) {
  constexpr int kInSpace = 8, kVertexInSpace = 32;
  writer_.begin("POLYLINE", source_);
  sink().integer(66, 1);
  point(10, OdGePoint3d());
  sink().integer(70, kInSpace | (closed ? 1 : 0));
  for (const OdGePoint3d& p : points)
    vertex(p, kVertexInSpace);
  writer_.begin("SEQEND", source_);
}

void R12Drawing::polyline(const OdDbPolyline& polyline) {
  writer_.begin("POLYLINE", source_);
  sink().integer(66, 1);
  point(10, OdGePoint3d(0, 0, polyline.elevation()));
  if (polyline.thickness() != 0)
    sink().real(39, polyline.thickness());
  if (polyline.isClosed())
    sink().integer(70, 1);
  const double width = polyline.getConstantWidth();
  if (width != 0) {
    sink().real(40, width);
    sink().real(41, width);
  }
  normal(polyline.normal());
  for (unsigned i = 0; i < polyline.numVerts(); ++i) {
    const OdDbPolyline::Vertex& one = polyline.vertexAt(i);
    vertex(OdGePoint3d(one.point.x, one.point.y, polyline.elevation()), 0);
    const double start = one.startWidth != 0 ? one.startWidth : width, end = one.endWidth != 0 ? one.endWidth : width;
    if (start != 0 || end != 0) {
      sink().real(40, start);
      sink().real(41, end);
    }
    if (one.bulge != 0)
      sink().real(42, one.bulge);
  }
  writer_.begin("SEQEND", source_);
}

void R12Drawing::face(const std::vector<OdGePoint3d>& corners) {
  writer_.begin("3DFACE", source_);
  for (int i = 0; i < 4; ++i)
    point(10 + i, corners[std::min<std::size_t>(static_cast<std::size_t>(i), corners.size() - 1)]);
}

void R12Drawing::solid(const Trapezoid& corners, double elevation, const OdGeVector3d& n) {
  writer_.begin("SOLID", source_);
  for (int i = 0; i < 4; ++i) {
    const OdGePoint2d& corner = corners[static_cast<std::size_t>(i)];
    point(10 + i, OdGePoint3d(corner.x, corner.y, elevation));
  }
  normal(n);
}

void R12Drawing::reference(const OdString& block, const OdGePoint3d& position, double scale, double angleRad) {
  writer_.begin("INSERT", source_);
  writer_.name("INSERT", 2, block.toUtf8Lossless());
  point(10, position);
  for (int code = 41; code <= 43 && scale != 1; ++code)
    sink().real(code, scale);
  if (angleRad != 0)
    sink().real(50, toDegrees(angleRad));
}

std::size_t R12Drawing::lines(const OdDbMText& text) {
  const std::vector<OdString> broken = brokenLines(text);
  const double height = text.textHeight() > 0 ? text.textHeight() : 1;
  const double step = height * kLineStep * text.lineSpacingFactor();
  const double total = step * static_cast<double>(broken.size() - 1) + height;
  const int row = (text.attachment() - 1) / 3, column = (text.attachment() - 1) % 3; // from the top, from the left
  const OdGeVector3d right = text.direction().isZeroLength() ? OdGeVector3d(1, 0, 0) : text.direction().normal();
  const OdGeVector3d up = text.normal().crossProduct(right).normal();
  const OdGeMatrix3d plane = OdGeMatrix3d::worldToPlane(text.normal());
  double below = -height + (row == 0 ? 0 : row == 1 ? total / 2 : total);
  std::size_t written = 0;
  for (const OdString& words : broken) {
    const OdGePoint3d position = plane * (text.location() + up * below);
    below -= step;
    if (words.isEmpty())
      continue;
    ++written;
    writer_.begin("TEXT", source_);
    point(10, position);
    sink().real(40, height);
    writer_.text(1, words);
    sink().real(50, toDegrees(text.rotation()));
    if (const auto* style = getIf<OdDbTextStyleTableRecord>(text.textStyle()))
      writer_.name("TEXT", 7, style->getName().toUtf8Lossless());
    if (column != 0) {
      sink().integer(72, column);
      point(11, position);
    }
    normal(text.normal());
  }
  return written;
}

double R12Drawing::reach() const {
  const OdGePoint3d low = writer_.database().headerPoint("EXTMIN"), high = writer_.database().headerPoint("EXTMAX");
  const double length = (high - low).length();
  return high.x >= low.x && length > 0 && length < 1e15 ? length : kUsualReach;
}

double R12Drawing::dimensionTextHeight(OdDbObjectId style) const {
  const auto* record = getIf<OdDbDimStyleTableRecord>(style);
  const double height = record == nullptr ? 0 : record->dimtxt() * (record->dimscale() > 0 ? record->dimscale() : 1);
  return height > 0 ? height : 1;
}

} // namespace drawing::dxf

// Dimensions. A drawing holds a picture of each as a block; those without one are drawn plainly.
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDimension.h"
#include "DbSymbolRecords.h"
#include "Ge/GeUtil.h"
#include "drawing/gi/draw/arrows.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/gi/draw/mtext_box.h"
#include "drawing/gi/text/text_style.h"
#include "drawing/model/object_store.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

struct DimensionTraits {
  double textHeight = 0.18, arrowSize = 0.18;
  OdDbObjectId arrow;
  Font font;
};

DimensionTraits traitsOf(const OdDbDimension& dimension) {
  const auto* style = getIf<OdDbDimStyleTableRecord>(dimension.dimensionStyle());
  if (style == nullptr)
    return {};
  const double scale = style->dimscale() > 0 ? style->dimscale() : 1;
  return {style->dimtxt() * scale, style->dimasz() * scale, style->dimblk(), fontOfStyle(style->dimtxsty())};
}

// What was measured, in the place of <> or of an empty text.
OdString textOf(const OdDbDimension& dimension, double measured, const Canvas& canvas) {
  OdString number;
  const int decimals = static_cast<int>(std::clamp<std::int64_t>(canvas.database().headerInt("DIMDEC", 2), 0, 8));
  number.format(L"%.*f", decimals, dimension.getMeasurement() > 0 ? dimension.getMeasurement() : measured);
  if (decimals > 0) {
    while (number.right(1) == L"0")
      number = number.left(number.getLength() - 1);
    if (number.right(1) == L".")
      number = number.left(number.getLength() - 1);
  }
  OdString text = dimension.dimensionText();
  if (text.isEmpty())
    return number;
  text.replace(L"<>", number);
  return text;
}

// Letters along the line, turned so that they are not upside down.
void drawDimensionText(const OdDbDimension& dimension, const DimensionTraits& traits, const OdString& text,
                       const OdGeVector3d& along, Canvas& canvas) {
  const OdGeVector3d inPlane = OdGeMatrix3d::worldToPlane(dimension.normal()) * along;
  double angle = std::atan2(inPlane.y, inPlane.x) + dimension.textRotation();
  if (std::cos(angle) < -1e-9)
    angle += kPi;
  Frame frame;
  frame.textHeight = traits.textHeight;
  frame.align = Align::kCenter;
  TextBox box;
  box.attachment = 5;
  box.toBlock = OdGeMatrix3d::translation(dimension.textPosition().asVector()) *
                OdGeMatrix3d::planeToWorld(dimension.normal()) * OdGeMatrix3d::rotation(angle, {0, 0, 1});
  box.block = layOut(readMText(text.visible(), {traits.font, traits.textHeight, 1, 0, {}}), frame, canvas.shaper());
  drawTextBox(box, canvas);
}

OdGeVector3d directionOf(const OdDbLinearDimension& dimension) {
  const auto* rotated = OdDbRotatedDimension::cast(&dimension).get();
  if (rotated == nullptr)
    return (dimension.xLine2Point() - dimension.xLine1Point()).normal();
  return OdGeMatrix3d::planeToWorld(dimension.normal()) *
         OdGeVector3d(std::cos(rotated->rotation()), std::sin(rotated->rotation()), 0);
}

void drawPlainLinear(const OdDbLinearDimension& dimension, const DimensionTraits& traits, Canvas& canvas) {
  const OdGeVector3d along = directionOf(dimension);
  const OdGePoint3d on = dimension.dimLinePoint();
  const auto foot = [&](const OdGePoint3d& point) { return on + along * (point - on).dotProduct(along); };
  const OdGePoint3d first = foot(dimension.xLine1Point()), second = foot(dimension.xLine2Point());
  canvas.line(dimension.xLine1Point(), first);
  canvas.line(dimension.xLine2Point(), second);
  canvas.line(first, second);
  drawArrow(first, second, dimension.normal(), traits.arrowSize, traits.arrow, canvas);
  drawArrow(second, first, dimension.normal(), traits.arrowSize, traits.arrow, canvas);
  drawDimensionText(dimension, traits, textOf(dimension, first.distanceTo(second), canvas), along, canvas);
}

void drawPlainRound(const OdDbRoundDimension& dimension, const DimensionTraits& traits, Canvas& canvas) {
  const OdGePoint3d from = dimension.definitionPoint(), to = dimension.chordPoint();
  canvas.line(from, to);
  drawArrow(to, from, dimension.normal(), traits.arrowSize, traits.arrow, canvas);
  drawDimensionText(dimension, traits, textOf(dimension, from.distanceTo(to), canvas), to - from, canvas);
}

} // namespace

// The picture is drawn in the coordinates that the dimension has.
void drawDimension(const OdDbDimension& dimension, Canvas& canvas) {
  if (isAlive(getIf<OdDbBlockTableRecord>(dimension.dimBlockId()))) {
    canvas.show(dimension.dimBlockId(), OdGeMatrix3d::kIdentity);
    return;
  }
  canvas.reportNotDrawn("no-picture");
  const DimensionTraits traits = traitsOf(dimension);
  if (dimension.isKindOf(OdDbLinearDimension::desc()))
    drawPlainLinear(static_cast<const OdDbLinearDimension&>(dimension), traits, canvas);
  else if (dimension.isKindOf(OdDbRoundDimension::desc()))
    drawPlainRound(static_cast<const OdDbRoundDimension&>(dimension), traits, canvas);
}

} // namespace drawing::gi

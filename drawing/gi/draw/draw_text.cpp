// Single-line text, attributes and their definitions.
#include "DbAttribute.h"
#include "DbDatabase.h"
#include "Ge/GeUtil.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/gi/text/text_style.h"

#include <cmath>

namespace drawing::gi {

namespace {

// The parts of a line with where each begins, in heights of a capital.
struct TextLine {
  struct Part {
    ShapedText shaped;
    double x = 0, y = 0;
    Piece piece;
  };
  std::vector<Part> parts;
  double width = 0;
};

void add(const Font& font, Piece piece, TextLine& line, Canvas& canvas) {
  TextLine::Part part{canvas.shaper().shape(font, piece.text), line.width, 0, {}};
  line.width += part.shaped.width;
  if (part.shaped.missing > 0)
    canvas.reportNotDrawn("letters");
  part.piece = std::move(piece);
  line.parts.push_back(std::move(part));
}

// Letter under letter, each in the middle of the column.
void stack(TextLine& line) {
  constexpr double kStep = 1.5;
  double y = -1;
  for (TextLine::Part& part : line.parts) {
    part.x = -part.shaped.width / 2;
    part.y = y;
    y -= kStep;
  }
  line.width = 0;
}

TextLine shapeLine(const OdDbText& text, const OdString& string, Canvas& canvas) {
  TextLine line;
  const Font font = fontOfStyle(text.textStyle());
  const bool isVertical = isVerticalStyle(text.textStyle());
  for (Piece& piece : piecesOf(string.visible())) {
    for (const wchar_t letter : isVertical ? piece.text : std::wstring())
      add(font, {std::wstring(1, letter), piece.under, piece.over, piece.through}, line, canvas);
    if (!isVertical)
      add(font, std::move(piece), line, canvas);
  }
  if (isVertical)
    stack(line);
  return line;
}

// Where the line begins in heights of a capital, and what one of these is along the line and across it.
struct Fitting {
  OdGePoint3d base;
  double rotation = 0, along = 0, across = 0;
  double x = 0, y = 0;
};

bool isBetweenPoints(const OdDbText& text) {
  return text.horizontalMode() == OdDbText::kAligned || text.horizontalMode() == OdDbText::kFit;
}

// Between two points the text turns and grows so that it fills the way.
void fitBetween(const OdDbText& text, const OdGePoint3d& from, const OdGePoint3d& to, double width, Fitting& fitting) {
  const double distance = std::hypot(to.x - from.x, to.y - from.y);
  if (width <= 0 || distance <= 0)
    return;
  fitting.rotation = std::atan2(to.y - from.y, to.x - from.x);
  fitting.along = distance / width;
  if (text.horizontalMode() == OdDbText::kAligned && text.widthFactor() != 0)
    fitting.across = fitting.along / text.widthFactor();
}

Fitting fit(const OdDbText& text, double width) {
  const OdGeMatrix3d toPlane = OdGeMatrix3d::worldToPlane(text.normal());
  const OdGePoint3d position = toPlane * text.position(), alignment = toPlane * text.alignmentPoint();
  const auto horizontal = text.horizontalMode();
  const auto vertical = text.verticalMode();
  const bool isPlaced = horizontal == OdDbText::kLeft && vertical == OdDbText::kBase;
  Fitting fitting{isPlaced || isBetweenPoints(text) ? position : alignment, text.rotation(),
                  text.height() * text.widthFactor(), text.height()};
  if (isBetweenPoints(text))
    fitBetween(text, position, alignment, width, fitting);
  constexpr double kDepth = 1.0 / 3; // of letters below the base line
  const double shareX[] = {0, 0.5, 1, 0, 0.5, 0}, downY[] = {0, -kDepth, 0.5, 1};
  if (horizontal >= 0 && horizontal <= OdDbText::kFit)
    fitting.x = -width * shareX[horizontal];
  if (vertical >= 0 && vertical <= OdDbText::kTop)
    fitting.y = -downY[vertical];
  if (horizontal == OdDbText::kMid)
    fitting.y = -0.5;
  return fitting;
}

OdGeMatrix3d textToBlock(const OdDbText& text, const Fitting& fitting) {
  OdGeMatrix3d glyphsToBlock = OdGeMatrix3d::kIdentity;
  glyphsToBlock(0, 0) = fitting.along * (text.isMirroredInX() ? -1 : 1);
  glyphsToBlock(1, 1) = fitting.across * (text.isMirroredInY() ? -1 : 1);
  glyphsToBlock(0, 1) = glyphsToBlock(1, 1) * std::tan(text.oblique());
  return OdGeMatrix3d::planeToWorld(text.normal()) * OdGeMatrix3d::translation(fitting.base.asVector()) *
         OdGeMatrix3d::rotation(fitting.rotation, {0, 0, 1}) * glyphsToBlock *
         OdGeMatrix3d::translation({fitting.x, fitting.y, 0});
}

void drawBars(const TextLine::Part& part, const OdGeMatrix3d& toBlock, Canvas& canvas) {
  const struct {
    bool shows;
    double y;
  } bars[] = {{part.piece.under, -0.2}, {part.piece.over, 1.2}, {part.piece.through, 0.5}};
  for (const auto& bar : bars) {
    if (bar.shows)
      canvas.line(toBlock * OdGePoint3d(part.x, part.y + bar.y, 0),
                  toBlock * OdGePoint3d(part.x + part.shaped.width, part.y + bar.y, 0));
  }
}

void drawString(const OdDbText& text, const OdString& string, Canvas& canvas) {
  drawStringAt(text, string, OdGeMatrix3d::kIdentity, canvas);
}

// ATTMODE: no attributes, those that are visible, or all.
bool showsAttribute(const OdDbAttributeBase& attribute, const Canvas& canvas) {
  const std::int64_t mode = canvas.database().headerInt("ATTMODE", 1);
  return mode != 0 && (mode == 2 || !attribute.isInvisible());
}

} // namespace

void drawStringAt(const OdDbText& text, const OdString& string, const OdGeMatrix3d& transform, Canvas& canvas) {
  canvas.charge(static_cast<std::size_t>(string.getLength()));
  const TextLine line = shapeLine(text, string, canvas);
  const OdGeMatrix3d toBlock = transform * textToBlock(text, fit(text, line.width));
  for (const TextLine::Part& part : line.parts) {
    canvas.text(part.shaped, toBlock * OdGeMatrix3d::translation({part.x, part.y, 0}), canvas.traits().color);
    drawBars(part, toBlock, canvas);
  }
}

void drawText(const OdDbText& text, Canvas& canvas) {
  drawString(text, text.textString(), canvas);
}

void drawAttribute(const OdDbAttribute& attribute, Canvas& canvas) {
  if (!showsAttribute(attribute, canvas))
    return;
  if (const OdDbMTextPtr text = attribute.getMTextAttribute(); !text.isNull())
    drawMText(*text, canvas);
  else
    drawString(attribute, attribute.textString(), canvas);
}

// A definition is drawn as its tag, and in references only if it is constant: then as its text.
void drawAttributeDefinition(const OdDbAttributeDefinition& definition, Canvas& canvas) {
  if (canvas.context().showsTags)
    return drawString(definition, definition.tag(), canvas);
  if (!definition.isConstant() || !showsAttribute(definition, canvas))
    return;
  if (const OdDbMTextPtr text = definition.getMTextAttribute(); !text.isNull())
    drawMText(*text, canvas);
  else
    drawString(definition, definition.textString(), canvas);
}

} // namespace drawing::gi

// Text of several lines.
#include "DbMText.h"
#include "Ge/GeUtil.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/gi/draw/mtext_box.h"
#include "drawing/gi/text/text_style.h"
#include "drawing/records/raw_groups.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

constexpr std::int64_t kMaxColumns = 1000;

// The groups of columns: of a text that is written in two forms, the newer one behind group 101.
struct ColumnCodes {
  int kind, count, height, width, gutter;
};
constexpr ColumnCodes kEmbedded{71, 72, 46, 44, 45}, kPlain{75, 76, 50, 48, 49};

GroupList groupsAfterMarker(const GroupList& groups, bool& isEmbedded) {
  const std::size_t marker = groups.find(101);
  GroupList rest;
  isEmbedded = marker < groups.size();
  const std::size_t first = isEmbedded ? marker + 1 : 0;
  rest.append(groups, first, groups.size() - first);
  return rest;
}

void takeColumns(const OdDbMText& text, Frame& frame) {
  bool isEmbedded = false;
  const GroupList groups = groupsAfterMarker(text.furtherGroups(), isEmbedded);
  const ColumnCodes& codes = isEmbedded ? kEmbedded : kPlain;
  if (rawInteger(groups, codes.kind) == 0)
    return;
  frame.width = rawReal(groups, codes.width, frame.width);
  frame.gutter = rawReal(groups, codes.gutter);
  const double height = isEmbedded ? rawReal(groups, 41, text.definedHeight()) : text.definedHeight();
  for (std::size_t i = groups.find(codes.height); i < groups.size(); i = groups.find(codes.height, i + 1))
    frame.columns.push_back({groups[i].kind == GroupKind::kReal ? groups[i].real : 0});
  const auto count =
      static_cast<std::size_t>(std::clamp<std::int64_t>(rawInteger(groups, codes.count), 0, kMaxColumns));
  const std::size_t wanted = count > 0 ? count : std::size_t{kMaxColumns};
  while (frame.columns.size() < wanted && height > 0)
    frame.columns.push_back({height});
}

// The box behind the letters, in the colour that the text has for it.
void drawBackground(const OdDbMText& text, const TextBox& box, Canvas& canvas) {
  constexpr std::int64_t kColor = 1, kOfWindow = 2, kFrame = 16;
  const GroupList& groups = text.furtherGroups();
  const std::size_t flag = groups.find(90);
  if (flag >= groups.size() || flag > groups.find(101))
    return;
  const std::int64_t fill = groups[flag].integer;
  const double margin = (rawReal(groups, 45, 1.5) - 1) * text.textHeight();
  const Path outline = outlineOf(box, margin);
  const OdCmColor color{static_cast<std::int16_t>(rawInteger(groups, 63, 7)),
                        static_cast<std::int32_t>(rawInteger(groups, 421, -1))};
  if ((fill & kOfWindow) != 0)
    canvas.fill({outline}, canvas.resolver().background());
  else if ((fill & kColor) != 0)
    canvas.fill({outline}, canvas.resolver().colorOf(color, canvas.traits(), canvas.traits().color));
  if ((fill & kFrame) != 0)
    canvas.stroke(outline, true);
}

Align alignOf(int attachment) {
  constexpr Align kColumns[] = {Align::kLeft, Align::kCenter, Align::kRight};
  return kColumns[(attachment - 1) % 3];
}

} // namespace

void drawMText(const OdDbMText& text, Canvas& canvas) {
  TextBox box;
  box.attachment = std::clamp<int>(text.attachment(), 1, 9);
  Frame frame;
  frame.width = text.width();
  frame.textHeight = text.textHeight();
  frame.lineSpacing = text.lineSpacingFactor() > 0 ? text.lineSpacingFactor() : 1;
  frame.align = alignOf(box.attachment);
  takeColumns(text, frame);
  const OdGeMatrix3d plane = OdGeMatrix3d::planeToWorld(text.normal());
  box.toBlock = OdGeMatrix3d::translation(text.location().asVector()) * plane *
                OdGeMatrix3d::rotation(text.rotation(), {0, 0, 1});
  const CharFormat format{fontOfStyle(text.textStyle()), text.textHeight(), widthFactorOfStyle(text.textStyle()),
                          obliqueOfStyle(text.textStyle()), std::nullopt};
  canvas.charge(static_cast<std::size_t>(text.contents().getLength()));
  box.block = layOut(readMText(text.contents().visible(), format), frame, canvas.shaper());
  drawBackground(text, box, canvas);
  drawTextBox(box, canvas);
}

} // namespace drawing::gi

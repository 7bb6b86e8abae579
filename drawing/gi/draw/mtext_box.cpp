#include "drawing/gi/draw/mtext_box.h"

#include <cmath>

namespace drawing::gi {

namespace {

OdGeVector3d cornerOf(const TextBox& box) {
  const int column = (box.attachment - 1) % 3, row = (box.attachment - 1) / 3;
  return {-box.block.width * column / 2, box.block.height * row / 2, 0};
}

} // namespace

Path outlineOf(const TextBox& box, double margin) {
  const OdGePoint3d corner = OdGePoint3d() + cornerOf(box);
  const double left = corner.x - margin, right = corner.x + box.block.width + margin;
  const double top = corner.y + margin, bottom = corner.y - box.block.height - margin;
  Path path;
  for (const OdGePoint3d& point : {OdGePoint3d(left, bottom, 0), OdGePoint3d(right, bottom, 0),
                                   OdGePoint3d(right, top, 0), OdGePoint3d(left, top, 0)})
    path.push_back(box.toBlock * point);
  return path;
}

void drawTextBox(const TextBox& box, Canvas& canvas) {
  const OdGeMatrix3d toBlock = box.toBlock * OdGeMatrix3d::translation(cornerOf(box));
  const Color own = canvas.traits().color;
  const auto colorOf = [&](const CharFormat& format) {
    return format.color ? canvas.resolver().colorOf(*format.color, canvas.traits(), own) : own;
  };
  for (const PlacedWord& word : box.block.words) {
    OdGeMatrix3d glyphsToBlock = OdGeMatrix3d::kIdentity;
    glyphsToBlock(0, 0) = word.format.height * word.format.widthFactor;
    glyphsToBlock(1, 1) = word.format.height;
    glyphsToBlock(0, 1) = word.format.height * std::tan(word.format.oblique);
    canvas.text(word.shaped, toBlock * OdGeMatrix3d::translation({word.x, word.y, 0}) * glyphsToBlock,
                colorOf(word.format));
  }
  for (const Bar& bar : box.block.bars) {
    Pen pen = canvas.pen();
    pen.pattern = nullptr;
    pen.color = colorOf(bar.format);
    canvas.stroke({toBlock * OdGePoint3d(bar.x, bar.y, 0), toBlock * OdGePoint3d(bar.toX, bar.toY, 0)}, false, pen);
  }
  if (box.block.missing > 0)
    canvas.reportNotDrawn("letters");
}

} // namespace drawing::gi

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
  const auto colorOf = [&](const LetterLook& look) {
    return look.color ? canvas.looks().colorOf(*look.color, canvas.traits(), own) : own;
  };
  for (const PlacedWord& word : box.block.words) {
    OdGeMatrix3d letters = OdGeMatrix3d::kIdentity;
    letters(0, 0) = word.look.height * word.look.widthFactor;
    letters(1, 1) = word.look.height;
    letters(0, 1) = word.look.height * std::tan(word.look.oblique);
    canvas.text(word.shaped, toBlock * OdGeMatrix3d::translation({word.x, word.y, 0}) * letters, colorOf(word.look));
  }
  for (const Bar& bar : box.block.bars) {
    Pen pen = canvas.pen();
    pen.pattern = nullptr;
    pen.color = colorOf(bar.look);
    canvas.stroke({toBlock * OdGePoint3d(bar.x, bar.y, 0), toBlock * OdGePoint3d(bar.toX, bar.toY, 0)}, false, pen);
  }
  if (box.block.missing > 0)
    canvas.leaveOut("letters");
}

} // namespace drawing::gi

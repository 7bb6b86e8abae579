// A block of text at its place.
#pragma once

#include "drawing/gi/draw/canvas.h"
#include "drawing/gi/text/mtext_layout.h"

namespace drawing::gi {

struct TextBox {
  TextBlock block;
  int attachment = 1; // 1 to 9, row by row: which point of the block is at the origin
  OdGeMatrix3d toBlock = OdGeMatrix3d::kIdentity;
};

Path outlineOf(const TextBox& box, double margin);
void drawTextBox(const TextBox& box, Canvas& canvas);

} // namespace drawing::gi

// What text styles say of letters.
#pragma once

#include "DbObjectId.h"
#include "drawing/gi/text/glyphs.h"

namespace drawing::gi {

// Fonts that only have strokes are shown in plain ones that look alike.
Font fontOfStyle(OdDbObjectId style);
// The same for the name of a font file or of a family.
Font fontNamed(const OdString& name);
bool isVerticalStyle(OdDbObjectId style); // letter under letter
double widthFactorOfStyle(OdDbObjectId style);
double obliqueOfStyle(OdDbObjectId style); // radians

// A part of a line of single-line text between its codes.
struct Piece {
  std::wstring text;
  bool under = false, over = false, through = false;
};
// Reads %%c, %%d, %%p, %%u, %%o, %%k, %%% and %%nnn.
MVDRAWING_API std::vector<Piece> piecesOf(std::wstring_view text);

} // namespace drawing::gi

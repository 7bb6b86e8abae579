// Formatting codes of text of several lines.
#pragma once

#include "DbEntity.h"
#include "drawing/gi/text/glyphs.h"

#include <optional>
#include <string>
#include <vector>

namespace drawing::gi {

enum class Align : std::uint8_t { kDefault, kLeft, kCenter, kRight };

struct CharFormat {
  Font font;
  double height = 1; // of a capital, drawing units
  double widthFactor = 1;
  double oblique = 0;             // radians
  std::optional<OdCmColor> color; // none: that of the text
  bool under = false, over = false, through = false;
};

struct ParagraphFormat {
  Align align = Align::kDefault;
  double firstIndent = 0, indent = 0; // in heights of the text
};

struct Word {
  enum Kind : std::uint8_t { kText, kSpace, kTab, kStack, kLineEnd, kColumnEnd };
  Kind kind = kText;
  std::wstring text;  // of a stack: the upper part
  std::wstring below; // of a stack
  bool hasBar = false;
  CharFormat format;
  ParagraphFormat paragraph;
};

// Text that is not a code stands for itself. Letters that may begin a line of their own (ideographs) are words of one
// letter.
MVDRAWING_API std::vector<Word> readMText(std::wstring_view contents, const CharFormat& format);

} // namespace drawing::gi

// Shapes of letters: a text in a font becomes outlines, with other fonts in the place of those that lack a letter.
#pragma once

#include "drawing/gi/scene/display_list.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class OdDbDatabase;

namespace drawing::gi {

struct Font {
  std::string family = "sans-serif"; // any name: the nearest font that is there is taken
  bool bold = false, italic = false;
  friend bool operator==(const Font&, const Font&) = default;
};

// A run of letters on a base line from the origin on, in heights of a capital letter.
struct ShapedText {
  struct Glyph {
    std::shared_ptr<const Outline> outline; // never null
    double x = 0, y = 0;
  };
  std::vector<Glyph> glyphs; // blanks have none
  double width = 0;          // how far the next run is
  Box box;                   // of the outlines
  std::size_t missing = 0;   // letters that no font has; each is an empty frame
};

class MVDRAWING_API TextShaper {
public:
  TextShaper();
  ~TextShaper();
  TextShaper(const TextShaper&) = delete;
  TextShaper& operator=(const TextShaper&) = delete;

  // Control characters are blanks. The answer lives until the next call.
  const ShapedText& shape(const Font& font, std::wstring_view text);

private:
  struct Engine;
  std::unique_ptr<Engine> engine_;
};

} // namespace drawing::gi

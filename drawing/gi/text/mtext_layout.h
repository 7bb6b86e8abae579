// Lines and columns of formatted words.
#pragma once

#include "drawing/gi/text/mtext_reader.h"

#include <vector>

namespace drawing::gi {

struct Column {
  double height = 0; // 0: as long as the text
};

struct Frame {
  double width = 0; // lines break there; 0: nowhere
  double textHeight = 1;
  double lineSpacing = 1; // factor
  Align align = Align::kLeft;
  double gutter = 0;
  std::vector<Column> columns; // the last one goes on for ever; empty: one
};

struct PlacedWord {
  ShapedText shaped;
  CharFormat format;
  double x = 0, y = 0; // where its base line begins; the upper left corner of the box is the origin
};

struct Bar {
  double x = 0, y = 0, toX = 0, toY = 0;
  CharFormat format;
};

struct TextBlock {
  std::vector<PlacedWord> words;
  std::vector<Bar> bars; // under and over letters, of fractions
  double width = 0, height = 0;
  std::size_t missing = 0;
};

MVDRAWING_API TextBlock layOut(const std::vector<Word>& words, const Frame& frame, TextShaper& shaper);

} // namespace drawing::gi

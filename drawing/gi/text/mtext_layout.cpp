#include "drawing/gi/text/mtext_layout.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

constexpr double kLineDistance = 5.0 / 3; // in heights of the letters
constexpr double kStackShare = 0.7;
constexpr double kTab = 4; // in heights of the text

// A word that was measured, in a line.
struct MeasuredWord {
  const Word* word;
  ShapedText upper, lower; // of a stack both
  double width = 0, x = 0;
};

struct Line {
  std::vector<MeasuredWord> words;
  ParagraphFormat paragraph;
  bool isFirst = true; // of its paragraph
  bool endsColumn = false;
  double width = 0, height = 0;
};

class LineMaker {
public:
  LineMaker(const Frame& frame, TextShaper& shaper) : frame_(frame), shaper_(shaper) {}

  std::vector<Line> make(const std::vector<Word>& words) {
    begin(true);
    for (const Word& word : words) {
      if (word.kind == Word::kLineEnd || word.kind == Word::kColumnEnd)
        end(word);
      else
        add(word);
    }
    finish();
    return std::move(lines_);
  }

private:
  void begin(bool isFirst) {
    lines_.emplace_back().isFirst = isFirst;
    x_ = -1;
    isSet_ = false;
  }

  void end(const Word& word) {
    take(word);
    finish();
    lines_.back().endsColumn = word.kind == Word::kColumnEnd;
    begin(true);
  }

  // The first word of a line has the alignment of its paragraph.
  void take(const Word& word) {
    Line& line = lines_.back();
    if (!isSet_) {
      line.paragraph = word.paragraph;
      x_ = indent();
      isSet_ = true;
    }
    if (line.words.empty())
      line.height = word.format.height;
  }

  double indent() const {
    const Line& line = lines_.back();
    const double first = line.isFirst ? line.paragraph.firstIndent : 0;
    return (line.paragraph.indent + first) * frame_.textHeight;
  }

  MeasuredWord measure(const Word& word) {
    MeasuredWord measured{&word, {}, {}, 0, 0};
    const double unit = word.format.height * word.format.widthFactor;
    if (word.kind == Word::kTab) {
      const double step = kTab * frame_.textHeight;
      measured.width = (std::floor(std::max(x_, 0.0) / step + 1) * step) - std::max(x_, 0.0);
    } else if (word.kind == Word::kStack) {
      measured.upper = shaper_.shape(word.format.font, word.text);
      measured.lower = shaper_.shape(word.format.font, word.below);
      measured.width = std::max(measured.upper.width, measured.lower.width) * unit * kStackShare;
    } else {
      measured.upper = shaper_.shape(word.format.font, word.kind == Word::kSpace ? L" " : word.text);
      measured.width = measured.upper.width * unit;
    }
    return measured;
  }

  void add(const Word& word) {
    take(word);
    MeasuredWord measured = measure(word);
    const bool isTooLong = frame_.width > 0 && x_ + measured.width > frame_.width * (1 + 1e-9);
    const std::size_t keep = isTooLong && word.kind != Word::kSpace ? breakBefore(word) : 0;
    if (keep > 0) {
      breakLine(keep);
      take(word);
      measured = measure(word);
    }
    Line& line = lines_.back();
    measured.x = x_;
    x_ += measured.width;
    line.height = line.words.empty() ? word.format.height : std::max(line.height, word.format.height);
    line.words.push_back(std::move(measured));
  }

  static bool isGlue(const MeasuredWord& before, const Word& word) {
    return before.word->kind == Word::kText && word.kind == Word::kText && &word == before.word + 1 &&
           !(before.word->text.back() >= 0x2E80 || word.text.front() >= 0x2E80);
  }

  // How many words of the line may stay when it breaks before that word, or before what that one goes on. What changes
  // its look over and over breaks anywhere.
  std::size_t breakBefore(const Word& word) const {
    constexpr std::size_t kLongest = 64;
    const std::vector<MeasuredWord>& words = lines_.back().words;
    std::size_t keep = words.size();
    for (const Word* next = &word; keep > 0 && isGlue(words[keep - 1], *next); --keep) {
      if (words.size() - keep == kLongest)
        return words.size();
      next = words[keep - 1].word;
    }
    return keep;
  }

  void breakLine(std::size_t keep) {
    std::vector<MeasuredWord>& words = lines_.back().words;
    std::vector<MeasuredWord> moved(std::make_move_iterator(words.begin() + static_cast<std::ptrdiff_t>(keep)),
                                    std::make_move_iterator(words.end()));
    words.resize(keep, {nullptr, {}, {}, 0, 0});
    const ParagraphFormat paragraph = lines_.back().paragraph;
    finish();
    begin(false);
    lines_.back().paragraph = paragraph;
    x_ = indent();
    isSet_ = true;
    for (MeasuredWord& word : moved) {
      word.x = x_;
      x_ += word.width;
      lines_.back().height = std::max(lines_.back().height, word.word->format.height);
      lines_.back().words.push_back(std::move(word));
    }
  }

  // Blanks at the end take no room.
  void finish() {
    Line& line = lines_.back();
    while (!line.words.empty() && line.words.back().word->kind == Word::kSpace)
      line.words.pop_back();
    line.width = line.words.empty() ? 0 : line.words.back().x + line.words.back().width;
    if (line.height == 0)
      line.height = frame_.textHeight;
  }

  const Frame& frame_;
  TextShaper& shaper_;
  std::vector<Line> lines_;
  double x_ = 0;
  bool isSet_ = false;
};

class Placer {
public:
  Placer(const Frame& frame, double width) : frame_(frame), width_(width) {}

  TextBlock place(const std::vector<Line>& lines) {
    bool isFirst = true;
    for (const Line& line : lines) {
      nextLine(line, isFirst);
      placeLine(line);
      block_.height = std::max(block_.height, -y_);
      isFirst = line.endsColumn;
      if (line.endsColumn)
        nextColumn();
    }
    block_.width = left_ + width_;
    return std::move(block_);
  }

private:
  void nextColumn() {
    ++column_;
    left_ += width_ + frame_.gutter;
    y_ = 0;
  }

  void nextLine(const Line& line, bool isFirst) {
    const double step = line.height * kLineDistance * frame_.lineSpacing;
    const bool isLastColumn = column_ + 1 >= frame_.columns.size();
    const double limit = column_ < frame_.columns.size() ? frame_.columns[column_].height : 0;
    if (!isFirst && !isLastColumn && limit > 0 && -y_ + step > limit * (1 + 1e-9)) {
      nextColumn();
      isFirst = true;
    }
    y_ -= isFirst ? line.height : step;
  }

  double shift(const Line& line) const {
    const Align align = line.paragraph.align == Align::kDefault ? frame_.align : line.paragraph.align;
    const double room = width_ - line.width;
    return left_ + (align == Align::kCenter ? room / 2 : align == Align::kRight ? room : 0);
  }

  void placeLine(const Line& line) {
    const double x = shift(line);
    for (const MeasuredWord& measured : line.words) {
      if (measured.word->kind == Word::kStack)
        placeStack(measured, x + measured.x);
      else if (measured.word->kind == Word::kText)
        put(measured.upper, measured.word->format, x + measured.x, y_);
      addBars(measured, x + measured.x);
    }
  }

  void put(const ShapedText& shaped, const CharFormat& format, double x, double y) {
    block_.missing += shaped.missing;
    if (!shaped.glyphs.empty())
      block_.words.push_back({shaped, format, x, y});
  }

  void placeStack(const MeasuredWord& measured, double x) {
    CharFormat small = measured.word->format;
    const double height = small.height, unit = height * kStackShare * small.widthFactor;
    small.height *= kStackShare;
    const double room = measured.width;
    put(measured.upper, small, x + (room - measured.upper.width * unit) / 2, y_ + 0.65 * height);
    put(measured.lower, small, x + (room - measured.lower.width * unit) / 2, y_ - 0.35 * height);
    if (measured.word->hasBar)
      block_.bars.push_back({x, y_ + height / 2, x + room, y_ + height / 2, measured.word->format});
  }

  void addBars(const MeasuredWord& measured, double x) {
    const CharFormat& format = measured.word->format;
    const struct {
      bool shows;
      double y;
    } bars[] = {{format.under, -0.2}, {format.over, 1.2}, {format.through, 0.5}};
    for (const auto& bar : bars) {
      if (bar.shows)
        block_.bars.push_back({x, y_ + bar.y * format.height, x + measured.width, y_ + bar.y * format.height, format});
    }
  }

  const Frame& frame_;
  double width_;
  TextBlock block_;
  std::size_t column_ = 0;
  double left_ = 0, y_ = 0;
};

} // namespace

TextBlock layOut(const std::vector<Word>& words, const Frame& frame, TextShaper& shaper) {
  const std::vector<Line> lines = LineMaker(frame, shaper).make(words);
  double width = frame.width;
  if (!(width > 0)) {
    for (const Line& line : lines)
      width = std::max(width, line.width);
  }
  return Placer(frame, width).place(lines);
}

} // namespace drawing::gi

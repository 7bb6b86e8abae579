// Letters: codes, places, sizes, lines and columns. Shapes of letters depend on the fonts that are there; what is
// asked here does not: a capital H is as high as its text says and stands on its base line.
#include "DbBlockTable.h"
#include "drawing/file.h"
#include "drawing/gi/text/mtext_layout.h"
#include "drawing/gi/text/text_style.h"
#include "tests/drawing/gi/shots.h"
#include "tests/support/drawings.h"

#include <cmath>
#include <sstream>

using namespace drawing::gi;
using namespace tests;

namespace {

std::string utf8(const std::wstring& text) {
  return OdString(text).toUtf8();
}

TEST(TextCodes, AreReadInTexts) {
  const std::pair<const wchar_t*, const char*> cases[] = {
      {L"plain 50%", "plain 50%"}, {L"%%c20 %%D%%p1", "⌀20 °±1"}, {L"a%%ub%%Oc%%ud", "a|_b|_~c|~d"},
      {L"%%kx%%k", "|-x|"},        {L"%%%%%065%%06", "%A%%06"},   {L"%%q%%", "%%q%%"},
  };
  for (const auto& [text, pieces] : cases) {
    std::string shown;
    for (const Piece& piece : piecesOf(text))
      shown += std::string(piece.under ? "_" : "") + (piece.over ? "~" : "") + (piece.through ? "-" : "") +
               utf8(piece.text) + "|";
    shown.pop_back();
    EXPECT_EQ(shown, pieces);
  }
}

CharFormat traitsOf(double height) {
  CharFormat format;
  format.height = height;
  return format;
}

std::string described(const std::vector<Word>& words) {
  std::ostringstream out;
  for (const Word& word : words) {
    const char* kinds[] = {"", "_", ">", "S:", "/", "//"};
    out << kinds[word.kind] << utf8(word.text)
        << (word.kind == Word::kStack ? (word.hasBar ? "-" : "^") + utf8(word.below) : "");
    if (word.kind == Word::kText || word.kind == Word::kStack) {
      const CharFormat& format = word.format;
      out << (format.height != 2 ? "*" + OdString().format(L"%g", format.height).toUtf8() : "")
          << (format.under ? "u" : "") << (format.over ? "o" : "") << (format.through ? "k" : "")
          << (format.font.bold ? "b" : "") << (format.font.italic ? "i" : "");
      if (format.color)
        out << "c" << (format.color->trueColor >= 0 ? format.color->trueColor : format.color->index);
      if (format.widthFactor != 1)
        out << "w" << format.widthFactor;
      if (format.oblique != 0)
        out << "q";
    }
    if (word.paragraph.align != Align::kDefault)
      out << "@" << static_cast<int>(word.paragraph.align);
    out << ' ';
  }
  std::string text = out.str();
  text.resize(text.size() - (text.empty() ? 0 : 1));
  return text;
}

TEST(TextCodes, AreReadInMTexts) {
  const std::pair<const wchar_t*, const char*> cases[] = {
      {L"one two", "one _ two"},
      {L"a\\Pb^Jc\\Nd", "a / b / c // d"},
      {L"{\\H3;big}small", "big*3 small"},
      {L"\\H1.5x;a{\\H2x;b}c", "a*3 b*6 c*3"},
      {L"\\Lu\\l\\Oo\\o\\Kk\\k", "uu oo kk"},
      {L"{\\fArial|b1|i1|c0;x}y", "xbi y"},
      {L"\\C1;r{\\c255;t}\\C256;l", "rc1 tc16711680 lc256"},
      {L"\\W0.5;n\\Q15;s", "nw0.5 sw0.5q"},
      {L"\\S1/2;\\S3^4;\\S5#6;\\Sx;", "S:1-2 S:3^4 S:5-6 S:x^"},
      {L"\\pxqc;mid\\P\\pqr;right", "mid@2 /@2 right@3"},
      {L"\\{\\}\\\\\\U+00B0%%c", "{}\\°⌀"},
      {L"a\\~b^Ic", "a\u00A0b > c"},
      {L"\x7BA1\x4E95x", "管 井 x"},
      {L"{{{open \\Hbad;x \\", "open _ x _ \\"},
      {L"}}\\S", "S:^"},
  };
  for (const auto& [text, words] : cases)
    EXPECT_EQ(described(readMText(text, traitsOf(2))), words) << utf8(text);
}

// What a text of one H or several covers, from the report of its picture.
OdGeExtents3d extentsOf(const std::string& entity) {
  const drawing::PictureReport report = reportOf(drawingOf(entity));
  EXPECT_FALSE(report.isEmpty) << entity;
  return report.extents;
}

TEST(Texts, AreAnchoredByTheirJustification) {
  constexpr double any = NAN;
  const struct {
    const char* properties;
    double left, middle, right, bottom, top;
  } cases[] = {
      {"10|10 20|20", 10, any, any, 20, 30},
      {"10|0 20|0 11|10 21|20 72|1", any, 10, any, 20, 30},
      {"10|0 20|0 11|10 21|20 72|2", any, any, 10, 20, 30},
      {"10|0 20|0 11|10 21|20 72|4", any, 10, any, 15, 25},
      {"10|0 20|0 11|10 21|20 72|1 73|2", any, 10, any, 15, 25},
      {"10|0 20|0 11|10 21|20 73|3", 10, any, any, 10, 20},
      {"10|0 20|0 11|10 21|20 72|2 73|3", any, any, 10, 10, 20},
      {"10|10 20|20 50|90", 0, any, 10, 20, any},
      {"10|10 20|20 50|180", any, any, 10, 10, 20},
      {"10|10 20|20 71|2", any, any, 10, 20, 30},
      {"10|10 20|20 71|4", 10, any, any, 10, 20},
      {"10|-10 20|20 210|0 220|0 230|-1", any, any, 10, 20, 30},
      {"10|10 20|20 11|110 21|20 72|5", 10, any, 110, 20, 30},
      {"10|10 20|20 11|10 21|120 72|5", 0, any, 10, 20, 120},
  };
  for (const auto& one : cases) {
    const OdGeExtents3d extents = extentsOf("0|TEXT 8|0 40|10 1|HHHH " + std::string(one.properties));
    const OdGePoint3d min = extents.minPoint(), max = extents.maxPoint();
    // The room that a letter leaves beside it; stretched letters leave more.
    const double bearing = std::string(one.properties).find("72|5") == std::string::npos ? 1.6 : 3.5;
    for (const auto& [is, wanted] :
         {std::pair(min.x, one.left), std::pair((min.x + max.x) / 2, one.middle), std::pair(max.x, one.right),
          std::pair(min.y, one.bottom), std::pair(max.y, one.top)})
      EXPECT_TRUE(std::isnan(wanted) || std::fabs(is - wanted) < bearing) << one.properties << ": " << is;
    EXPECT_NEAR(std::min(max.y - min.y, max.x - min.x), 10, 0.05) << one.properties;
  }
}

TEST(Texts, AreAsWideAsTheirFactors) {
  const auto width = [](const std::string& properties) {
    const OdGeExtents3d extents = extentsOf("0|TEXT 8|0 10|0 20|0 40|10 1|HHHH " + properties);
    return extents.maxPoint().x - extents.minPoint().x;
  };
  const double plain = width("");
  EXPECT_NEAR(width("41|0.5"), plain / 2, 1e-6);
  EXPECT_NEAR(width("51|45"), plain + 10, 1e-3);
  // Aligned, it grows in both directions.
  const OdGeExtents3d aligned = extentsOf("0|TEXT 8|0 10|0 20|0 11|200 21|0 72|3 40|10 1|HHHH");
  EXPECT_NEAR((aligned.maxPoint().x - aligned.minPoint().x) / aligned.maxPoint().y, plain / 10, 1e-6);
}

TextBlock block(const wchar_t* contents, Frame frame) {
  static TextShaper shaper;
  return layOut(readMText(contents, traitsOf(frame.textHeight)), frame, shaper);
}

// How far below the top the words stand, in tenths.
std::string places(const TextBlock& block) {
  std::string text;
  for (const PlacedWord& word : block.words)
    text += (text.empty() ? "" : " ") + std::to_string(std::lround(word.y * 10));
  return text;
}

TEST(MTexts, BreakIntoLinesAndColumns) {
  const struct {
    const wchar_t* contents;
    double width;
    std::vector<Column> columns;
    const char* heights; // of the base lines below the top, in tenths
  } cases[] = {
      {L"H H H", 0, {}, "-10 -10 -10"},
      {L"HHH HHH HHH", 4, {}, "-10 -27 -43"},
      {L"HHHHHHHHHHHH", 4, {}, "-10"},
      {L"H\\PH", 0, {}, "-10 -27"},
      {L"H\\P\\PH", 0, {}, "-10 -43"},
      {L"\\H2;H\\P\\H1;H", 0, {}, "-20 -37"},
      {L"H \\H2;H", 0, {}, "-20 -20"},
      {L"HH{\\C1;HH} H", 4, {}, "-10 -10 -27"},
      {L"HH HH{\\C1;HH}", 5, {}, "-10 -27 -27"}, // the word with two colours stays in one piece
      {L"\x4E95\x4E95\x4E95\x4E95\x4E95", 3, {}, "-10 -10 -27 -27 -43"},
      {L"H\\PH\\PH\\PH", 4, {{3}, {3}}, "-10 -27 -10 -27"},
      {L"H\\NH\\PH", 4, {{0}, {0}}, "-10 -10 -27"},
      {L"H\\PH\\PH\\PH", 4, {{1}, {2.7}, {9}}, "-10 -10 -27 -10"},
      {L"x\\S1/2;", 0, {}, "-10 -4 -14"},
  };
  for (const auto& one : cases) {
    Frame frame;
    frame.width = one.width;
    frame.columns = one.columns;
    EXPECT_EQ(places(block(one.contents, frame)), one.heights) << utf8(one.contents);
  }
  for (const auto& [align, share] :
       {std::pair(Align::kLeft, 0.0), std::pair(Align::kCenter, 0.5), std::pair(Align::kRight, 1.0)}) {
    Frame frame;
    frame.width = 30;
    frame.align = align;
    const TextBlock lines = block(L"HHH", frame);
    EXPECT_NEAR(lines.words[0].x + share * lines.words[0].shaped.width, share * 30, 1e-9);
  }
}

TEST(MTexts, AreAnchoredByTheirAttachmentPoint) {
  for (int attachment = 1; attachment <= 9; ++attachment) {
    const OdGeExtents3d box = extentsOf("0|MTEXT 8|0 100|AcDbMText 10|50 20|50 30|0 40|10 41|0 1|HH\\PHH 50|0 71|" +
                                        std::to_string(attachment));
    const double height = box.maxPoint().y - box.minPoint().y, width = box.maxPoint().x - box.minPoint().x;
    EXPECT_NEAR(height, 10 + 10 * 5.0 / 3, 0.05);
    EXPECT_NEAR(box.maxPoint().y, 50 + height * ((attachment - 1) / 3) / 2, 0.05) << attachment;
    EXPECT_NEAR(box.minPoint().x, 50 - width * ((attachment - 1) % 3) / 2, 2) << attachment;
  }
}

TEST(Attributes, ShowByTheirModes) {
  const struct {
    int flags;        // of the attribute or definition
    const char* mode; // ATTMODE
    bool shows;
  } cases[] = {{0, "1", true}, {1, "1", false}, {1, "2", true}, {0, "0", false}};
  for (const auto& one : cases) {
    const std::string text = " 8|0 10|0 20|0 40|10 1|HH 2|TAG ", header = "9|$ATTMODE 70|" + std::string(one.mode);
    const std::string attribute =
        insertOf("IN", "66|1 0|ATTRIB" + text + "70|" + std::to_string(one.flags) + " 0|SEQEND 8|0");
    const std::string constant = "0|ATTDEF 3|P" + text + "70|" + std::to_string(2 + one.flags);
    for (const auto& [reference, inner] : {std::pair(attribute, std::string()), std::pair(insertOf("IN"), constant)})
      EXPECT_EQ(reportOf(drawingOf(reference, blockOf("IN", inner), "", header)).isEmpty, !one.shows) << reference;
  }
  // Others show in their own block only, by their tags.
  const OdDbDatabasePtr database =
      drawingOf(insertOf("IN"), blockOf("IN", "0|ATTDEF 8|0 10|0 20|0 40|10 1|H 3|P 2|HHHH 70|0"));
  EXPECT_TRUE(reportOf(database).isEmpty);
  const drawing::Picture definition(database->symbol(OdDb::kBlockTable, L"IN"));
  EXPECT_GT(definition.report().extents.maxPoint().x, 25);
}

} // namespace

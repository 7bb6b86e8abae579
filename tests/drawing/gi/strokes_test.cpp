// Lines, areas, points and views of sheets: where they leave ink and where not.
#include "drawing/file.h"
#include "tests/drawing/gi/shots.h"
#include "tests/support/drawings.h"

#include <algorithm>
#include <cmath>

using namespace tests;

namespace {

TEST(Strokes, FollowTheirLineTypes) {
  const std::string tables =
      "0|LAYER 2|L 70|0 62|7 6|DASHED 0|ENDTAB 0|TABLE 2|LTYPE 70|2 0|LTYPE 2|DASHED 70|0 3|- 72|65 "
      "73|2 40|20 49|12 49|-8 0|LTYPE 2|DOTTED 70|0 3|. 72|65 73|2 40|25 49|0 49|-25";
  const std::string across = " 10|0 20|50.5 11|100 21|50.5";
  const struct {
    std::string entity;
    const char* scale; // LTSCALE
    const char* drawn; // at 5, 15, 25 ... 95
    const char* what;
  } cases[] = {
      {"0|LINE 8|0" + across, "1", "##########", "continuous"},
      {"0|LINE 8|0 6|DASHED" + across, "1", "#.#.#.#.#.", "dashes of twelve, gaps of eight"},
      {"0|LINE 8|L" + across, "1", "#.#.#.#.#.", "by layer"},
      {"0|LINE 8|L 6|CONTINUOUS" + across, "1", "##########", "against the layer"},
      {"0|LINE 8|0 6|DASHED 48|2" + across, "1", "##..##..##", "the line's own scale"},
      {"0|LINE 8|0 6|DASHED" + across, "2", "##..##..##", "the drawing's scale"},
      {"0|LINE 8|0 6|DASHED 48|0.01" + across, "1", "##########", "too fine to show"},
      {"0|LINE 8|0 6|DASHED 10|-1010 20|50.5 11|99 21|50.5", "1", ".#.#.#.#.#", "begins outside"},
      {"0|POLYLINE 8|0 6|DASHED 66|1 70|0 0|VERTEX 8|0 10|0 20|50.5 0|VERTEX 8|0 10|15 20|50.5 0|VERTEX 8|0 10|100 "
       "20|50.5 0|SEQEND 8|0",
       "1", "#.#.#.#.#.", "goes on over a corner"},
  };
  for (const auto& one : cases) {
    const Shot shot(drawingOf(one.entity, "", tables, "9|$LTSCALE 40|" + std::string(one.scale)));
    std::string drawn;
    for (std::size_t x = 5; x < 100; x += 10)
      drawn += shot.row(50.5)[x];
    EXPECT_EQ(drawn, one.drawn) << one.what;
  }
}

TEST(Strokes, AreWhereTheirCurvesAre) {
  const struct {
    const char* entity;
    double onX, onY, offX, offY;
  } cases[] = {
      {"0|LINE 8|0 10|10 20|10.5 11|90 21|10.5", 50, 10.5, 50, 14},
      {"0|CIRCLE 8|0 10|50 20|50 40|30.5", 80.5, 50, 50, 50},
      {"0|ARC 8|0 10|50 20|50 40|30.5 50|90 51|180", 28.5, 71.5, 71.5, 71.5},
      {"0|ARC 8|0 10|-50 20|50 40|30.5 50|0 51|90 210|0 220|0 230|-1", 28.5, 71.5, 71.5, 71.5},
      {"0|POLYLINE 8|0 66|1 70|0 0|VERTEX 8|0 10|20 20|50 42|1 0|VERTEX 8|0 10|80.5 20|50 0|SEQEND 8|0", 50.25, 19.75,
       50, 50},
      {"0|POLYLINE 8|0 66|1 70|1 40|6 41|6 0|VERTEX 8|0 10|20 20|20 0|VERTEX 8|0 10|80 20|20 0|VERTEX 8|0 10|80 20|80 "
       "0|SEQEND 8|0",
       50, 22, 50, 26},
      {"0|POLYLINE 8|0 66|1 70|0 40|20 41|0 0|VERTEX 8|0 10|10 20|50 0|VERTEX 8|0 10|90 20|50 0|SEQEND 8|0", 20, 57, 80,
       57},
      {"0|POLYLINE 8|0 66|1 70|8 0|VERTEX 8|0 70|32 10|10 20|10 30|5 0|VERTEX 8|0 70|32 10|90 20|90 30|-5 0|SEQEND 8|0",
       50.5, 50.5, 60, 40},
      {"0|POLYLINE 8|0 66|1 70|8 0|VERTEX 8|0 10|10 20|10 30|5 0|VERTEX 8|0 10|90 20|90 30|-5 0|SEQEND 8|0", 50.5, 50.5,
       60, 40}, // vertices that do not say where they belong
      {"0|3DFACE 8|0 70|1 10|10 20|10 11|90 21|10 12|90 22|90.5 13|10 23|90.5", 50, 90.5, 50, 10},
      {"0|POLYLINE 8|0 66|1 70|16 71|2 72|2 0|VERTEX 8|0 70|64 10|10 20|10 0|VERTEX 8|0 70|64 10|90 20|10 0|VERTEX 8|0 "
       "70|64 10|10 20|90.5 0|VERTEX 8|0 70|64 10|90 20|90.5 0|SEQEND 8|0",
       50, 90.5, 50, 50},
      {"0|POLYLINE 8|0 66|1 70|64 71|3 72|1 0|VERTEX 8|0 70|192 10|10 20|10 0|VERTEX 8|0 70|192 10|90 20|10 0|VERTEX "
       "8|0 70|192 10|90 20|90.5 0|VERTEX 8|0 70|128 10|0 20|0 71|1 72|2 73|-3 0|SEQEND 8|0",
       89.9, 50, 50, 50},
      {"0|DIMENSION 8|0 70|1 10|50 20|80.5 11|50 21|90 13|10 23|10 14|90 24|10", 30, 80.5, 50, 40},
      {"0|DIMENSION 8|0 70|0 10|50.5 20|50 11|60 21|50 13|10 23|10 14|30 24|90 50|90", 50.5, 30, 20, 50},
      {"0|DIMENSION 8|0 70|4 10|10 20|50.5 11|50 21|70 15|90 25|50.5", 50, 50.5, 50, 40},
      {"0|XLINE 8|0 100|AcDbXline 10|1000 20|50.5 11|1 21|0", 50, 50.5, 50, 54},
      {"0|RAY 8|0 100|AcDbRay 10|50 20|50.5 11|-1 21|0", 20, 50.5, 80, 50.5},
      {"0|ELLIPSE 8|0 100|AcDbEllipse 10|50 20|50 30|0 11|40 21|0 31|0 40|0.5 41|0 42|3.14159265", 50, 69.9, 50, 30},
      {"0|SPLINE 8|0 100|AcDbSpline 70|8 71|2 72|6 73|3 74|0 40|0 40|0 40|0 40|1 40|1 40|1 10|10 20|10 30|0 "
       "10|50 20|91 30|0 10|90 20|10 30|0",
       50, 50.5, 50, 80},
      {"0|SPLINE 8|0 100|AcDbSpline 70|8 71|3 72|0 73|0 74|3 11|10 21|10 31|0 11|50 21|70 31|0 11|90 21|10 31|0", 50,
       69.9, 50, 50},
      {"0|LWPOLYLINE 8|0 100|AcDbPolyline 90|2 70|0 43|8 10|10 20|50 10|90 20|50", 50, 53, 50, 56},
      {"0|LEADER 8|0 100|AcDbLeader 71|1 72|0 73|3 76|2 10|10 20|50.5 30|0 10|90 20|50.5 30|0", 50, 50.5, 50, 54},
      {"0|MESH 8|0 100|AcDbSubDMesh 71|2 72|0 91|0 92|3 10|10 20|10 30|0 10|90 20|10 30|0 10|50 20|90 30|0 "
       "93|4 90|3 90|0 90|1 90|2 94|0 95|0",
       50, 10.1, 50, 50},
      {"0|MLINE 8|0 100|AcDbMline 2|S 40|10 70|0 71|1 72|2 73|2 10|10 20|50 30|0 11|10 21|50 31|0 12|1 22|0 "
       "32|0 13|0 23|1 33|0 74|4 41|10.5 41|0 41|20 41|60 75|0 74|2 41|-10 41|0 75|0 11|90 21|50 31|0 12|1 "
       "22|0 32|0 13|0 23|1 33|0 74|2 41|10.5 41|0 75|0 74|2 41|-10 41|0 75|0",
       20, 60.5, 50, 60.5},
      {"0|MULTILEADER 8|0 100|AcDbMLeader 270|2 300|CONTEXT_DATA{ 40|1 41|5 140|16 304|HH 12|85 22|60 32|0 "
       "302|LEADER{ 290|1 10|60 20|50.5 30|0 11|1 21|0 31|0 40|20 304|LEADER_LINE{ 10|10 20|50.5 30|0 305|} "
       "303|} 301|} 172|2",
       75, 50.5, 85, 50.5}, // as far as the dogleg
      {"0|TOLERANCE 8|0 100|AcDbFcf 10|10 20|50 30|0 1|.5%%vA 11|1 21|0 31|0", 10.1, 50, 50, 50},
      {"0|IMAGE 8|0 100|AcDbRasterImage 90|0 10|10 20|10 30|0 11|0.5 21|0 31|0 12|0 22|0.5 32|0 13|160 23|81 70|7", 50,
       50.5, 50, 30},
      {"0|LINE 8|0 10|0 20|50.5 11|100 21|50.5 0|WIPEOUT 8|0 100|AcDbWipeout 90|0 10|0 20|0 30|0 11|100 21|0 "
       "31|0 12|0 22|100 32|0 13|1 23|1 70|7 280|1 71|1 91|2 14|-0.5 24|-0.5 14|0 24|0.5",
       75, 50.5, 25, 50.5},
  };
  for (const auto& one : cases) {
    const Shot shot(drawingOf(one.entity));
    EXPECT_NE(shot.at(one.onX, one.onY), kWhite) << one.entity;
    EXPECT_EQ(shot.at(one.offX, one.offY), kWhite) << one.entity;
  }
}

std::string loop(const std::string& from, const std::string& to) {
  return "92|3 72|0 73|1 93|4 10|" + from + " 20|" + from + " 10|" + to + " 20|" + from + " 10|" + to + " 20|" + to +
         " 10|" + from + " 20|" + to + " 97|0 ";
}

TEST(Fills, CoverTheirArea) {
  const std::string head = "0|HATCH 8|0 62|1 100|AcDbHatch 10|0 20|0 30|0 210|0 220|0 230|1 ";
  const std::string solid = head + "2|SOLID 70|1 71|0 ", end = "75|0 76|1 98|0 ";
  const struct {
    std::string hatch;
    std::size_t area;
    std::uint32_t color; // where it is filled: 15, 15
    const char* what;
  } cases[] = {
      {solid + "91|1 " + loop("10", "90") + end, 6400, kRed, "solid"},
      {solid + "91|2 " + loop("10", "90") + loop("30", "70") + end, 4800, kRed, "a hole"},
      {solid + "91|3 " + loop("10", "90") + loop("30", "70") + loop("40", "60") + end, 5200, kRed, "an island"},
      {solid + "91|1 " + loop("10", "90") + end +
           "450|1 451|0 460|0 461|0 452|0 462|0 453|2 463|0 63|5 421|255 463|1 63|2 421|65280 470|LINEAR",
       6400, kBlue, "a gradient begins with its first colour"},
      {head + "2|LINE 70|0 71|0 91|1 " + loop("10", "90") +
           "75|0 76|1 52|0 41|1 77|0 78|1 53|0 43|0 44|0.5 45|0 46|10 79|0 98|0",
       8 * 80, kWhite, "eight lines"},
  };
  for (const auto& one : cases) {
    const Shot shot(drawingOf(one.hatch));
    EXPECT_NEAR(static_cast<double>(shot.inked()), static_cast<double>(one.area), 0.05 * static_cast<double>(one.area))
        << one.what;
    EXPECT_EQ(shot.at(15, 15), one.color) << one.what;
    EXPECT_EQ(shot.report().extents.minPoint().x, 10) << one.what;
  }
}

TEST(Strokes, AreAsWideAsTheirWeights) {
  const auto height = [](const std::string& weight, const std::string& shows) {
    const std::string line = "0|LINE 8|0 370|" + weight + " 10|-10 20|50 11|110 21|50";
    return std::round(static_cast<double>(Shot(drawingOf(line, "", "", "9|$LWDISPLAY 290|" + shows)).inked()) / 100);
  };
  EXPECT_EQ(height("200", "1"), 8); // two millimetres at 96 pixels an inch
  EXPECT_EQ(height("200", "0"), 2); // one pixel, on the border of two
  EXPECT_EQ(height("0", "1"), 2);
}

TEST(Points, DrawTheirPointSymbols) {
  const struct {
    const char* header;
    bool middle, right, rim; // ink at the point, beside it on its own height, and on the circle around it
  } cases[] = {
      {"", true, false, false},
      {"9|$PDMODE 70|1 9|$PDSIZE 40|20", false, false, false},
      {"9|$PDMODE 70|2 9|$PDSIZE 40|20", true, true, false},
      {"9|$PDMODE 70|33 9|$PDSIZE 40|20", false, false, true},
      {"9|$PDMODE 70|34 9|$PDSIZE 40|-20", true, true, true},
  };
  for (const auto& one : cases) {
    const Shot shot(drawingOf("0|POINT 8|0 10|50.5 20|50.5", "", "", one.header));
    EXPECT_EQ(shot.at(50.5, 50.5) != kWhite, one.middle) << one.header;
    EXPECT_EQ(shot.at(56.5, 50.5) != kWhite, one.right) << one.header;
    EXPECT_EQ(shot.at(57.6, 57.6) != kWhite, one.rim) << one.header;
  }
}

TEST(Layouts, ShowModelSpaceInTheirViewports) {
  const std::string views =
      "0|VIEWPORT 67|1 8|0 10|50 20|50 40|100 41|100 68|1 69|1 0|VIEWPORT 67|1 8|RED 10|30 20|30 40|40 41|40 68|2 69|2 "
      "1001|ACAD 1000|MVIEW 1002|{ 1070|16 1010|0 1020|0 1030|0 1010|0 1020|0 1030|1 1040|0 1040|20 1040|5 1040|5 "
      "1040|50 1040|0 1040|0 1070|0 1070|1000 1070|1 1070|3 1070|0 1070|0 1070|0 1070|0 1040|0 1040|0 1040|0 1040|1 "
      "1040|1 1040|1 1040|1 1070|0 1002|{ 1003|GREEN 1002|} 1002|} ";
  const OdDbDatabasePtr database = drawingOf(square(0, 0, "62|5") + square(0, -10, "8|GREEN") + square(300, 0) + views,
                                             "", layer("RED", "70|0 62|1") + layer("GREEN", "70|0 62|3"));
  const Shot shot(database, database->getPaperSpaceId());
  // Twice as large, the middle 5, 5 of the view at 30, 30 of the sheet.
  EXPECT_EQ(shot.at(39, 39), kBlue);
  EXPECT_EQ(shot.at(41, 39), kWhite);
  EXPECT_EQ(shot.at(21, 19), kWhite);               // frozen in this view
  EXPECT_EQ(shot.at(10.2, 30) | 0xFFFF, 0xFFFFFFu); // the border is red
  EXPECT_NE(shot.at(10.2, 30), kWhite);
  EXPECT_EQ(shot.report().extents.maxPoint().x, 50);
}

} // namespace

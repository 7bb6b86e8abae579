// Lines, areas, points and views of sheets: where they leave ink and where not.
#include "DbDxf.h"
#include "tests/drawing/gi/shots.h"
#include "tests/support/drawings.h"

#include <algorithm>
#include <cmath>

using namespace gi_tests;

namespace {

// A drawing of the newest plain form, for kinds that early files do not have.
OdDbDatabasePtr modern(const std::string& entities, const std::string& tables = {}) {
  return tests::readWell(tests::dxf(tables + tests::section("ENTITIES", entities))).database;
}

TEST(Strokes, FollowTheirLineTypes) {
  const std::string types = "0|TABLE\n2|LTYPE\n70|2\n0|LTYPE\n2|DASHED\n70|0\n3|-\n72|65\n73|2\n40|20\n49|12\n49|-8\n"
                            "0|LTYPE\n2|DOTTED\n70|0\n3|.\n72|65\n73|2\n40|25\n49|0\n49|-25\n0|ENDTAB\n";
  const std::string layers = "0|TABLE\n2|LAYER\n70|1\n0|LAYER\n2|L\n70|0\n62|7\n6|DASHED\n0|ENDTAB\n";
  const struct {
    const char* line;   // its properties, and its places where they are not 0 to 100
    const char* header; // LTSCALE
    const char* drawn;  // at 5, 15, 25 ... 95
    const char* what;
  } cases[] = {
      {"8|0\n", "1", "##########", "continuous"},
      {"8|0\n6|DASHED\n", "1", "#.#.#.#.#.", "dashes of twelve, gaps of eight"},
      {"8|L\n", "1", "#.#.#.#.#.", "by layer"},
      {"8|L\n6|CONTINUOUS\n", "1", "##########", "against the layer"},
      {"8|0\n6|DASHED\n48|2\n", "1", "##..##..##", "the line's own scale"},
      {"8|0\n6|DASHED\n", "2", "##..##..##", "the drawing's scale"},
      {"8|0\n6|DASHED\n48|0.01\n", "1", "##########", "too fine to show"},
      {"8|0\n6|DASHED\n10|-1010\n20|50.5\n11|99\n21|50.5\n", "1", ".#.#.#.#.#", "begins outside"},
      {"8|0\n6|DASHED\n66|1\n70|0\n0|VERTEX\n8|0\n10|0\n20|50.5\n0|VERTEX\n8|0\n10|15\n20|50.5\n0|VERTEX\n8|0\n10|100\n"
       "20|50.5\n0|SEQEND\n8|0\n",
       "1", "#.#.#.#.#.", "goes on over a corner"},
  };
  for (const auto& one : cases) {
    const std::string line = one.line;
    const bool isPolyline = line.find("VERTEX") != line.npos, isPlaced = line.find("10|") != line.npos;
    const std::string file = "0|SECTION\n2|HEADER\n9|$ACADVER\n1|AC1009\n9|$LTSCALE\n40|" + std::string(one.header) +
                             "\n0|ENDSEC\n" + tests::section("TABLES", types + layers) +
                             tests::section("ENTITIES", (isPolyline ? "0|POLYLINE\n" : "0|LINE\n") + line +
                                                            (isPlaced ? "" : "10|0\n20|50.5\n11|100\n21|50.5\n"));
    const drawing::ReadResult read = tests::readWell(tests::dxf(file, ""));
    const std::string row = Shot(read.database).row(50.5);
    std::string drawn;
    for (std::size_t x = 5; x < 100; x += 10)
      drawn += row[x];
    EXPECT_EQ(drawn, one.drawn) << one.what << "\n" << row;
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
  };
  for (const auto& one : cases) {
    const Shot shot(drawingOf(one.entity));
    EXPECT_NE(shot.at(one.onX, one.onY), kWhite) << one.entity;
    EXPECT_EQ(shot.at(one.offX, one.offY), kWhite) << one.entity;
  }
}

TEST(Strokes, OfLaterKindsToo) {
  const struct {
    const char *kind, *groups;
    double onX, onY, offX, offY;
  } cases[] = {
      {"ELLIPSE", "100|AcDbEllipse\n10|50\n20|50\n30|0\n11|40\n21|0\n31|0\n40|0.5\n41|0\n42|3.14159265\n", 50, 69.9, 50,
       30},
      {"SPLINE",
       "100|AcDbSpline\n70|8\n71|2\n72|6\n73|3\n74|0\n40|0\n40|0\n40|0\n40|1\n40|1\n40|1\n10|10\n20|10\n30|0\n10|50\n"
       "20|91\n30|0\n10|90\n20|10\n30|0\n",
       50, 50.5, 50, 80},
      {"SPLINE",
       "100|AcDbSpline\n70|8\n71|3\n72|0\n73|0\n74|3\n11|10\n21|10\n31|0\n11|50\n21|70\n31|0\n11|90\n21|10\n31|0\n", 50,
       69.9, 50, 50},
      {"LWPOLYLINE", "100|AcDbPolyline\n90|2\n70|0\n43|8\n10|10\n20|50\n10|90\n20|50\n", 50, 53, 50, 56},
      {"LEADER", "100|AcDbLeader\n71|1\n72|0\n73|3\n76|2\n10|10\n20|50.5\n30|0\n10|90\n20|50.5\n30|0\n", 50, 50.5, 50,
       54},
      {"MESH",
       "100|AcDbSubDMesh\n71|2\n72|0\n91|0\n92|3\n10|10\n20|10\n30|0\n10|90\n20|10\n30|0\n10|50\n20|90\n30|0\n93|4\n"
       "90|3\n90|0\n90|1\n90|2\n94|0\n95|0\n",
       50, 10.1, 50, 50},
      {"MLINE",
       "100|AcDbMline\n2|S\n40|10\n70|0\n71|1\n72|2\n73|2\n10|10\n20|50\n30|0\n11|10\n21|50\n31|0\n12|1\n22|0\n32|0\n"
       "13|0\n23|1\n33|0\n74|4\n41|10.5\n41|0\n41|20\n41|60\n75|0\n74|2\n41|-10\n41|0\n75|0\n11|90\n21|50\n31|0\n12|1\n"
       "22|0\n32|0\n13|0\n23|1\n33|0\n74|2\n41|10.5\n41|0\n75|0\n74|2\n41|-10\n41|0\n75|0\n",
       20, 60.5, 50, 60.5},
      {"MULTILEADER",
       "100|AcDbMLeader\n270|2\n300|CONTEXT_DATA{\n40|1\n41|5\n140|16\n304|HH\n12|85\n22|60\n32|0\n302|LEADER{\n290|1\n"
       "10|60\n20|50.5\n30|0\n11|1\n21|0\n31|0\n40|20\n304|LEADER_LINE{\n10|10\n20|50.5\n30|0\n305|}\n303|}\n301|}\n"
       "172|2\n",
       75, 50.5, 85, 50.5}, // as far as the dogleg
      {"TOLERANCE", "100|AcDbFcf\n10|10\n20|50\n30|0\n1|.5%%vA\n11|1\n21|0\n31|0\n", 10.1, 50, 50, 50},
      {"IMAGE",
       "100|AcDbRasterImage\n90|0\n10|10\n20|10\n30|0\n11|0.5\n21|0\n31|0\n12|0\n22|0.5\n32|0\n13|160\n23|81\n70|7\n",
       50, 50.5, 50, 30},
      {"WIPEOUT",
       "100|AcDbWipeout\n90|0\n10|0\n20|0\n30|0\n11|100\n21|0\n31|0\n12|0\n22|100\n32|0\n13|1\n23|1\n70|7\n280|1\n"
       "71|1\n91|2\n14|-0.5\n24|-0.5\n14|0\n24|0.5\n",
       75, 50.5, 25, 50.5},
  };
  const auto entity = [](const std::string& kind, const char* handle, const std::string& groups) {
    return "0|" + kind + "\n5|" + handle + "\n100|AcDbEntity\n8|0\n" + groups;
  };
  const std::string under = entity("LINE", "9", "100|AcDbLine\n10|0\n20|50.5\n30|0\n11|100\n21|50.5\n31|0\n");
  for (const auto& one : cases) {
    const Shot shot(modern((one.kind == std::string("WIPEOUT") ? under : "") + entity(one.kind, "A", one.groups)));
    EXPECT_NE(shot.at(one.onX, one.onY), kWhite) << one.kind;
    EXPECT_EQ(shot.at(one.offX, one.offY), kWhite) << one.kind;
  }
}

std::string loop(double from, double to) {
  const std::string a = std::to_string(from), b = std::to_string(to);
  return "92|3\n72|0\n73|1\n93|4\n10|" + a + "\n20|" + a + "\n10|" + b + "\n20|" + a + "\n10|" + b + "\n20|" + b +
         "\n10|" + a + "\n20|" + b + "\n97|0\n";
}

TEST(Fills, CoverTheirArea) {
  const std::string head =
      "0|HATCH\n5|A\n100|AcDbEntity\n8|0\n62|1\n100|AcDbHatch\n10|0\n20|0\n30|0\n210|0\n220|0\n230|1\n";
  const std::string lines = "52|0\n41|1\n77|0\n78|1\n53|0\n43|0\n44|0.5\n45|0\n46|10\n79|0\n98|0\n";
  const struct {
    std::string hatch;
    std::size_t area;
    std::uint32_t color; // where it is filled: 15, 15
    const char* what;
  } cases[] = {
      {head + "2|SOLID\n70|1\n71|0\n91|1\n" + loop(10, 90) + "75|0\n76|1\n98|0\n", 6400, kRed, "solid"},
      {head + "2|SOLID\n70|1\n71|0\n91|2\n" + loop(10, 90) + loop(30, 70) + "75|0\n76|1\n98|0\n", 4800, kRed, "a hole"},
      {head + "2|SOLID\n70|1\n71|0\n91|3\n" + loop(10, 90) + loop(30, 70) + loop(40, 60) + "75|0\n76|1\n98|0\n", 5200,
       kRed, "an island"},
      {head + "2|SOLID\n70|1\n71|0\n91|1\n" + loop(10, 90) +
           "75|0\n76|1\n98|0\n450|1\n451|0\n460|0\n461|0\n452|0\n462|0\n453|2\n463|0\n63|5\n421|255\n463|1\n63|2\n"
           "421|65280\n470|LINEAR\n",
       6400, kBlue, "a gradient begins with its first colour"},
      {head + "2|LINE\n70|0\n71|0\n91|1\n" + loop(10, 90) + "75|0\n76|1\n" + lines, 8 * 80, kWhite, "eight lines"},
  };
  for (const auto& one : cases) {
    const Shot shot(modern(one.hatch));
    EXPECT_NEAR(static_cast<double>(shot.inked()), static_cast<double>(one.area), 0.05 * one.area) << one.what;
    EXPECT_EQ(shot.at(15, 15), one.color) << one.what;
    EXPECT_EQ(shot.report().extents.minPoint().x, 10) << one.what;
  }
}

TEST(Strokes, AreAsWideAsTheirWeights) {
  const auto height = [](const char* weight, const char* shows) {
    const drawing::ReadResult read = drawing::readDrawingFromMemory(tests::dxf(
        "0|SECTION\n2|HEADER\n9|$ACADVER\n1|AC1015\n9|$LWDISPLAY\n290|" + std::string(shows) + "\n0|ENDSEC\n" +
            tests::section("ENTITIES", "0|LINE\n5|A\n100|AcDbEntity\n8|0\n370|" + std::string(weight) +
                                           "\n100|AcDbLine\n10|-10\n20|50\n30|0\n11|110\n21|50\n31|0\n"),
        ""));
    return std::round(static_cast<double>(Shot(read.database).inked()) / 100);
  };
  EXPECT_EQ(height("200", "1"), 8); // two millimetres at 96 pixels an inch
  EXPECT_EQ(height("200", "0"), 2); // one pixel, on the border of two
  EXPECT_EQ(height("0", "1"), 2);
}

TEST(Points, ShowTheirSigns) {
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

TEST(Sheets, ShowModelSpaceInTheirViewports) {
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

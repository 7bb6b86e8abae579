// What shows and how: colours, layers, order, clipping, arrays, limits. A wrong pixel is a wrong rule.
#include "DbBlockTable.h"
#include "DbDictionary.h"
#include "DbSortentsTable.h"
#include "drawing/file.h"
#include "drawing/xref.h"
#include "tests/drawing/gi/shots.h"
#include "tests/support/drawings.h"

using namespace tests;

namespace {

const std::string kLayers = layer("0", "70|0 62|4") + layer("RED", "70|0 62|1") + layer("GREEN", "70|0 62|3") +
                            layer("OFF", "70|0 62|-5") + layer("FROZEN", "70|1 62|5");

TEST(PictureLook, ComesFromEntityLayerOrReference) {
  const struct {
    const char* content;   // of the block
    const char* reference; // to it
    std::uint32_t color;
    const char* what;
  } cases[] = {
      {"8|RED", "8|GREEN", kRed, "the entity's layer"},
      {"8|RED 62|5", "8|GREEN", kBlue, "the entity's own"},
      {"8|0", "8|GREEN", kGreen, "layer 0 is the reference's"},
      {"8|0", "8|GREEN 62|1", kGreen, "not the reference's own colour"},
      {"8|RED 62|0", "8|GREEN", kGreen, "by block, by the reference's layer"},
      {"8|RED 62|0", "8|GREEN 62|5", kBlue, "by block"},
      {"8|0 62|7", "8|GREEN", kBlack, "the foreground on white"},
      {"8|0 62|0", "8|0 62|250", 0x333333, "a grey"},
      {"8|0 62|11", "8|0", 0xFF7F7F, "a shade"},
      {"8|OFF", "8|RED", kWhite, "a layer that is off"},
      {"8|FROZEN", "8|RED", kWhite, "a frozen layer"},
      {"8|0", "8|OFF", kWhite, "layer 0 in a reference on a layer that is off"},
      {"8|RED", "8|OFF", kRed, "another layer in it"},
      {"8|RED", "8|FROZEN", kWhite, "anything in a frozen reference"},
      {"8|RED 60|1", "8|GREEN", kWhite, "an invisible entity"},
  };
  for (const auto& one : cases) {
    const std::string inner = blockOf("IN", square(0, 0, one.content));
    const Shot direct(drawingOf(insertOf("IN", one.reference + std::string(" 10|20 20|20")), inner, kLayers));
    EXPECT_EQ(direct.at(25, 25), one.color) << one.what;
    EXPECT_EQ(direct.at(15, 25), kWhite) << one.what;
    // A reference in between that says nothing of its own changes nothing.
    const std::string outer = blockOf("OUT", insertOf("IN", "8|0 62|0"));
    const Shot nested(drawingOf(insertOf("OUT", one.reference + std::string(" 10|20 20|20")), inner + outer, kLayers));
    EXPECT_EQ(nested.at(25, 25), one.color) << one.what << ", nested";
  }
}

TEST(PictureLook, ForegroundIsSeenOnTheBackground) {
  const OdDbDatabasePtr database = drawingOf(square(20, 20) + square(50, 20, "62|1"), "", layer("0", "70|0 62|7"));
  const Shot dark(database, {}, {.background = 0x102030, .window = {}});
  EXPECT_EQ(dark.at(25, 25), kWhite);
  EXPECT_EQ(dark.at(5, 5), 0x102030u);
  const Shot clear(database, {}, {.background = {}, .window = {}});
  EXPECT_EQ(clear.at(25, 25), kBlack);
  EXPECT_EQ(clear.at(55, 25), kRed);
  EXPECT_EQ(clear.bitmap().rgba[3], 0); // the corner lets everything through
}

TEST(Picture, DrawsInTheDrawingOrder) {
  const OdDbDatabasePtr database = drawingOf(square(20, 20, "62|1") + square(25, 20, "62|5"));
  EXPECT_EQ(Shot(database).at(27, 25), kBlue);
  const auto space = forWrite<OdDbBlockTableRecord>(database->getModelSpaceId());
  const OdSmartPtr<OdDbSortentsTable> order = OdDbSortentsTable::createObject();
  order->setBlockId(space->objectId());
  forWrite<OdDbDictionary>(space->createExtensionDictionary())->setAt(L"ACAD_SORTENTS", order.get());
  OdDbObjectIdArray first{space->drawOrder()[0]};
  order->moveToTop(first);
  EXPECT_EQ(Shot(database).at(27, 25), kRed);
}

TEST(Picture, PlacesReferences) {
  const struct {
    const char* reference;
    double x, y; // the middle of the square that the block has at 0, 0 to 10, 10
  } cases[] = {
      {"10|40 20|40", 45, 45},
      {"10|40 20|40 50|90", 35, 45},
      {"10|40 20|40 41|-1", 35, 45},
      {"10|40 20|40 41|2 42|0.5", 50, 42.5},
      {"10|-40 20|40 210|0 220|0 230|-1", 35, 45},         // seen from behind
      {"10|40 20|40 70|3 71|2 44|20 45|-20", 85, 25},      // the last of an array
      {"10|40 20|40 50|90 70|2 71|2 44|20 45|20", 15, 65}, // which turns with the reference
  };
  for (const auto& one : cases) {
    const Shot shot(drawingOf(insertOf("IN", one.reference), blockOf("IN", square(0, 0))));
    EXPECT_EQ(shot.at(one.x, one.y), kBlack) << one.reference;
  }
  const std::string based = "0|BLOCK 8|0 2|IN 70|0 10|10 20|10 3|IN " + square(0, 0) + "0|ENDBLK 8|0";
  EXPECT_EQ(Shot(drawingOf(insertOf("IN", "10|40 20|40"), based)).at(35, 35), kBlack) << "base point";
}

TEST(Picture, RepeatsArraysWithTheirAttributes) {
  const std::string entities =
      "0|INSERT 66|1 2|IN 8|0 10|5 20|5 70|4 71|3 44|25 45|30 0|ATTRIB 8|0 10|5 20|20 40|8 1|H 2|TAG 70|0 0|SEQEND 8|0";
  const Shot shot(drawingOf(entities, blockOf("IN", square(0, 0, "62|1"))));
  for (const double x : {0, 25, 50, 75})
    for (const double y : {0, 30, 60}) {
      EXPECT_EQ(shot.at(x + 10, y + 10), kRed) << x << " " << y;
      EXPECT_NE(shot.row(y + 22).substr(static_cast<std::size_t>(x), 25).find('#'), std::string::npos) << x << " " << y;
    }
}

// The block fills 0 to 100 in red. Its clip was drawn when the reference stood where it stands.
OdDbDatabasePtr clipped(const std::string& boundary, const std::string& inverted) {
  const std::string unit = "40|1 40|0 40|0 40|0 40|0 40|1 40|0 40|0 40|0 40|0 40|1 40|0 ";
  const std::string roundTrip =
      "0|DICTIONARY 5|D3 330|D2 100|AcDbDictionary 3|ROUNDTRIP 350|D4 0|XRECORD 5|D4 330|D3 100|AcDbXrecord 280|1 "
      "102|ACAD_INVERTEDCLIP_ROUNDTRIP 10|40 20|40 30|0 10|70 20|70 30|0 102|ACAD_INVERTEDCLIP_ROUNDTRIP_COMPARE ";
  return drawingOf(
      "0|INSERT 5|A1 102|{ACAD_XDICTIONARY 360|D0 102|} 8|0 2|FULL 10|0 20|0 30|0 0|ENDSEC 0|SECTION 2|OBJECTS "
      "0|DICTIONARY 5|C 330|0 100|AcDbDictionary 0|DICTIONARY 5|D0 330|A1 100|AcDbDictionary 3|ACAD_FILTER "
      "350|D1 0|DICTIONARY 5|D1 330|D0 100|AcDbDictionary 3|SPATIAL 350|D2 0|SPATIAL_FILTER 5|D2 "
      "102|{ACAD_XDICTIONARY 360|D3 102|} 330|D1 100|AcDbFilter 100|AcDbSpatialFilter " +
          boundary + " 210|0 220|0 230|1 11|0 21|0 31|0 71|1 72|0 73|0 " + unit + unit +
          (inverted.empty() ? "" : roundTrip + inverted),
      blockOf("FULL", "0|SOLID 8|0 62|1 10|0 20|0 11|100 21|0 12|0 22|100 13|100 23|100"));
}

TEST(Picture, CutsClippedReferences) {
  const std::string box = "70|2 10|20 20|20 10|60 20|60", triangle = "70|3 10|20 20|20 10|80 20|20 10|20 20|80";
  const struct {
    std::string boundary, inverted;
    const char* inside; // of the places 10/10, 30/30, 50/50, 75/75
    double extent;      // to the right
    const char* what;
  } cases[] = {
      {box, "", "-++-", 60, "a rectangle"},
      {triangle, "", "-+--", 80, "a polygon"},
      {box, "10|20 20|20 30|0 10|60 20|60 30|0", "++-+", 100, "a hole"},
      {box, "10|20 20|20 30|0 10|61 20|60 30|0", "-++-", 60, "a hole of another boundary"},
  };
  for (const auto& one : cases) {
    const Shot shot(clipped(one.boundary, one.inverted));
    std::string inside;
    for (const double place : {10.0, 30.0, 50.0, 75.0})
      inside += shot.at(place + 0.5, place + 2.5) == kRed ? '+' : '-';
    EXPECT_EQ(inside, one.inside) << one.what;
    EXPECT_EQ(shot.report().extents.maxPoint().x, one.extent) << one.what;
  }
}

TEST(Picture, ShowsLoadedExternalDrawings) {
  const std::string xref = "0|BLOCK 8|0 2|EXT 70|4 10|0 20|0 3|EXT 1|ext.dxf 0|ENDBLK 8|0 ";
  const OdDbDatabasePtr host =
      drawingOf(insertOf("EXT", "8|BLUE 10|40 20|40"), xref,
                layer("0", "70|0 62|7") + layer("BLUE", "70|0 62|5") + layer("EXT~GREEN", "70|0 62|1"));
  drawing::XrefLoader loader;
  EXPECT_TRUE(Shot(host).report().isEmpty);
  EXPECT_EQ(Shot(host).report().notDrawn.at(0).reason, "xref-not-loaded");
  loader.find = [](const OdString&, const OdDbDatabase&) { return std::string("ext"); };
  loader.open = [](const std::string&) {
    drawing::ReadResult read;
    read.database = drawingOf(square(10, 10, "8|GREEN") + square(30, 10) + square(10, 30, "8|OWN") +
                                  insertOf("IN", "8|OWN 10|30 20|30"),
                              blockOf("IN", square(0, 0, "8|0")),
                              layer("0", "70|0 62|7") + layer("GREEN", "70|0 62|3") + layer("OWN", "70|0 62|3"),
                              "9|$INSBASE 10|10 20|10 30|0");
    return read;
  };
  drawing::loadXrefs(*host, loader);
  const Shot shot(host);
  EXPECT_EQ(shot.at(45, 45), kRed) << "a layer that the host has its own of";
  EXPECT_EQ(shot.at(65, 45), kBlue) << "layer 0 is the reference's";
  EXPECT_EQ(shot.at(45, 65), kGreen) << "a layer of the external drawing";
  EXPECT_EQ(shot.at(65, 65), kGreen) << "layer 0 of a block in it";
  EXPECT_TRUE(shot.report().notDrawn.empty());
  forWrite<OdDbBlockTableRecord>(host->symbol(OdDb::kBlockTable, L"EXT"))->setIsUnloaded(true);
  drawing::loadXrefs(*host, loader);
  EXPECT_EQ(Shot(host).report().notDrawn.at(0).reason, "xref-unloaded");
}

TEST(Picture, IsTheSameFarOffAndTiny) {
  const auto scene = [](const std::string& place) {
    const std::string parts = square(20, 20) + square(50, 35, "62|1");
    return drawing::Picture(drawingOf(insertOf("IN", place), blockOf("IN", parts))->getModelSpaceId()).bitmap().rgba;
  };
  const std::vector<std::uint8_t> plain = scene("");
  EXPECT_TRUE(scene("10|16777216 20|-16777216 30|16777216") == plain);
  EXPECT_TRUE(scene("41|9.313225746154785e-10 42|9.313225746154785e-10 43|9.313225746154785e-10") == plain);
}

TEST(Picture, EndsWithinItsLimits) {
  // Each block shows the one before it a hundred times a hundred: ten to the twentieth squares.
  std::string blocks = blockOf("B0", square(0, 0));
  for (int i = 1; i <= 5; ++i)
    blocks += blockOf("B" + std::to_string(i), insertOf("B" + std::to_string(i - 1), "70|100 71|100 44|1 45|1"));
  const Shot full(drawingOf(insertOf("B5"), blocks), {}, {.window = {}, .points = 40'000, .steps = 1'000'000});
  EXPECT_TRUE(full.report().reachedLimit);
  EXPECT_GE(full.report().points, 40'000u);
  EXPECT_LT(full.report().points, 41'000u);
  // What leaves nothing in the picture is work all the same.
  for (const std::string& content : {std::string(), "0|TEXT 8|0 10|0 20|0 40|1 1|" + std::string(400, '`')}) {
    std::string nested = blocks;
    nested.replace(nested.find("0|SOLID"), nested.find("0|ENDBLK") - nested.find("0|SOLID"), content + " ");
    const Shot empty(drawingOf(insertOf("B5"), nested), {}, {.window = {}, .points = 40'000, .steps = 5'000});
    EXPECT_TRUE(empty.report().reachedLimit);
    EXPECT_LE(empty.report().steps, 5'000u + 400 / 16);
    EXPECT_TRUE(empty.report().isEmpty);
    EXPECT_GE(reportOf(drawingOf(content)).steps, content.size() / 20);
  }
}

TEST(Picture, ReportsWhatIsNotDrawn) {
  const struct {
    std::string entities, told;
    bool isEmpty;
  } cases[] = {
      {"", "", true},
      {"0|LIGHT 8|0", "", true},
      {"0|SHAPE 5|A1 8|0 40|1 2|ARROW 0|SHAPE 5|A2 8|0 40|1 2|ARROW", "SHAPE shape-file 2 A1", true},
      {"0|WHATEVER 5|A1 8|0 10|1", "WHATEVER kind 1 A1", true},
      {"0|DIMENSION 5|A1 8|0 70|6 10|1 20|1", "DIMENSION no-picture 1 A1", true},
      {square(0, 0) + "0|TEXT 5|A1 8|0 10|1 20|1 40|1 1|\\U+E123", "TEXT letters 1 A1", false},
  };
  for (const auto& one : cases) {
    const drawing::PictureReport report = reportOf(drawingOf(one.entities));
    std::string told;
    for (const drawing::NotDrawn& left : report.notDrawn)
      told += left.kind + " " + left.reason + " " + std::to_string(left.count) + " " + left.first.ascii();
    EXPECT_EQ(told, one.told) << one.entities;
    EXPECT_EQ(report.isEmpty, one.isEmpty) << one.entities;
    EXPECT_FALSE(report.reachedLimit);
  }
  EXPECT_TRUE(drawing::Picture(OdDbObjectId()).report().isEmpty);
}

TEST(Picture, IsReadInEveryForm) {
  const OdDbDatabasePtr database = drawingOf(square(0, 0, "62|1"));
  const drawing::Picture picture(database->getModelSpaceId(), {.width = 61, .height = 37, .window = {}});
  const std::string png = picture.png(), svg = picture.svg();
  EXPECT_EQ(png.substr(1, 3), "PNG");
  EXPECT_EQ(png.substr(16, 8), std::string("\0\0\0\x3D\0\0\0\x25", 8)); // width and height of the header
  EXPECT_NE(svg.find("width=\"61\" height=\"37\""), std::string::npos) << svg.substr(0, 300);
  EXPECT_NE(svg.find("<path"), std::string::npos);
  EXPECT_EQ(picture.bitmap().rgba.size(), 61u * 37 * 4);
  for (const auto& [wide, high] : {std::pair(0, 10), std::pair(10, -1), std::pair(30001, 1), std::pair(30000, 30000)})
    EXPECT_THROW(drawing::Picture(database->getModelSpaceId(), {.width = wide, .height = high, .window = {}}), OdError);
}

} // namespace

// Pictures by the program: what is written, what is told, and how it ends.
#include "tests/console/console_run.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace tests;

TEST(Preview, EndsWithTheStatusAndTheReason) {
  const struct {
    const char* line; // $F the drawing, $O the folder of the pictures
    int status;
    const char* part;
    const char* picture; // that is there then; empty: none
    const char* begins;  // what it begins with
  } cases[] = {
      {"$F -o $O/a.png", 0, "480 by 320", "a.png", "\x89PNG\r\n"},
      {"$F -o $O/a.png", 1, "--force", "a.png", "\x89PNG\r\n"},
      {"$F -o $O/a.png --force --size 64x32", 0, "64 by 32", "a.png", "\x89PNG\r\n"},
      {"$F -o $O/b.SVG --background none", 0, "Image", "b.SVG", "<?xml"},
      {"$F -o $O/c.png --svg", 0, "Image", "c.png", "<?xml"},
      {"$F -o $O/d --png --block lamp", 4, "1 of type SHAPE, shape files are not read; the first is", "d",
       "\x89PNG\r\n"},
      {"$F -o $O/e.png --block table --json", 0, "\"empty\": true", "e.png", "\x89PNG\r\n"},
      {"$F -o $O/f.png --layout MODEL --background 102030", 0, "Image", "f.png", "\x89PNG\r\n"},
      {"$F -o $O/g.png --block chair", 1, "Block \"chair\" not found", "", ""},
      {"$F -o $O/g.png --layout A4", 1, "Layout \"A4\" not found", "", ""},
      {"$F -o $O/g.png --block table --layout A4", 2, "--layout", "", ""},
      {"$F -o $O/g.png --size 480", 2, "WIDTHxHEIGHT", "", ""},
      {"$F -o $O/g.png --size 0x9", 2, "WIDTHxHEIGHT", "", ""},
      {"$F -o $O/g.png --size 30000x30000", 2, "WIDTHxHEIGHT", "", ""},
      {"$F -o $O/g.png --background pink", 2, "RRGGBB", "", ""},
      {"$F -o $O/g.gif", 2, ".png or .svg", "", ""},
      {"$F", 2, "--output", "", ""},
      {"nosuch.dxf -o $O/g.png", 3, "nosuch.dxf", "", ""},
      {"$F -o $O/none/g.png", 6, "Not saved", "", ""},
  };
  const Scratch scratch;
  const std::string file = scratch.write(
      "plan.dxf",
      "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n2\n"
      "table\n70\n0\n10\n0\n20\n0\n0\nENDBLK\n0\nBLOCK\n8\n0\n2\nlamp\n70\n0\n10\n0\n20\n0\n0\nSHAPE\n8\n0\n10\n"
      "1\n20\n1\n40\n1\n2\nARROW\n0\nENDBLK\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n1\n20\n1\n"
      "11\n9\n21\n5\n0\nENDSEC\n0\nEOF\n");
  for (const auto& one : cases) {
    expectRun("preview " + std::string(one.line), {{"$F", file}, {"$O", scratch.path("")}}, one.status, one.part);
    if (one.picture[0] == '\0')
      EXPECT_FALSE(std::filesystem::exists(scratch.path("g.png"))) << one.line;
    else
      EXPECT_EQ(readFile(scratch.path(one.picture)).substr(0, std::string(one.begins).size()), one.begins) << one.line;
  }
}

} // namespace

// Pictures of small drawings, looked at pixel by pixel.
#pragma once

#include "DbDatabase.h"
#include "drawing/picture.h"

#include <cstdint>
#include <string>

namespace tests {

constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0, kRed = 0xFF0000, kGreen = 0x00FF00, kBlue = 0x0000FF;

// A drawing from its sections' lines, "code|value" each with blanks between: "0|LINE 8|0 10|5". In values a
// back quote is a blank and a tilde a bar. Fails the test when it is not read.
OdDbDatabasePtr drawingOf(const std::string& entities, const std::string& blocks = {}, const std::string& layers = {},
                          const std::string& header = {});
// A definition with these entities, for the above.
std::string blockOf(const std::string& name, const std::string& entities);
std::string layer(const std::string& name, const std::string& properties);
std::string insertOf(const std::string& block, const std::string& properties = {});
// A filled square with sides of ten units.
std::string square(double left, double bottom, const std::string& properties = {});

// What lies between 0, 0 and 100, 100, a unit a pixel.
class Shot {
public:
  explicit Shot(const OdDbDatabasePtr& database, OdDbObjectId block = OdDbObjectId(),
                drawing::PictureOptions options = {});
  std::uint32_t at(double x, double y) const; // the colour at a place of the drawing
  std::size_t inked() const;                  // pixels that are not white
  // '#' where a row of pixels is darker than the middle, '.' elsewhere.
  std::string row(double y) const;
  const drawing::PictureReport& report() const { return report_; }
  const drawing::Bitmap& bitmap() const { return bitmap_; }

private:
  OdDbDatabasePtr held_;
  drawing::Bitmap bitmap_;
  drawing::PictureReport report_;
};

// The report of a picture of all of model space.
drawing::PictureReport reportOf(const OdDbDatabasePtr& database);

} // namespace tests

#include "tests/drawing/gi/shots.h"

#include "tests/support/drawings.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace tests {

namespace {

// One group a line; blanks in values are blanks.
std::string linesOf(const std::string& groups) {
  std::istringstream stream(groups);
  std::string lines;
  for (std::string group; stream >> group;)
    lines += group + "\n";
  std::replace(lines.begin(), lines.end(), '`', ' ');
  return lines;
}

} // namespace

OdDbDatabasePtr drawingOf(const std::string& entities, const std::string& blocks, const std::string& layers,
                          const std::string& header) {
  const std::string tables = layers.empty() ? "" : "0|TABLE 2|LAYER 70|9 " + layers + " 0|ENDTAB ";
  std::string text = dxf(linesOf(section("HEADER", "9|$ACADVER 1|AC1009 " + header + " ") + section("TABLES", tables) +
                                 section("BLOCKS", blocks + " ") + section("ENTITIES", entities + " ")),
                         "");
  std::replace(text.begin(), text.end(), '~', '|');
  return readWell(text).database;
}

std::string blockOf(const std::string& name, const std::string& entities) {
  return "0|BLOCK 8|0 2|" + name + " 70|0 10|0 20|0 3|" + name + " " + entities + " 0|ENDBLK 8|0 ";
}

std::string layer(const std::string& name, const std::string& properties) {
  return "0|LAYER 2|" + name + " 6|CONTINUOUS " + properties + " ";
}

std::string insertOf(const std::string& block, const std::string& properties) {
  return "0|INSERT 2|" + block + " " + (properties.find("8|") == properties.npos ? "8|0 " : "") +
         (properties.find("10|") == properties.npos ? "10|0 20|0 " : "") + properties + " ";
}

std::string square(double left, double bottom, const std::string& properties) {
  const auto number = [](double value) { return std::to_string(value); };
  const std::string x = number(left), y = number(bottom), right = number(left + 10), top = number(bottom + 10);
  return "0|SOLID " + (properties.find("8|") == properties.npos ? std::string("8|0 ") : "") + properties + " 10|" + x +
         " 20|" + y + " 11|" + right + " 21|" + y + " 12|" + x + " 22|" + top + " 13|" + right + " 23|" + top + " ";
}

Shot::Shot(const OdDbDatabasePtr& database, OdDbObjectId block, drawing::PictureOptions options) : held_(database) {
  options.width = options.height = 100;
  options.window.set({0, 0, 0}, {100, 100, 0});
  const drawing::Picture picture(block.isNull() ? database->getModelSpaceId() : block, options);
  bitmap_ = picture.bitmap();
  report_ = picture.report();
}

std::uint32_t Shot::at(double x, double y) const {
  const auto column = static_cast<std::size_t>(std::floor(x)), line = static_cast<std::size_t>(std::floor(100 - y));
  const std::uint8_t* pixel = bitmap_.rgba.data() + 4 * (line * 100 + column);
  return static_cast<std::uint32_t>(pixel[0] << 16 | pixel[1] << 8 | pixel[2]);
}

std::size_t Shot::inked() const {
  std::size_t count = 0;
  for (std::size_t i = 0; i < bitmap_.rgba.size(); i += 4)
    count += bitmap_.rgba[i] + bitmap_.rgba[i + 1] + bitmap_.rgba[i + 2] < 3 * 255 ? 1 : 0;
  return count;
}

std::string Shot::row(double y) const {
  std::string marks;
  for (int x = 0; x < 100; ++x)
    marks += (at(x, y) & 255) < 128 ? '#' : '.';
  return marks;
}

drawing::PictureReport reportOf(const OdDbDatabasePtr& database) {
  return drawing::Picture(database->getModelSpaceId()).report();
}

} // namespace tests

#include "morvane/input/point_parser.h"

#include "morvane/input/trimmed.h"
#include "morvane/units.h"

#include <cmath>
#include <vector>

namespace morvane::input {
namespace {

using Point = std::array<double, 3>;

bool takePrefix(std::wstring_view& text, wchar_t character) {
  if (!text.starts_with(character))
    return false;
  text.remove_prefix(1);
  return true;
}

std::vector<std::wstring_view> splitAtCommas(std::wstring_view text) {
  std::vector<std::wstring_view> parts;
  for (std::size_t at = 0;;) {
    const auto comma = text.find(L',', at);
    parts.push_back(text.substr(at, comma == std::wstring_view::npos ? comma : comma - at));
    if (comma == std::wstring_view::npos)
      return parts;
    at = comma + 1;
  }
}

// distance<angle in the plane.
bool parsePolar(std::wstring_view text, Point& out) {
  const auto mark = text.find(L'<');
  const auto distance = parseDistance(text.substr(0, mark));
  const auto angleRad = parseAngle(text.substr(mark + 1));
  if (!distance || !angleRad)
    return false;
  out[0] = *distance * std::cos(*angleRad);
  out[1] = *distance * std::sin(*angleRad);
  return true;
}

bool parseNumbers(const std::vector<std::wstring_view>& parts, std::size_t firstAxis, Point& out) {
  for (std::size_t at = 0; at < parts.size(); ++at) {
    const auto number = parseDistance(parts[at]);
    if (!number)
      return false;
    out[firstAxis + at] = *number;
  }
  return true;
}

std::optional<Point> parseCoordinates(std::wstring_view text) {
  auto parts = splitAtCommas(text);
  Point point{};
  if (parts.front().find(L'<') != std::wstring_view::npos) {
    const bool fits = parts.size() <= 2 && parsePolar(parts.front(), point);
    parts.erase(parts.begin());
    return fits && parseNumbers(parts, 2, point) ? std::optional(point) : std::nullopt;
  }
  const bool fits = parts.size() == 2 || parts.size() == 3;
  return fits && parseNumbers(parts, 0, point) ? std::optional(point) : std::nullopt;
}

Point worldToUcs(const Point& point, const CoordinateFrame* frame) {
  Point out = point;
  if (frame != nullptr)
    frame->wcsToUcs(point.data(), out.data());
  return out;
}

bool isFinite(const Point& point) {
  return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
}

} // namespace

std::optional<Point> parsePoint(std::wstring_view text, const Point& lastPointWcs, const CoordinateFrame* frame) {
  std::wstring_view rest = trimmed(text);
  const bool relative = takePrefix(rest, L'@');
  const bool world = takePrefix(rest, L'*');
  std::optional<Point> point = relative && rest.empty() ? std::optional(Point{}) : parseCoordinates(rest);
  if (point && relative) {
    const Point start = world ? lastPointWcs : worldToUcs(lastPointWcs, frame);
    for (std::size_t axis = 0; axis < 3; ++axis)
      (*point)[axis] += start[axis];
  }
  if (point && world)
    point = worldToUcs(*point, frame);
  return point && isFinite(*point) ? point : std::nullopt;
}

} // namespace morvane::input

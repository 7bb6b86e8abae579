#include "morvane/units.h"

#include <charconv>
#include <cmath>
#include <numbers>

namespace morvane {
namespace {

constexpr double kInchesPerFoot = 12.0;

// Narrows a typed number; only ASCII can be part of one.
std::optional<std::string> asciiTrimmed(std::wstring_view text) {
  const auto first = text.find_first_not_of(L" \t");
  if (first == std::wstring_view::npos)
    return std::nullopt;
  const auto last = text.find_last_not_of(L" \t");
  std::string narrow;
  for (wchar_t ch : text.substr(first, last - first + 1)) {
    if (ch <= 0 || ch > 126)
      return std::nullopt;
    narrow += static_cast<char>(ch);
  }
  return narrow;
}

bool isDigit(char ch) {
  return ch >= '0' && ch <= '9';
}

struct Number {
  double value = 0.0;
  bool whole = false; // digits only
};

class Scanner {
public:
  explicit Scanner(const std::string& text) : at_(text.data()), end_(text.data() + text.size()) {}

  bool atEnd() const { return at_ == end_; }
  char peek() const { return atEnd() ? '\0' : *at_; }
  char peekSecond() const { return end_ - at_ < 2 ? '\0' : at_[1]; }
  bool take(char wanted) {
    if (peek() != wanted || atEnd())
      return false;
    ++at_;
    return true;
  }
  bool takeEither(char one, char other) { return take(one) || take(other); }
  // Takes the sign and answers its factor.
  double takeSign() {
    if (take('-'))
      return -1.0;
    take('+');
    return 1.0;
  }
  // An unsigned number. Words such as "inf" are not numbers, and neither is one out of range.
  std::optional<Number> takeNumber() {
    if (!isDigit(peek()) && !(peek() == '.' && isDigit(peekSecond())))
      return std::nullopt;
    Number number;
    const auto [next, error] = std::from_chars(at_, end_, number.value);
    if (error != std::errc() || !std::isfinite(number.value))
      return std::nullopt;
    number.whole = true;
    for (const char* ch = at_; ch != next; ++ch)
      number.whole = number.whole && isDigit(*ch);
    at_ = next;
    return number;
  }

private:
  const char* at_;
  const char* end_;
};

// What follows the '/' of a fraction.
std::optional<double> takeFraction(Scanner& scan, const Number& numerator) {
  if (!numerator.whole || !scan.take('/'))
    return std::nullopt;
  const auto denominator = scan.takeNumber();
  if (!denominator || !denominator->whole || denominator->value == 0.0)
    return std::nullopt;
  return numerator.value / denominator->value;
}

// 2.5   2 1/2   2-1/2   1/2, with or without the mark of inches.
std::optional<double> takeInches(Scanner& scan, const Number& first) {
  double inches = first.value;
  if (scan.peek() == '/') {
    const auto fraction = takeFraction(scan, first);
    if (!fraction)
      return std::nullopt;
    inches = *fraction;
  } else if ((scan.peek() == ' ' || scan.peek() == '-') && isDigit(scan.peekSecond())) {
    scan.takeEither(' ', '-');
    const auto numerator = scan.takeNumber();
    const auto fraction = numerator && first.whole ? takeFraction(scan, *numerator) : std::nullopt;
    if (!fraction)
      return std::nullopt;
    inches += *fraction;
  }
  scan.take('"');
  return scan.atEnd() ? std::optional(inches) : std::nullopt;
}

std::optional<double> takeDistance(Scanner& scan) {
  auto number = scan.takeNumber();
  if (!number)
    return std::nullopt;
  double feet = 0.0;
  if (scan.take('\'')) {
    feet = number->value;
    if (scan.atEnd())
      return feet * kInchesPerFoot;
    scan.takeEither('-', ' ');
    number = scan.takeNumber();
    if (!number)
      return std::nullopt;
  }
  const auto inches = takeInches(scan, *number);
  if (!inches)
    return std::nullopt;
  return feet * kInchesPerFoot + *inches;
}

// Degrees after the first number: 45   45d   45d30'   45d30'15".
std::optional<double> takeDegrees(Scanner& scan, double degrees) {
  if (!scan.takeEither('d', 'D'))
    return scan.atEnd() ? std::optional(degrees) : std::nullopt;
  double part = 60.0;
  for (const char mark : {'\'', '"'}) {
    if (scan.atEnd())
      break;
    const auto number = scan.takeNumber();
    if (!number || !scan.take(mark))
      return std::nullopt;
    degrees += number->value / part;
    part *= 60.0;
  }
  return scan.atEnd() ? std::optional(degrees) : std::nullopt;
}

std::optional<double> finite(double value) {
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

std::optional<double> parseDistance(std::wstring_view text) {
  const auto narrow = asciiTrimmed(text);
  if (!narrow)
    return std::nullopt;
  Scanner scan(*narrow);
  const double sign = scan.takeSign();
  const auto distance = takeDistance(scan);
  return distance ? finite(sign * *distance) : std::nullopt;
}

std::optional<double> parseAngle(std::wstring_view text) {
  constexpr double kPi = std::numbers::pi;
  const auto narrow = asciiTrimmed(text);
  if (!narrow)
    return std::nullopt;
  Scanner scan(*narrow);
  const double sign = scan.takeSign();
  const auto number = scan.takeNumber();
  if (!number)
    return std::nullopt;
  if (scan.takeEither('r', 'R'))
    return scan.atEnd() ? finite(sign * number->value) : std::nullopt;
  if (scan.takeEither('g', 'G'))
    return scan.atEnd() ? finite(sign * number->value * kPi / 200.0) : std::nullopt;
  const auto degrees = takeDegrees(scan, number->value);
  return degrees ? finite(sign * *degrees * kPi / 180.0) : std::nullopt;
}

} // namespace morvane

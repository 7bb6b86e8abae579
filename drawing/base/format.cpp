#include "OdString.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

constexpr int kWidest = 4096; // no line is wider; a format that was typed cannot ask for all memory

enum class Size { kInt, kShort, kLong };

// One directive: %[flags][width][.precision][size]kind
struct Directive {
  bool leftAligned = false;
  bool plus = false;
  bool space = false;
  bool zeros = false;
  bool alternate = false;
  int width = 0;
  int precision = -1; // -1: not given
  bool widthFromArgument = false;
  bool precisionFromArgument = false;
  Size size = Size::kInt;
  wchar_t kind = 0;
};

// The arguments; a struct, so that its address can be handed on whatever a va_list is.
struct Arguments {
  va_list list;
};

bool isFlag(Directive& directive, wchar_t ch) {
  switch (ch) {
  case L'-':
    return directive.leftAligned = true;
  case L'+':
    return directive.plus = true;
  case L' ':
    return directive.space = true;
  case L'0':
    return directive.zeros = true;
  case L'#':
    return directive.alternate = true;
  default:
    return false;
  }
}

int readNumber(const wchar_t*& at) {
  int number = 0;
  for (; *at >= L'0' && *at <= L'9'; ++at)
    number = std::min(number * 10 + (*at - L'0'), kWidest);
  return number;
}

void readSize(const wchar_t*& at, Directive& directive) {
  static constexpr struct {
    std::wstring_view text;
    Size size;
  } kSizes[] = {{L"I64", Size::kLong}, {L"ll", Size::kLong}, {L"l", Size::kLong}, {L"h", Size::kShort}};
  for (const auto& row : kSizes) {
    if (std::wstring_view(at).substr(0, row.text.size()) == row.text) {
      directive.size = row.size;
      at += row.text.size();
      return;
    }
  }
}

// Reads the text after the %. Returns the position after it, or null for an unknown directive.
const wchar_t* readDirective(const wchar_t* at, Directive& directive) {
  while (isFlag(directive, *at))
    ++at;
  directive.widthFromArgument = *at == L'*';
  directive.width = directive.widthFromArgument ? (++at, 0) : readNumber(at);
  if (*at == L'.') {
    ++at;
    directive.precisionFromArgument = *at == L'*';
    directive.precision = directive.precisionFromArgument ? (++at, 0) : readNumber(at);
  }
  readSize(at, directive);
  directive.kind = *at;
  const bool known = *at != 0 && std::wstring_view(L"scdiuxXofFeEgG").find(*at) != std::wstring_view::npos;
  return known ? at + 1 : nullptr;
}

void takeStars(Directive& directive, Arguments& arguments) {
  if (directive.widthFromArgument) {
    const int width = std::clamp(va_arg(arguments.list, int), -kWidest, kWidest);
    directive.leftAligned = directive.leftAligned || width < 0;
    directive.width = std::abs(width);
  }
  if (directive.precisionFromArgument)
    directive.precision = std::clamp(va_arg(arguments.list, int), -1, kWidest);
}

// head (sign, 0x) stays before zeros that fill the width.
void appendFilled(std::wstring& out, const Directive& directive, std::wstring_view head, std::wstring_view body,
                  bool zeroFill) {
  const std::size_t length = head.size() + body.size();
  const auto width = static_cast<std::size_t>(directive.width);
  const std::size_t fill = width > length ? width - length : 0;
  if (directive.leftAligned) {
    out.append(head).append(body).append(fill, L' ');
  } else if (zeroFill) {
    out.append(head).append(fill, L'0').append(body);
  } else {
    out.append(fill, L' ').append(head).append(body);
  }
}

std::wstring widened(std::string_view ascii, bool upper) {
  std::wstring wide(ascii.begin(), ascii.end());
  if (upper)
    std::transform(wide.begin(), wide.end(), wide.begin(), upperCase);
  return wide;
}

const wchar_t* signOf(const Directive& directive, bool negative) {
  if (negative)
    return L"-";
  if (directive.plus)
    return L"+";
  return directive.space ? L" " : L"";
}

void appendDigits(std::wstring& out, const Directive& directive, std::wstring head, std::uint64_t value, int base) {
  char buffer[32];
  const char* end = std::to_chars(buffer, buffer + sizeof buffer, value, base).ptr;
  std::wstring digits = widened({buffer, static_cast<std::size_t>(end - buffer)}, directive.kind == L'X');
  if (value == 0 && directive.precision == 0)
    digits.clear();
  const auto least = static_cast<std::size_t>(std::max(directive.precision, 0));
  if (digits.size() < least)
    digits.insert(0, least - digits.size(), L'0');
  if (directive.alternate && base == 8 && (digits.empty() || digits[0] != L'0'))
    digits.insert(0, 1, L'0');
  if (directive.alternate && base == 16 && value != 0)
    head = {L'0', directive.kind};
  appendFilled(out, directive, head, digits, directive.zeros && directive.precision < 0);
}

void appendSigned(std::wstring& out, const Directive& directive, Arguments& arguments) {
  std::int64_t value = directive.size == Size::kLong ? va_arg(arguments.list, long long) : va_arg(arguments.list, int);
  if (directive.size == Size::kShort)
    value = static_cast<std::int16_t>(value);
  const auto bits = static_cast<std::uint64_t>(value);
  appendDigits(out, directive, signOf(directive, value < 0), value < 0 ? 0 - bits : bits, 10);
}

void appendUnsigned(std::wstring& out, const Directive& directive, Arguments& arguments) {
  std::uint64_t value =
      directive.size == Size::kLong ? va_arg(arguments.list, unsigned long long) : va_arg(arguments.list, unsigned int);
  if (directive.size == Size::kShort)
    value = static_cast<std::uint16_t>(value);
  const int base = directive.kind == L'u' ? 10 : directive.kind == L'o' ? 8 : 16;
  appendDigits(out, directive, L"", value, base);
}

std::string realDigits(double magnitude, std::chars_format form, int precision) {
  std::vector<char> buffer(static_cast<std::size_t>(precision) +
                           330); // the longest double has 309 digits before the point
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, form, precision).ptr;
  return std::string(buffer.data(), end);
}

// %#g: the trailing zeros and the point stay.
std::string fullGeneral(double magnitude, int precision) {
  const int digits = std::max(precision, 1);
  const std::string scientific = realDigits(magnitude, std::chars_format::scientific, digits - 1);
  int exponent = 0;
  const char* sign = scientific.data() + scientific.find('e') + 1;
  std::from_chars(*sign == '+' ? sign + 1 : sign, scientific.data() + scientific.size(), exponent);
  if (exponent < -4 || exponent >= digits)
    return scientific;
  return realDigits(magnitude, std::chars_format::fixed, digits - 1 - exponent);
}

std::string realText(double magnitude, const Directive& directive) {
  const int precision = directive.precision < 0 ? 6 : directive.precision;
  const wchar_t kind = lowerCase(directive.kind);
  if (kind == L'g' && !(directive.alternate && std::isfinite(magnitude)))
    return realDigits(magnitude, std::chars_format::general, precision);
  std::string text =
      kind == L'g'
          ? fullGeneral(magnitude, precision)
          : realDigits(magnitude, kind == L'f' ? std::chars_format::fixed : std::chars_format::scientific, precision);
  if (directive.alternate && std::isfinite(magnitude) && text.find('.') == std::string::npos)
    text.insert(std::min(text.find('e'), text.size()), 1, '.');
  return text;
}

void appendReal(std::wstring& out, const Directive& directive, Arguments& arguments) {
  const double value = va_arg(arguments.list, double);
  const bool upper = directive.kind == L'F' || directive.kind == L'E' || directive.kind == L'G';
  const std::wstring body = widened(realText(std::fabs(value), directive), upper);
  appendFilled(out, directive, signOf(directive, std::signbit(value)), body, directive.zeros && std::isfinite(value));
}

void appendText(std::wstring& out, const Directive& directive, Arguments& arguments) {
  const wchar_t* text = va_arg(arguments.list, const wchar_t*);
  const std::size_t limit =
      directive.precision < 0 ? std::wstring::npos : static_cast<std::size_t>(directive.precision);
  std::size_t length = 0; // a precision keeps the reading within a buffer that has no zero
  while (text != nullptr && length < limit && text[length] != 0)
    ++length;
  appendFilled(out, directive, {}, {text, length}, false);
}

void appendCharacter(std::wstring& out, const Directive& directive, Arguments& arguments) {
  const auto ch = static_cast<wchar_t>(va_arg(arguments.list, int));
  appendFilled(out, directive, {}, {&ch, 1}, false);
}

void appendDirective(std::wstring& out, Directive& directive, Arguments& arguments) {
  takeStars(directive, arguments);
  switch (directive.kind) {
  case L's':
    return appendText(out, directive, arguments);
  case L'c':
    return appendCharacter(out, directive, arguments);
  case L'd':
  case L'i':
    return appendSigned(out, directive, arguments);
  case L'u':
  case L'x':
  case L'X':
  case L'o':
    return appendUnsigned(out, directive, arguments);
  default:
    return appendReal(out, directive, arguments);
  }
}

std::wstring formatted(const wchar_t* fmt, Arguments& arguments) {
  std::wstring out;
  while (*fmt != 0) {
    if (*fmt != L'%') {
      out += *fmt++;
      continue;
    }
    Directive directive;
    if (const wchar_t* after = readDirective(fmt + 1, directive); after != nullptr) {
      appendDirective(out, directive, arguments);
      fmt = after;
      continue;
    }
    out += L'%';
    fmt += fmt[1] == L'%' ? 2 : 1; // %% is one; of an unknown directive the rest follows as plain text
  }
  return out;
}

} // namespace

OdString& OdString::format(const wchar_t* fmt, ...) {
  va_list args;
  va_start(args, fmt);
  formatV(fmt, args);
  va_end(args);
  return *this;
}

OdString& OdString::formatV(const wchar_t* fmt, va_list args) {
  Arguments arguments;
  va_copy(arguments.list, args);
  std::wstring made = fmt == nullptr ? std::wstring() : formatted(fmt, arguments); // fmt and arguments may lie in this
  va_end(arguments.list);
  text_ = std::move(made);
  return *this;
}

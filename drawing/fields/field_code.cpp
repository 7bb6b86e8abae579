#include "drawing/fields/field_code.h"

#include "drawing/base/trimmed.h"

#include <charconv>
#include <cmath>
#include <string>
#include <vector>

namespace drawing {
namespace {

constexpr wchar_t kWhiteSpace[] = L" \t\n\v\f\r";

// The number at the front of the text, taken off it.
std::optional<double> takeNumber(std::wstring_view& text) {
  constexpr std::size_t kLongest = 64;
  std::string digits;
  for (const wchar_t ch : text.substr(0, kLongest))
    digits += ch < 128 ? static_cast<char>(ch) : ' ';
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || !std::isfinite(value))
    return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - digits.data()));
  return value;
}

// Taken off the front; nullopt when there is no digit.
std::optional<int> takeInteger(std::wstring_view& text) {
  std::optional<int> value;
  for (; !text.empty() && text.front() >= L'0' && text.front() <= L'9' && value.value_or(0) < 10000;
       text.remove_prefix(1))
    value = value.value_or(0) * 10 + (text.front() - L'0');
  return value;
}

bool takeWord(std::wstring_view& text, std::wstring_view word) {
  if (text.substr(0, word.size()) != word)
    return false;
  text.remove_prefix(word.size());
  return true;
}

} // namespace

FieldCode parseFieldCode(const OdString& code) {
  FieldCode parsed;
  std::wstring_view rest = trimmed(code.visible(), kWhiteSpace);
  if (!takeWord(rest, L"\\"))
    return parsed;
  const std::wstring_view head = rest.substr(0, rest.find(L' '));
  parsed.evaluator = OdString(head.substr(0, head.find(L'.')));
  rest = rest.substr(head.size());
  if (const std::size_t mark = rest.find(L"\\f \""); mark != rest.npos) {
    const std::wstring_view quoted = rest.substr(mark + 4);
    parsed.format = OdString(quoted.substr(0, quoted.rfind(L'"')));
    rest = rest.substr(0, mark);
  }
  parsed.argument = OdString(trimmed(rest, kWhiteSpace));
  return parsed;
}

std::optional<OdString> putFields(const OdString& code, const std::function<std::optional<OdString>(int)>& textOf) {
  constexpr std::wstring_view kOpen = L"%<\\_FldIdx ", kClose = L">%";
  std::wstring_view rest = code.visible();
  std::wstring result;
  for (;;) {
    const std::size_t at = rest.find(kOpen);
    result += rest.substr(0, at);
    if (at == rest.npos)
      return OdString(result);
    rest.remove_prefix(at + kOpen.size());
    const std::optional<int> number = takeInteger(rest);
    if (!number || !takeWord(rest, kClose))
      return std::nullopt;
    const std::optional<OdString> text = textOf(*number);
    if (!text)
      return std::nullopt;
    result += text->visible();
  }
}

namespace {

// Operators wait on a stack until one that binds less comes.
class Calculator {
public:
  std::optional<double> compute(std::wstring_view text) {
    bool wantsValue = true;
    for (text = trimmed(text, kWhiteSpace); !text.empty(); text = trimmed(text, kWhiteSpace)) {
      if (!(wantsValue ? takeOperand(text, wantsValue) : takeOperator(text, wantsValue)))
        return std::nullopt;
    }
    if (wantsValue || !reduce(0) || !operators_.empty() || !std::isfinite(values_.back()))
      return std::nullopt;
    return values_.back();
  }

private:
  static constexpr wchar_t kNegate = L'~';
  static int rank(wchar_t sign) {
    switch (sign) {
    case L'+':
    case L'-':
      return 1;
    case L'*':
    case L'/':
      return 2;
    case kNegate:
      return 3;
    default:
      return sign == L'^' ? 4 : 0; // an open parenthesis
    }
  }

  bool takeOperand(std::wstring_view& text, bool& wantsValue) {
    if (text.front() == L'(' || text.front() == L'-') {
      operators_.push_back(text.front() == L'(' ? L'(' : kNegate);
      text.remove_prefix(1);
      return true;
    }
    const std::optional<double> value = takeNumber(text);
    if (value)
      values_.push_back(*value);
    wantsValue = false;
    return value.has_value();
  }

  bool takeOperator(std::wstring_view& text, bool& wantsValue) {
    const wchar_t sign = text.front();
    text.remove_prefix(1);
    if (sign == L')') {
      if (!reduce(0) || operators_.empty())
        return false;
      operators_.pop_back();
      return true;
    }
    wantsValue = true;
    if (rank(sign) == 0 || sign == kNegate || !reduce(sign == L'^' ? 4 + 1 : rank(sign)))
      return false;
    operators_.push_back(sign);
    return true;
  }

  // Applies what binds at least as much, down to an open parenthesis.
  bool reduce(int least) {
    while (!operators_.empty() && operators_.back() != L'(' && rank(operators_.back()) >= least) {
      const wchar_t sign = operators_.back();
      operators_.pop_back();
      const double right = values_.back();
      if (sign == kNegate) {
        values_.back() = -right;
        continue;
      }
      values_.pop_back();
      if (sign == L'/' && right == 0)
        return false;
      values_.back() = apply(sign, values_.back(), right);
    }
    return true;
  }

  static double apply(wchar_t sign, double left, double right) {
    switch (sign) {
    case L'+':
      return left + right;
    case L'-':
      return left - right;
    case L'*':
      return left * right;
    case L'/':
      return left / right;
    default:
      return std::pow(left, right);
    }
  }

  std::vector<double> values_;
  std::vector<wchar_t> operators_;
};

struct NumberFormat {
  int unitMode, precision;
  double factor = 1;
  std::wstring prefix, suffix;
  bool dropsTrailingZeros = false, dropsLeadingZero = false;
  wchar_t decimal = L'.', thousands = 0;
};

// The text in brackets behind a directive.
std::optional<std::wstring_view> takeBracketed(std::wstring_view& text) {
  const std::size_t end = text.find(L']');
  if (text.empty() || text.front() != L'[' || end == text.npos)
    return std::nullopt;
  const std::wstring_view inside = text.substr(1, end - 1);
  text.remove_prefix(end + 1);
  return inside;
}

bool takePrefixAndSuffix(std::wstring_view& text, NumberFormat& format) {
  const std::optional<std::wstring_view> both = takeBracketed(text);
  if (!both)
    return false;
  const std::size_t comma = both->find(L',');
  format.prefix = both->substr(0, comma);
  format.suffix = comma == both->npos ? L"" : both->substr(comma + 1);
  return true;
}

bool takeConversion(std::wstring_view& text, NumberFormat& format) {
  std::optional<std::wstring_view> factor;
  if (!takeWord(text, L"8") || !(factor = takeBracketed(text)))
    return false;
  const std::optional<double> value = takeNumber(*factor);
  format.factor = value.value_or(1);
  return value && factor->empty();
}

bool takeDirective(std::wstring_view& text, NumberFormat& format) {
  if (takeWord(text, L"%ps"))
    return takePrefixAndSuffix(text, format);
  if (takeWord(text, L"%ct"))
    return takeConversion(text, format);
  const std::wstring_view name = text.substr(0, 3);
  text.remove_prefix(name.size());
  const std::optional<int> value = takeInteger(text);
  if (!value)
    return false;
  if (name == L"%lu")
    format.unitMode = *value == 6 ? format.unitMode : *value;
  else if (name == L"%pr")
    format.precision = *value;
  else if (name == L"%ds")
    format.decimal = static_cast<wchar_t>(*value);
  else if (name == L"%th")
    format.thousands = static_cast<wchar_t>(*value);
  else if (name == L"%zs") {
    format.dropsLeadingZero = (*value & 4) != 0;
    format.dropsTrailingZeros = (*value & 8) != 0;
  } else
    return false;
  return true;
}

std::optional<std::string> digitsOf(double value, const NumberFormat& format) {
  constexpr int kScientific = 1, kDecimal = 2, kMaxDigits = 16;
  if ((format.unitMode != kScientific && format.unitMode != kDecimal) || format.precision > kMaxDigits)
    return std::nullopt;
  char buffer[400];
  const auto style = format.unitMode == kScientific ? std::chars_format::scientific : std::chars_format::fixed;
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, style, format.precision).ptr;
  std::string digits(buffer, end);
  if (format.dropsTrailingZeros && style == std::chars_format::fixed && digits.find('.') != digits.npos) {
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.')
      digits.pop_back();
  }
  if (digits == "-0" || (digits[0] == '-' && digits.find_first_not_of("-0.") == digits.npos))
    digits.erase(0, 1);
  return digits;
}

} // namespace

std::optional<double> computeExpression(const OdString& expression) {
  return Calculator().compute(expression.visible());
}

std::optional<OdString> formatNumber(double value, const OdString& format, const NumberDefaults& defaults) {
  NumberFormat parsed{defaults.unitMode, defaults.precision, 1, {}, {}};
  for (std::wstring_view rest = format.visible(); !rest.empty();) {
    if (!takeDirective(rest, parsed))
      return std::nullopt;
  }
  const std::optional<std::string> digits = digitsOf(value * parsed.factor, parsed);
  if (!digits)
    return std::nullopt;
  std::wstring text = parsed.prefix;
  const std::size_t sign = digits->front() == '-' ? 1 : 0, whole = std::min(digits->find('.'), digits->size());
  const bool leadingZero =
      parsed.dropsLeadingZero && whole == sign + 1 && (*digits)[sign] == '0' && whole < digits->size();
  for (std::size_t i = 0; i < digits->size(); ++i) {
    const wchar_t ch = static_cast<wchar_t>((*digits)[i]);
    if (leadingZero && i == sign)
      continue;
    if (parsed.thousands != 0 && i > sign && i < whole && (whole - i) % 3 == 0 && digits->find('e') == digits->npos)
      text += parsed.thousands;
    text += ch == L'.' ? parsed.decimal : ch;
  }
  return OdString(text + parsed.suffix);
}

std::optional<OdString> formatText(const OdString& text, const OdString& format) {
  OdString changed = text;
  if (format.isEmpty())
    return changed;
  if (format == L"%tc1")
    return changed.makeUpper();
  if (format == L"%tc2")
    return changed.makeLower();
  return std::nullopt;
}

std::optional<OdString> formatFileName(const OdString& path, const OdString& format) {
  constexpr int kFolder = 1, kName = 2, kExtension = 4, kAll = 7;
  std::wstring_view rest = format.visible();
  const std::optional<int> parts = rest.empty()             ? std::optional<int>(kName | kExtension)
                                   : takeWord(rest, L"%fn") ? takeInteger(rest)
                                                            : std::nullopt;
  if (!parts || !rest.empty() || *parts < kFolder || *parts > kAll)
    return std::nullopt;
  const int slash = path.findOneOf(L"/\\") < 0 ? -1 : std::max(path.reverseFind(L'/'), path.reverseFind(L'\\'));
  int dot = path.reverseFind(L'.');
  dot = dot <= slash ? path.getLength() : dot;
  OdString text;
  if ((*parts & kFolder) != 0)
    text += path.left(*parts == kFolder ? slash : slash + 1);
  if ((*parts & kName) != 0)
    text += path.mid(slash + 1, dot - slash - 1);
  if ((*parts & kExtension) != 0)
    text += path.mid(*parts == kExtension ? dot + 1 : dot);
  return text;
}

namespace {

std::wstring padded(int value, int width) {
  const std::wstring digits = std::to_wstring(value);
  const auto wanted = static_cast<std::size_t>(width);
  return digits.size() < wanted ? std::wstring(wanted - digits.size(), L'0') + digits : digits;
}

// Names of months and days are those of a language, and not known here.
std::optional<std::wstring> dateComponent(const FieldDate& date, wchar_t letter, int count) {
  const int hour12 = date.hour % 12 == 0 ? 12 : date.hour % 12;
  const struct {
    wchar_t letter;
    int value;
  } rows[] = {{L'd', date.day}, {L'M', date.month},  {L'H', date.hour},
              {L'h', hour12},   {L'm', date.minute}, {L's', date.second}};
  for (const auto& row : rows) {
    if (row.letter == letter)
      return count <= 2 ? std::optional<std::wstring>(padded(row.value, count)) : std::nullopt;
  }
  if (letter == L'y' && (count == 2 || count == 4))
    return padded(count == 2 ? date.year % 100 : date.year, count);
  if (letter == L't' && count <= 2)
    return std::wstring(date.hour < 12 ? L"AM" : L"PM").substr(0, static_cast<std::size_t>(count));
  return std::nullopt;
}

bool isLetter(wchar_t ch) {
  return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z');
}

} // namespace

std::optional<OdString> formatDate(const FieldDate& date, const OdString& format) {
  const OdString pattern = format.isEmpty() ? OdString(L"M/d/yyyy") : format;
  const std::wstring_view letters = pattern.visible();
  std::wstring text;
  for (std::size_t i = 0; i < letters.size();) {
    const std::size_t end = std::min(letters.find_first_not_of(letters[i], i), letters.size());
    const std::optional<std::wstring> component = isLetter(letters[i])
                                                      ? dateComponent(date, letters[i], static_cast<int>(end - i))
                                                      : std::wstring(letters.substr(i, end - i));
    if (!component)
      return std::nullopt;
    text += *component;
    i = end;
  }
  return OdString(text);
}

} // namespace drawing

#include "morvane/print.h"
#include "morvane/host.h"
#include "morvane/result_codes.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace morvane {
namespace {

constexpr std::size_t kWidestField = 4096;

struct Directive {
  std::wstring_view text;  // from '%' to the conversion
  std::wstring_view shape; // flags, width and precision
  wchar_t conversion = 0;
};

// Steps over the digits of a width or precision; false when it is absurdly wide.
bool skipWidth(std::wstring_view format, std::size_t& at) {
  std::size_t width = 0;
  for (; at < format.size() && format[at] >= L'0' && format[at] <= L'9'; ++at) {
    width = width * 10 + static_cast<std::size_t>(format[at] - L'0');
    if (width > kWidestField)
      return false;
  }
  return true;
}

// The directive at the '%' that the format begins with; the conversion is 0 when there is none.
Directive readDirective(std::wstring_view format) {
  Directive directive;
  std::size_t at = 1;
  while (at < format.size() && std::wstring_view(L"-+ #0").find(format[at]) != std::wstring_view::npos)
    ++at;
  bool sane = skipWidth(format, at);
  if (at < format.size() && format[at] == L'.')
    sane = sane && skipWidth(format, ++at);
  directive.shape = format.substr(1, at - 1);
  if (format.substr(at).starts_with(L"I64"))
    at += 3;
  while (at < format.size() && (format[at] == L'l' || format[at] == L'h'))
    ++at;
  const bool known =
      at < format.size() && std::wstring_view(L"scdiuxXfFeEgG").find(format[at]) != std::wstring_view::npos;
  directive.conversion = sane && known ? format[at] : L'\0';
  directive.text = format.substr(0, directive.conversion != 0 ? at + 1 : 1);
  return directive;
}

std::uint64_t asUnsigned(std::int64_t value, std::size_t bytes) {
  const auto wide = static_cast<std::uint64_t>(value);
  return bytes >= sizeof wide ? wide : wide & ((std::uint64_t{1} << (8 * bytes)) - 1);
}

// Formats one argument by one directive; false when the types do not fit.
class Piece {
public:
  Piece(const Directive& directive, std::size_t bytes, OdString& out)
      : directive_(directive), bytes_(bytes), out_(out) {}

  bool operator()(std::int64_t value) const {
    if (isOneOf(L"uxX"))
      return format(L"I64", asUnsigned(value, bytes_));
    return isOneOf(L"di") ? format(L"I64", value) : character(value);
  }
  bool operator()(std::uint64_t value) const {
    return isOneOf(L"diuxX") ? format(L"I64", value) : character(static_cast<std::int64_t>(value));
  }
  bool operator()(double value) const { return isOneOf(L"fFeEgG") && format(L"", value); }
  bool operator()(const wchar_t* value) const { return isOneOf(L"s") && format(L"", value == nullptr ? L"" : value); }

private:
  bool isOneOf(std::wstring_view conversions) const {
    return conversions.find(directive_.conversion) != std::wstring_view::npos;
  }
  bool character(std::int64_t value) const { return isOneOf(L"c") && format(L"", static_cast<wchar_t>(value)); }
  template <class T>
  bool format(const wchar_t* size, T value) const {
    std::wstring spec = L"%";
    spec.append(directive_.shape).append(size).append(1, directive_.conversion);
    out_.format(spec.c_str(), value);
    return true;
  }

  const Directive& directive_;
  std::size_t bytes_;
  OdString& out_;
};

} // namespace

OdString formatText(const wchar_t* format, const PrintArg* args, std::size_t count) {
  OdString text;
  if (format == nullptr)
    return text;
  std::wstring_view rest = format;
  std::size_t used = 0;
  while (!rest.empty()) {
    const auto mark = std::min(rest.find(L'%'), rest.size());
    text += OdString(rest.substr(0, mark));
    rest.remove_prefix(mark);
    if (rest.empty())
      break;
    if (rest.starts_with(L"%%")) {
      text += L'%';
      rest.remove_prefix(2);
      continue;
    }
    const Directive directive = readDirective(rest);
    OdString piece;
    const bool fits = directive.conversion != 0 && used < count &&
                      std::visit(Piece(directive, args[used].bytes(), piece), args[used].value());
    text += fits ? piece : OdString(directive.text);
    used += directive.conversion != 0 ? 1 : 0;
    rest.remove_prefix(directive.text.size());
  }
  return text;
}

} // namespace morvane

namespace mvsi {

int mvsiutPrintArgs(const wchar_t* format, const morvane::PrintArg* args, std::size_t count) {
  morvane::Host* host = morvane::admitCall("mvsiutPrintf");
  if (host == nullptr || format == nullptr)
    return RTERROR;
  host->output().print(morvane::formatText(format, args, count));
  return RTNORM;
}

int mvsiedPrompt(const wchar_t* text) {
  morvane::Host* host = morvane::admitCall("mvsiedPrompt");
  if (host == nullptr || text == nullptr)
    return RTERROR;
  host->output().print(text);
  return RTNORM;
}

} // namespace mvsi

#include "console/messages/messages.h"

#include <string_view>

namespace console {
namespace {

// Marks that turn the direction of writing can make a line read as another one.
bool isPrintedRaw(wchar_t ch) {
  const bool control = ch < 0x20 || (ch >= 0x7F && ch < 0xA0);
  const bool direction = (ch >= 0x200E && ch <= 0x200F) || (ch >= 0x2028 && ch <= 0x202E) ||
                         (ch >= 0x2066 && ch <= 0x2069) || ch == 0xFEFF;
  const bool none = (ch >= 0xD800 && ch <= 0xDFFF) || ch > 0x10FFFF;
  return !control && !direction && !none;
}

// What a place "{1}" or "{1:one|many}" stands for; `place` is what lies between the braces.
OdString argumentText(std::wstring_view placeholder, const std::vector<OdString>& arguments) {
  const auto index = static_cast<std::size_t>(placeholder[0] - L'1');
  const OdString value = index < arguments.size() ? escaped(arguments[index]) : OdString();
  if (placeholder.size() < 2)
    return value;
  const auto bar = placeholder.find(L'|');
  return OdString(value == L"1" ? placeholder.substr(2, bar - 2) : placeholder.substr(bar + 1));
}

} // namespace

OdString escaped(const OdString& text) {
  OdString printed;
  for (const wchar_t ch : text.str()) {
    if (isPrintedRaw(ch)) {
      printed += ch;
    } else {
      OdString code;
      printed += code.format(L"\\u%04X", static_cast<unsigned>(ch));
    }
  }
  return printed;
}

OdString render(const MessageText& text, const std::vector<OdString>& arguments) {
  std::wstring_view rest = text.english;
  OdString rendered;
  for (auto open = rest.find(L'{'); open != std::wstring_view::npos; open = rest.find(L'{')) {
    const auto close = rest.find(L'}', open);
    rendered += OdString(rest.substr(0, open));
    rendered += argumentText(rest.substr(open + 1, close - open - 1), arguments);
    rest.remove_prefix(close + 1);
  }
  return rendered += OdString(rest);
}

OdString count(std::size_t number) {
  return OdString(std::to_wstring(number));
}

OdString nameList(const std::vector<OdString>& names) {
  constexpr std::size_t kMaxNames = 20;
  OdString list;
  for (std::size_t at = 0; at < names.size() && at < kMaxNames; ++at)
    list += (at == 0 ? OdString() : OdString(L", ")) + L"\"" + names[at] + L"\"";
  return names.size() > kMaxNames ? list + L" ..." : list;
}

} // namespace console

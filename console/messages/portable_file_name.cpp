#include "console/messages/portable_file_name.h"

#include <algorithm>
#include <string_view>

namespace console {
namespace {

constexpr std::size_t kMaxBytes = 200; // of 255, for a number and an ending

bool isUnsafe(wchar_t ch) {
  constexpr std::wstring_view kKept = L"<>:\"/\\|?*";
  const auto code = static_cast<unsigned long>(ch);
  const auto within = [code](unsigned long first, unsigned long last) { return code >= first && code <= last; };
  const bool isControl = code < 0x20 || within(0x7F, 0x9F) || within(0x2028, 0x2029);
  const bool isBidiControl =
      within(0x200B, 0x200F) || within(0x202A, 0x202E) || within(0x2066, 0x2069) || code == 0xFEFF;
  const bool isNoCharacter = within(0xD800, 0xDFFF) || code == 0xFFFD || (code & 0xFFFE) == 0xFFFE || code > 0x10FFFF;
  return isControl || isBidiControl || isNoCharacter || kKept.find(ch) != std::wstring_view::npos;
}

// Everything after the first dot.
bool isDevice(const OdString& name) {
  constexpr std::wstring_view kDevices[] = {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
  constexpr std::wstring_view kNumbered[] = {L"COM", L"LPT"};
  constexpr std::wstring_view kNumbers = L"0123456789\u00B9\u00B2\u00B3";
  const int dot = name.find(L'.');
  OdString stem = dot < 0 ? name : name.left(dot);
  stem.trimRight().makeUpper();
  const std::wstring& text = stem.str();
  const bool isNumbered =
      text.size() == 4 && kNumbers.find(text[3]) != std::wstring_view::npos &&
      std::find(std::begin(kNumbered), std::end(kNumbered), text.substr(0, 3)) != std::end(kNumbered);
  return isNumbered || std::find(std::begin(kDevices), std::end(kDevices), text) != std::end(kDevices);
}

OdString shortened(OdString name, std::size_t bytes) {
  while (name.toUtf8().size() > bytes)
    name = name.left(name.getLength() - 1);
  return name;
}

OdString portable(const OdString& text) {
  std::wstring name = text.str();
  std::replace_if(name.begin(), name.end(), isUnsafe, L'_');
  name = shortened(name, kMaxBytes).str();
  constexpr std::wstring_view kNotFirst = L" .-~";
  constexpr std::wstring_view kNotLast = L" .";
  if (name.empty())
    return L"_";
  if (kNotFirst.find(name.front()) != std::wstring_view::npos)
    name.front() = L'_';
  if (kNotLast.find(name.back()) != std::wstring_view::npos)
    name.back() = L'_';
  return isDevice(name) ? L"_" + OdString(name) : OdString(name);
}

} // namespace

OdString PortableNames::add(const OdString& text) {
  const OdString name = portable(text);
  OdString unique = name;
  const auto isNew = [this](OdString candidate) { return taken_.insert(candidate.makeLower()).second; };
  for (int number = 2; !isNew(unique); ++number)
    unique = name + L"-" + OdString(std::to_wstring(number));
  return unique;
}

} // namespace console

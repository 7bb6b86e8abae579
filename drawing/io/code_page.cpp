#include "drawing/io/code_page.h"

#include <algorithm>
#include <charconv>
#include <iconv.h>
#include <iterator>

namespace drawing::dxf {

namespace {

constexpr std::uint32_t kNotConverted = 0xFFFFFFFF;
constexpr std::uint32_t kNone = 0xFFFFFFFE;
constexpr int kIsoNumber = 28590;
constexpr int kMacintoshNumber = 10000;

enum class Family : std::uint8_t { kAnsi, kDos, kIso, kMacintosh, kUtf8 };

struct Page {
  int number;
  Family family;
  const char* table; // as iconv calls it
  std::size_t longest = 1;
};

constexpr Page kPages[] = {
    {874, Family::kAnsi, "CP874"},
    {932, Family::kAnsi, "CP932", 2},
    {936, Family::kAnsi, "GB18030", 4}, // files of that page hold its four-byte extension too
    {949, Family::kAnsi, "CP949", 2},
    {950, Family::kAnsi, "CP950", 2},
    {1250, Family::kAnsi, "CP1250"},
    {1251, Family::kAnsi, "CP1251"},
    {1252, Family::kAnsi, "CP1252"},
    {1253, Family::kAnsi, "CP1253"},
    {1254, Family::kAnsi, "CP1254"},
    {1255, Family::kAnsi, "CP1255"},
    {1256, Family::kAnsi, "CP1256"},
    {1257, Family::kAnsi, "CP1257"},
    {1258, Family::kAnsi, "CP1258"},
    {1361, Family::kAnsi, "JOHAB", 2},
    {437, Family::kDos, "CP437"},
    {737, Family::kDos, "CP737"},
    {775, Family::kDos, "CP775"},
    {850, Family::kDos, "CP850"},
    {852, Family::kDos, "CP852"},
    {855, Family::kDos, "CP855"},
    {857, Family::kDos, "CP857"},
    {858, Family::kDos, "CP858"},
    {860, Family::kDos, "CP860"},
    {861, Family::kDos, "CP861"},
    {862, Family::kDos, "CP862"},
    {863, Family::kDos, "CP863"},
    {864, Family::kDos, "CP864"},
    {865, Family::kDos, "CP865"},
    {866, Family::kDos, "CP866"},
    {869, Family::kDos, "CP869"},
    {kMacintoshNumber, Family::kMacintosh, "MACINTOSH"},
    {kIsoNumber + 1, Family::kIso, "ISO-8859-1"},
    {kIsoNumber + 2, Family::kIso, "ISO-8859-2"},
    {kIsoNumber + 3, Family::kIso, "ISO-8859-3"},
    {kIsoNumber + 4, Family::kIso, "ISO-8859-4"},
    {kIsoNumber + 5, Family::kIso, "ISO-8859-5"},
    {kIsoNumber + 6, Family::kIso, "ISO-8859-6"},
    {kIsoNumber + 7, Family::kIso, "ISO-8859-7"},
    {kIsoNumber + 8, Family::kIso, "ISO-8859-8"},
    {kIsoNumber + 9, Family::kIso, "ISO-8859-9"},
    {kIsoNumber + 10, Family::kIso, "ISO-8859-10"},
    {kIsoNumber + 13, Family::kIso, "ISO-8859-13"},
    {kIsoNumber + 14, Family::kIso, "ISO-8859-14"},
    {kIsoNumber + 15, Family::kIso, "ISO-8859-15"},
    {kIsoNumber + 16, Family::kIso, "ISO-8859-16"},
    {kUtf8Page, Family::kUtf8, "UTF-8", 4},
};

struct Alias {
  std::string_view name;
  int number;
};

constexpr Alias kAliases[] = {
    {"GBK", 936},
    {"GB2312", 936},
    {"GB18030", 936},
    {"BIG5", 950},
    {"KSC5601", 949},
    {"UHC", 949},
    {"JOHAB", 1361},
    {"SHIFTJIS", 932},
    {"SJIS", 932},
    {"ASCII", 1252},
    {"USASCII", 1252},
    {"MACROMAN", kMacintoshNumber},
    {"MACINTOSH", kMacintoshNumber},
    {"UTF8", kUtf8Page},
};

const Page* pageOf(int number) {
  const auto* found =
      std::find_if(std::begin(kPages), std::end(kPages), [number](const Page& page) { return page.number == number; });
  return found == std::end(kPages) ? nullptr : found;
}

// Capital letters and digits alone: drawings disagree on the rest.
std::string plainName(std::string_view name) {
  std::string plain;
  for (char ch : name) {
    if (ch >= 'a' && ch <= 'z')
      plain += static_cast<char>(ch - 'a' + 'A');
    else if ((ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9'))
      plain += ch;
  }
  return plain;
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
  if (text.substr(0, prefix.size()) != prefix)
    return false;
  text.remove_prefix(prefix.size());
  return true;
}

int numberOf(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size() ? number : 0;
}

} // namespace

int codePageNumber(std::string_view name) {
  const std::string plain = plainName(name);
  for (const Alias& alias : kAliases) {
    if (plain == alias.name)
      return alias.number;
  }
  std::string_view rest = plain;
  int number = 0;
  if (takePrefix(rest, "ISO8859") || takePrefix(rest, "8859")) {
    number = kIsoNumber + numberOf(rest);
  } else {
    for (std::string_view prefix : {"ANSI", "DOS", "CP", "IBM", "WINDOWS"}) {
      if (takePrefix(rest, prefix))
        break;
    }
    number = numberOf(rest);
  }
  return pageOf(number) == nullptr ? 0 : number;
}

std::string codePageName(int number) {
  const Page* page = pageOf(number);
  if (page == nullptr)
    return {};
  switch (page->family) {
  case Family::kDos:
    return "dos" + std::to_string(number);
  case Family::kIso:
    return "iso8859-" + std::to_string(number - kIsoNumber);
  case Family::kMacintosh:
    return "mac-roman";
  case Family::kUtf8:
    return "UTF-8";
  default:
    return "ANSI_" + std::to_string(number);
  }
}

CodePage::CodePage(int number) {
  const Page* page = pageOf(number);
  const char* table = page == nullptr ? "" : page->table;
  longest_ = page == nullptr ? 1 : page->longest;
  toUnicode_ = page == nullptr ? iconv_t(-1) : ::iconv_open("UTF-32LE", table);
  fromUnicode_ = page == nullptr ? iconv_t(-1) : ::iconv_open(table, "UTF-32LE");
}

CodePage::~CodePage() {
  for (void* converter : {toUnicode_, fromUnicode_}) {
    if (converter != iconv_t(-1))
      ::iconv_close(converter);
  }
}

namespace {

// Converts the whole input from a fresh state; how many bytes came out, 0 for a failure.
std::size_t convert(void* converter, std::string_view in, char* out, std::size_t size) {
  if (converter == iconv_t(-1))
    return 0;
  ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
  char* from = const_cast<char*>(in.data()); // iconv does not write there
  char* to = out;
  std::size_t left = size;
  std::size_t toTake = in.size();
  if (::iconv(converter, &from, &toTake, &to, &left) == static_cast<std::size_t>(-1) || toTake != 0)
    return 0;
  // Some tables hold the last character back, to join it with accents that follow.
  if (::iconv(converter, nullptr, nullptr, &to, &left) == static_cast<std::size_t>(-1))
    return 0;
  return size - left;
}

} // namespace

// The one character that a code stands for.
std::uint32_t CodePage::toUtf32(std::string_view code) const {
  unsigned char out[16];
  if (convert(toUnicode_, code, reinterpret_cast<char*>(out), sizeof out) != 4)
    return kNone;
  const std::uint32_t value =
      out[0] | (std::uint32_t{out[1]} << 8) | (std::uint32_t{out[2]} << 16) | (std::uint32_t{out[3]} << 24);
  return value < 0x80 ? kNone : value; // ASCII in disguise could forge an escape and would come back as another byte
}

std::uint32_t CodePage::cachedToUtf32(std::unique_ptr<Row>& row, std::string_view code) const {
  if (row == nullptr) {
    row = std::make_unique<Row>();
    row->fill(kNotConverted);
  }
  std::uint32_t& known = (*row)[static_cast<unsigned char>(code.back())];
  if (known == kNotConverted)
    known = toUtf32(code);
  return known;
}

CodePage::Character CodePage::decode(std::string_view bytes) {
  if (bytes.empty())
    return {};
  const std::uint32_t single = cachedToUtf32(singles_, bytes.substr(0, 1));
  if (single != kNone)
    return {single, 1};
  if (longest_ < 2 || bytes.size() < 2)
    return {};
  const std::uint32_t pair = cachedToUtf32(pairs_[static_cast<unsigned char>(bytes[0])], bytes.substr(0, 2));
  if (pair != kNone)
    return {pair, 2};
  if (longest_ < 4 || bytes.size() < 4)
    return {};
  const std::uint32_t four = toUtf32(bytes.substr(0, 4));
  return four == kNone ? Character() : Character{four, 4};
}

CodePage::Code CodePage::codeFor(std::uint32_t ch) {
  const unsigned char in[4] = {static_cast<unsigned char>(ch), static_cast<unsigned char>(ch >> 8),
                               static_cast<unsigned char>(ch >> 16), static_cast<unsigned char>(ch >> 24)};
  char out[16];
  Code code;
  const std::size_t length = convert(fromUnicode_, {reinterpret_cast<const char*>(in), 4}, out, sizeof out);
  if (length == 0 || length > sizeof code.bytes || static_cast<unsigned char>(out[0]) < 0x80)
    return {};
  std::copy(out, out + length, code.bytes);
  code.length = length;
  // Tables also answer with the nearest they have, or in parts.
  const Character back = decode(code.text());
  return back.value == ch && back.bytes == length ? code : Code();
}

CodePage::Code CodePage::encode(std::uint32_t ch) {
  const auto [at, isNew] = codes_.try_emplace(ch);
  if (isNew)
    at->second = codeFor(ch);
  return at->second;
}

} // namespace drawing::dxf

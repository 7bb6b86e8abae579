#include "drawing/io/code_page.h"

#include <algorithm>
#include <charconv>
#include <iconv.h>
#include <iterator>

namespace drawing::dxf {

namespace {

constexpr std::uint32_t kNotConverted = 0xFFFFFFFF;
constexpr std::uint32_t kNone = 0xFFFFFFFE;
constexpr int kIso = 28590;
constexpr int kMacintosh = 10000;

enum class Family : std::uint8_t { Ansi, Dos, Iso, Macintosh, Utf8 };

struct Page {
  int number;
  Family family;
  const char* table; // as iconv calls it
  std::size_t longest = 1;
};

constexpr Page kPages[] = {
    {874, Family::Ansi, "CP874"},
    {932, Family::Ansi, "CP932", 2},
    {936, Family::Ansi, "GB18030", 4}, // files of that page hold its four-byte extension too
    {949, Family::Ansi, "CP949", 2},
    {950, Family::Ansi, "CP950", 2},
    {1250, Family::Ansi, "CP1250"},
    {1251, Family::Ansi, "CP1251"},
    {1252, Family::Ansi, "CP1252"},
    {1253, Family::Ansi, "CP1253"},
    {1254, Family::Ansi, "CP1254"},
    {1255, Family::Ansi, "CP1255"},
    {1256, Family::Ansi, "CP1256"},
    {1257, Family::Ansi, "CP1257"},
    {1258, Family::Ansi, "CP1258"},
    {1361, Family::Ansi, "JOHAB", 2},
    {437, Family::Dos, "CP437"},
    {737, Family::Dos, "CP737"},
    {775, Family::Dos, "CP775"},
    {850, Family::Dos, "CP850"},
    {852, Family::Dos, "CP852"},
    {855, Family::Dos, "CP855"},
    {857, Family::Dos, "CP857"},
    {858, Family::Dos, "CP858"},
    {860, Family::Dos, "CP860"},
    {861, Family::Dos, "CP861"},
    {862, Family::Dos, "CP862"},
    {863, Family::Dos, "CP863"},
    {864, Family::Dos, "CP864"},
    {865, Family::Dos, "CP865"},
    {866, Family::Dos, "CP866"},
    {869, Family::Dos, "CP869"},
    {kMacintosh, Family::Macintosh, "MACINTOSH"},
    {kIso + 1, Family::Iso, "ISO-8859-1"},
    {kIso + 2, Family::Iso, "ISO-8859-2"},
    {kIso + 3, Family::Iso, "ISO-8859-3"},
    {kIso + 4, Family::Iso, "ISO-8859-4"},
    {kIso + 5, Family::Iso, "ISO-8859-5"},
    {kIso + 6, Family::Iso, "ISO-8859-6"},
    {kIso + 7, Family::Iso, "ISO-8859-7"},
    {kIso + 8, Family::Iso, "ISO-8859-8"},
    {kIso + 9, Family::Iso, "ISO-8859-9"},
    {kIso + 10, Family::Iso, "ISO-8859-10"},
    {kIso + 13, Family::Iso, "ISO-8859-13"},
    {kIso + 14, Family::Iso, "ISO-8859-14"},
    {kIso + 15, Family::Iso, "ISO-8859-15"},
    {kIso + 16, Family::Iso, "ISO-8859-16"},
    {kUtf8Page, Family::Utf8, "UTF-8", 4},
};

struct Alias {
  std::string_view name;
  int number;
};

constexpr Alias kAliases[] = {
    {"GBK", 936},      {"GB2312", 936},          {"GB18030", 936},          {"BIG5", 950},       {"KSC5601", 949},
    {"UHC", 949},      {"JOHAB", 1361},          {"SHIFTJIS", 932},         {"SJIS", 932},       {"ASCII", 1252},
    {"USASCII", 1252}, {"MACROMAN", kMacintosh}, {"MACINTOSH", kMacintosh}, {"UTF8", kUtf8Page},
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
    number = kIso + numberOf(rest);
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
  case Family::Dos:
    return "dos" + std::to_string(number);
  case Family::Iso:
    return "iso8859-" + std::to_string(number - kIso);
  case Family::Macintosh:
    return "mac-roman";
  case Family::Utf8:
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

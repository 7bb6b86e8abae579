// Text of drawings is never lost: each code page, text and byte comes back as it was.
#include "DbText.h"
#include "drawing/file.h"
#include "drawing/io/text_codec.h"
#include "tests/support/drawings.h"
#include "tests/support/oracles.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <sstream>
#include <vector>

using drawing::dxf::TextCodec;
using namespace tests;
using namespace std::string_literals;

namespace {

std::string decoded(TextCodec& codec, const std::string& bytes) {
  std::string buffer;
  return std::string(codec.decode(bytes, buffer));
}

std::string encoded(TextCodec& codec, const std::string& text) {
  std::string buffer;
  return std::string(codec.encode(text, buffer));
}

std::vector<std::string> allPages() {
  std::istringstream names("ANSI_874 ANSI_1250 ANSI_1251 ANSI_1252 ANSI_1253 ANSI_1254 ANSI_1255 ANSI_1256 ANSI_1257 "
                           "ANSI_1258 dos437 dos850 dos852 dos855 dos857 dos860 dos861 dos862 dos863 dos864 dos865 "
                           "dos866 dos869 mac-roman iso8859-1 iso8859-2 iso8859-7 iso8859-15 ANSI_932 ANSI_936 "
                           "ANSI_949 ANSI_950 ANSI_1361 UTF-8");
  return {std::istream_iterator<std::string>(names), {}};
}

// "left=right" of each word.
std::vector<std::pair<std::string, std::string>> textPairs(const std::string& text) {
  std::vector<std::pair<std::string, std::string>> pairs;
  std::istringstream words(text);
  for (std::string word; words >> word;)
    pairs.emplace_back(word.substr(0, word.find('=')), word.substr(word.find('=') + 1));
  return pairs;
}

TEST(TextCodec, KnowsPagesByTheirNames) {
  for (const auto& [name, page] : textPairs(
           "ANSI_1252=ANSI_1252 ansi_1251=ANSI_1251 windows-1251=ANSI_1251 GBK=ANSI_936 gb2312=ANSI_936 DOS437=dos437 "
           "ISO8859-1=iso8859-1 8859_15=iso8859-15 8859_5=iso8859-5 Mac-Roman=mac-roman ksc5601=ANSI_949 UTF-8=UTF-8 "
           "utf-8=UTF-8 = ANSI_= ANSI_99999999999= klingon=")) {
    const TextCodec codec(name);
    EXPECT_EQ(codec.codePage(), page.empty() ? "ANSI_1252" : page) << name;
    EXPECT_EQ(codec.isKnown(), !page.empty()) << name;
    EXPECT_EQ(drawing::isKnownEncoding(name), !page.empty()) << name;
  }
  for (const std::string& name : allPages())
    EXPECT_EQ(TextCodec(name).codePage(), name);
}

TEST(TextCodec, DecodesAndEncodesThePage) {
  const struct {
    const char *page, *bytes, *text;
  } cases[] = {{"ANSI_1252", "\xE9\x80", "é€"},
               {"ANSI_1251", "\xC0\xFF", "Ая"},
               {"ANSI_874", "\x80\xA1", "€ก"},
               {"ANSI_1258", "a\xEC", "a\u0301"},
               {"dos437", "\xE1\xF8", "ß°"},
               {"dos866", "\x80", "А"},
               {"mac-roman", "\x8A", "ä"},
               {"ANSI_932", "\x95\x5C\xB1", "表ｱ"},
               {"ANSI_936", "\xB1\xED\xD6\xD0", "表中"},
               {"ANSI_936", "\x81\x30\x81\x30\x90\x30\x81\x30", "\u0080\U00010000"},
               {"ANSI_949", "\xC7\xD1\x81\x41", "한갂"},
               {"ANSI_950", "\xB3\x5C\xF9\xD6", "許碁"},
               {"ANSI_1361", "\xD0\x65", "한"}};
  for (const auto& row : cases) {
    TextCodec codec(row.page);
    EXPECT_EQ(decoded(codec, row.bytes), row.text) << row.page;
    EXPECT_EQ(encoded(codec, row.text), row.bytes) << row.page;
    EXPECT_EQ(codec.undecodable(), 0u) << row.page;
  }
}

TEST(TextCodec, LeavesAsciiWhereItIs) {
  TextCodec page("ANSI_932");
  TextCodec utf8("", TextCodec::Mode::kUtf8);
  std::string buffer = "untouched";
  for (const std::string& text : {""s, "plain"s, "%%c ^J ^ \\P\\U \\M \\\\"s, std::string(1000, '~'), "a\0b"s}) {
    for (TextCodec* codec : {&page, &utf8}) {
      EXPECT_EQ(codec->decode(text, buffer).data(), text.data());
      EXPECT_EQ(codec->encode(text, buffer).data(), text.data());
    }
  }
  const std::string raw = "straße\xFF 中";
  EXPECT_EQ(utf8.decode(raw, buffer).data(), raw.data());
  EXPECT_EQ(utf8.encode(raw, buffer).data(), raw.data());
  EXPECT_EQ(buffer, "untouched");
}

TEST(TextCodec, ReadsEscapes) {
  const auto cases = textPairs(R"(a\U+4E2Db=a中b \U+00e9\U+00E9=éé \U+D83D\U+DE00!=😀! \U+D83D\U+DC00=🐀 \U+D83D=\U+D83D
                             \U+D83Dx\U+DE00=\U+D83Dx\U+DE00 \U+D83D\U+D83D\U+DE00=\U+D83D😀 \U+4E2=\U+4E2 \U+4E2G=\U+4E2G
                             \U+-4E2=\U+-4E2 \u+4E2D=\u+4E2D \\U+4E2D=\中 \U+005CU+4E2D=\U+4E2D \M+1955C=表 \M+100B1=ｱ
                             \M+2B35C=許 \M+3C7D1=한 \M+4D065=한 \M+5D6D0=中 \M+50041=A \M+6D6D0=\M+6D6D0 \M+0D6D0=\M+0D6D0
                             \M+1FFFF=\M+1FFFF \M+5D6D=\M+5D6D \M+5D6=\M+5D6)");
  for (const auto mode : {TextCodec::Mode::kCodePage, TextCodec::Mode::kUtf8}) {
    TextCodec codec("ANSI_1252", mode);
    for (const auto& [bytes, text] : cases)
      EXPECT_EQ(decoded(codec, bytes), text) << bytes;
  }
  TextCodec japanese("ANSI_932"); // 95 5C is one character, its second byte no backslash
  EXPECT_EQ(decoded(japanese, "\x95\\U+4E2D"), "表U+4E2D");
  EXPECT_EQ(encoded(japanese, "表U+4E2D"), "\x95\\U+4E2D");
}

TEST(TextCodec, WritesWhatThePageCannotHold) {
  const struct {
    const char *page, *text, *bytes;
  } cases[] = {{"ANSI_1252", "é中😀", "\xE9\\U+4E2D\\U+D83D\\U+DE00"},
               {"ANSI_1258", "ế", "\\U+1EBF"},
               {"ANSI_936", "😀", "\x94\x39\xFC\x36"},
               {"ANSI_932", "\u00A5", "\\U+00A5"},
               {"ANSI_1252", "\\U+0041", "\\U+005CU+0041"},
               {"ANSI_1252", "\\M+1955C", "\\U+005CM+1955C"},
               {"ANSI_1252", "\\U+00é", "\\U+00\xE9"},
               {"ANSI_1252", "a\r\nb^J\xE9", "a^M^Jb^J\\U+DCE9"},
               {"ANSI_1252", "\x81", "\x81"},
               {"UTF-8", "é\n\\U+0041\xFF", "é^J\\U+005CU+0041\xFF"}};
  for (const auto& row : cases) {
    TextCodec codec(row.page);
    EXPECT_EQ(encoded(codec, row.text), row.bytes) << row.page << ' ' << row.text;
  }
}

TEST(TextCodec, CountsWhatDoesNotFit) {
  TextCodec page("ANSI_932");
  const std::string bytes = "ab\x80\x95\x5C\xFF\x81";
  EXPECT_EQ(decoded(page, "fine"), "fine");
  EXPECT_EQ(page.firstUndecodable(), nullptr);
  std::string buffer;
  EXPECT_EQ(page.decode(bytes, buffer), "ab\x80表\xFF\x81");
  EXPECT_EQ(page.undecodable(), 3u);
  EXPECT_EQ(page.firstUndecodable() - bytes.data(), 2);
  encoded(page, buffer); // looks at its own work without counting
  EXPECT_EQ(page.undecodable(), 3u);

  TextCodec utf8("", TextCodec::Mode::kUtf8);
  const std::string damaged = "é\xC3(\xED\xA0\x80";
  const std::string escaped = damaged + "\\U+0041";
  utf8.decode(damaged, buffer);
  EXPECT_EQ(utf8.undecodable(), 4u);
  EXPECT_EQ(utf8.firstUndecodable() - damaged.data(), 2);
  utf8.decode(escaped, buffer);
  EXPECT_EQ(utf8.undecodable(), 8u);
}

// Pieces that come close to escapes, characters and damage, put together at random. Bytes that a page does not know
// must not pass for a character side by side: D2 AA is none in Greek, and a Cyrillic letter in UTF-8.
std::string randomText(std::mt19937& random, bool anyByte) {
  static const std::vector<std::string> kPieces = {
      "\\",       "U+",   "M+",   "\\U+",     "\\M+1",        "D83D",         "DE00",
      "\\U+DCC3", "DCE9", "4E2D", "\\U+D83D", "\\U+DE00",     "955C",         "é",
      "中",       "😀",    "Ж",    "한",       "\xED\xB3\x92", "\xED\xB2",     "\xED\xB2\xAA",
      "\xC3",     "\xA9", "\x81", "\x30",     "\xFF",         "\xEB\x80\x80", "\xD2\xAA"};
  std::string text;
  for (auto left = random() % 12; left > 0; --left)
    text +=
        anyByte && random() % 2 == 0 ? std::string(1, static_cast<char>(random())) : kPieces[random() % kPieces.size()];
  std::erase_if(text, [](char ch) { return ch == '\r' || ch == '\n'; });
  return text;
}

TEST(TextCodec, EveryTextAndAllBytesRoundTrip) {
  std::mt19937 forTexts(20240607), forBytes(7);
  for (const std::string& name : allPages()) {
    TextCodec codec(name);
    const bool hasTwins = std::string_view("ANSI_932 ANSI_949 ANSI_950 ANSI_1361").find(name) != std::string::npos;
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
      const std::string text = randomText(forTexts, i % 2 == 0);
      std::string bytes = randomText(forBytes, true);
      SCOPED_TRACE(name + ' ' + testing::PrintToString(text) + ' ' + testing::PrintToString(bytes));
      EXPECT_EQ(decoded(codec, encoded(codec, text)), text);
      std::erase_if(bytes, [](char ch) { return ch == '+'; }); // no escape without it
      const std::string back = encoded(codec, decoded(codec, bytes));
      if (hasTwins && back != bytes) // another code of the same character: equally long, the same text
        EXPECT_EQ(back.size(), bytes.size());
      else
        EXPECT_EQ(back, bytes);
      EXPECT_EQ(decoded(codec, back), decoded(codec, bytes));
    }
  }
}

// The texts of a file against the encoding that it declares.
TEST(Encoding, FollowsTheTextsWhereTheyContradictTheHeader) {
  const struct {
    const char *what, *version, *page;
    std::vector<std::string> texts;     // as the file has them
    const wchar_t* first;               // as it is read
    bool contradicted, escaped = false; // written as an escape
  } cases[] = {
      {"UTF-8 under 1251", "AC1015", "ANSI_1251", {"\xD0\x94\xD0\xB0", "\xD0\xAF"}, L"Да", true},
      {"1251 as declared", "AC1015", "ANSI_1251", {"\xC4\xE0"}, L"Да", false},
      {"both kinds under 1251", "AC1015", "ANSI_1251", {"\xC4\xE0", "\xD0\xAF"}, L"Да", false},
      {"UTF-8 under 936", "AC1015", "ANSI_936", {"\xE9\x97\xA8\xE7\xAA\x97\xE5\xA2\x99"}, L"门窗墙", true},
      {"936 as declared", "AC1015", "ANSI_936", {"\xC3\xC5\xB4\xB0"}, L"门窗", false},
      {"one pair under 936", "AC1015", "ANSI_936", {"\xC4\xA3"}, L"模", false, true},
      {"932 with a backslash", "AC1015", "ANSI_932", {"\x94\xE0\x5C"}, L"扉\\", false},
      {"1252 as declared", "AC1015", "ANSI_1252", {"T\xFCr"}, L"Tür", false},
      {"1252 undeclared", "AC1015", "", {"T\xFCr"}, L"Tür", false},
      {"936 in a file of 2007", "AC1021", "ANSI_936", {"\xC3\xC5\xB4\xB0"}, L"门窗", true},
      {"UTF-8 in a file of 2007", "AC1021", "ANSI_936", {"\xE9\x97\xA8"}, L"门", false},
      {"both kinds in a file of 2007", "AC1021", "ANSI_1251", {"\xE9\x97\xA8", "\xC4\xE0"}, L"门", false},
      {"UTF-8 in a file of 2018", "AC1032", "", {"\xF0\x9F\x9A\xAA"}, L"\U0001F6AA", false},
      {"UTF-8 in a file of a later version", "AC1050", "", {"\xC3\xBC"}, L"ü", false},
      {"plain text", "AC1015", "ANSI_1251", {"door"}, L"door", false},
  };
  for (const auto& row : cases) {
    std::string entities;
    for (const std::string& text : row.texts)
      entities += "0|TEXT\n100|AcDbEntity\n8|0\n100|AcDbText\n10|0\n20|0\n30|0\n40|1\n1|" + text + "\n100|AcDbText\n";
    const drawing::ReadResult read = readWell(dxf(section("ENTITIES", entities), row.version, row.page));
    EXPECT_EQ(read.report.has("dxf.encoding-contradicted"), row.contradicted) << row.what;
    const auto first = forRead<OdDbText>(entitiesOf(read.database->getModelSpaceId())[0]);
    EXPECT_EQ(first->textString(), OdString(row.first)) << row.what;
    const std::string written = drawing::writeDrawingToMemory(*read.database);
    const std::string stands = row.escaped ? "\n\\U+6A21\n" : "\n" + row.texts[0] + "\n";
    EXPECT_TRUE(row.contradicted || written.find(stands) != std::string::npos) << row.what;
    expectRoundTrip(*read.database);
  }
}

// What is written in a page must not read as UTF-8 the next time: "Р”" has the bytes of "Д".
TEST(Encoding, TextsThatWouldPassForUtf8GoOutAsEscapes) {
  TextCodec codec("ANSI_1251");
  codec.escapeAmbiguousText();
  EXPECT_EQ(encoded(codec, "\xD0\xA0\xE2\x80\x9D"), "\\U+0420\\U+201D");
  EXPECT_EQ(decoded(codec, "\\U+0420\\U+201D"), "\xD0\xA0\xE2\x80\x9D");
  EXPECT_EQ(encoded(codec, "\xD0\x94\xD0\xB0"), "\xC4\xE0");
}

TEST(Encoding, TheFirstByteThatIsNoTextHasItsLine) {
  const std::string text =
      dxf(section("ENTITIES", "0|TEXT\n8|0\n10|0\n20|0\n40|1\n1|a\xC4\xE0\n7|\x98\n"), "AC1015", "ANSI_1251");
  const auto read = drawing::readDrawingFromMemory(text);
  const auto at = text.begin() + static_cast<std::ptrdiff_t>(text.find('\x98'));
  const drawing::Issue& issue = read.report.issues().back();
  EXPECT_EQ(issue.code, "dxf.text-undecodable");
  EXPECT_EQ(issue.line, static_cast<std::uint64_t>(std::count(text.begin(), at, '\n')) + 1);
  EXPECT_FALSE(
      drawing::readDrawingFromMemory(text, "x", {.budget = {}, .encoding = "866"}).report.has("dxf.text-undecodable"));
}

} // namespace

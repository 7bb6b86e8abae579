#include "OdError.h"
#include "OdString.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

OdString withZero() {
  return OdString(L"ab\0cd", 5);
}

TEST(OdString, KeepsZerosInItsLength) {
  OdString text(L"ab");
  text += L'\0';
  EXPECT_EQ(text.getLength(), 3);
  EXPECT_EQ(text.getAt(2), 0);
  text += L"c";
  EXPECT_EQ(text.str(), std::wstring(L"ab\0c", 4));
  EXPECT_EQ((withZero() + withZero()).getLength(), 10);
  EXPECT_EQ((L'x' + withZero() + L"y").str(), std::wstring(L"xab\0cdy", 7));
  EXPECT_EQ((L"x" + withZero() + L'\0').getLength(), 7);
  EXPECT_EQ(OdString(L'\0', 1).getLength(), 1);
  EXPECT_FALSE(OdString(L'\0', 1).isEmpty());
  EXPECT_EQ(OdString(withZero()).getLength(), 5);
  text = withZero().c_str(); // the buffer is read up to its zero
  EXPECT_EQ(text.getLength(), 2);
  text = text.c_str() + 1; // out of its own buffer
  EXPECT_EQ(text.str(), L"b");
}

TEST(OdString, ComparesAndSearchesUpToTheFirstZero) {
  EXPECT_EQ(withZero(), L"ab");
  EXPECT_EQ(withZero(), OdString(L"ab\0xy", 5));
  EXPECT_EQ(OdString(L'\0', 3), OdString());
  EXPECT_EQ(withZero().find(L'c'), -1);
  EXPECT_EQ(withZero().find(L"d"), -1);
  EXPECT_EQ(withZero().reverseFind(L'd'), -1);
  EXPECT_EQ(withZero().findOneOf(L"dcb"), 1);
  EXPECT_EQ(withZero().find(L"", 4), -1);
  EXPECT_EQ(withZero().iCompare(L"AB"), 0);
  EXPECT_EQ(withZero().toUtf8(), "ab");
  EXPECT_EQ(OdString().format(L"<%s>", withZero().c_str()).str(), L"<ab>");
  EXPECT_EQ(foldHash(withZero()), foldHash(OdString(L"AB")));
  EXPECT_EQ(foldHash(std::wstring_view(withZero().str())), foldHash(OdString(L"AB")));
}

TEST(OdString, OrdersByCharacter) {
  EXPECT_LT(OdString(L"ab"), L"abc");
  EXPECT_GT(OdString(L"b"), OdString(L"ab"));
  EXPECT_LT(OdString(L"Z"), OdString(L"a"));
  EXPECT_GT(OdString(L"Z").iCompare(L"a"), 0);
  EXPECT_LT(OdString(L"a").iCompare(L"B"), 0);
  EXPECT_NE(L"x", OdString(L"y"));
  EXPECT_EQ(OdString(static_cast<const wchar_t*>(nullptr)), L"");
}

TEST(OdString, CutsWithoutFailing) {
  const OdString text = withZero();
  OdString cuts;
  for (const OdString& cut : {text.left(3), text.left(-1), text.left(99), text.right(2), text.right(0), text.right(99),
                              text.mid(1), text.mid(-7), text.mid(5), text.mid(6), text.mid(INT_MAX), text.mid(1, 3),
                              text.mid(3, INT_MAX), text.mid(3, -1), text.mid(INT_MIN, 1)})
    cuts += L"[" + cut + L"]";
  cuts.replace(L'\0', L'|');
  EXPECT_EQ(cuts.str(), L"[ab|][][ab|cd][cd][][ab|cd][b|cd][ab|cd][][][][b|c][cd][][a]");
}

TEST(OdString, RefusesIndicesOutOfRange) {
  OdString text = withZero();
  EXPECT_EQ(text.getAt(4), L'd');
  EXPECT_THROW(text.getAt(5), OdError_InvalidIndex);
  EXPECT_THROW(text.getAt(-1), OdError_InvalidIndex);
  EXPECT_THROW(text.setAt(5, L'x'), OdError_InvalidIndex);
  EXPECT_THROW(text[5U], OdError_InvalidIndex);
  EXPECT_THROW(text[std::size_t(1) << 32], OdError_InvalidIndex);
  EXPECT_THROW(OdString().getAt(0), OdError_InvalidIndex);
}

TEST(OdString, SearchesFromAPlace) {
  const OdString text(L"banana");
  EXPECT_EQ(text.find(L'a'), 1);
  EXPECT_EQ(text.find(L'a', 2), 3);
  EXPECT_EQ(text.find(L'a', 6), -1);
  EXPECT_EQ(text.find(L"ana", 2), 3);
  EXPECT_EQ(text.find(L"ana", -5), 1);
  EXPECT_EQ(text.find(L"ana", INT_MAX), -1);
  EXPECT_EQ(text.find(L"", 6), 6);
  EXPECT_EQ(text.reverseFind(L'n'), 4);
  EXPECT_EQ(text.findOneOf(L"xyz"), -1);
}

TEST(OdString, EditsInPlace) {
  EXPECT_EQ(OdString(L" \t\r\n\v\fa b\u00A0\f ").trimLeft().trimRight().str(), L"a b\u00A0");
  EXPECT_EQ(OdString(L" \x1F").trimRight().trimLeft().str(), L"\x1F");
  EXPECT_TRUE(OdString(L" \t ").trimRight().isEmpty());
  EXPECT_TRUE(OdString(L" \t ").trimLeft().isEmpty());

  OdString text(L"aXbXX");
  EXPECT_EQ(text.replace(L"X", L"XX"), 3);
  EXPECT_EQ(text.str(), L"aXXbXXXX");
  EXPECT_EQ(text.replace(L"", L"?"), 0);
  EXPECT_EQ(text.replace(L'X', L'-'), 6);
  EXPECT_EQ(text.remove(L'-'), 6);
  EXPECT_EQ(text.insert(99, L"c"), 3);
  EXPECT_EQ(text.insert(-1, text.c_str()), 6); // its own buffer
  EXPECT_EQ(text.str(), L"abcabc");
  EXPECT_EQ(text.deleteChars(1, 4), 2);
  EXPECT_EQ(text.deleteChars(9, 4), 2);
  EXPECT_EQ(text.deleteChars(1, INT_MAX), 1);
  EXPECT_EQ(text.str(), L"a");
}

template <class... Values>
std::wstring made(const wchar_t* fmt, Values... values) {
  return OdString().format(fmt, values...).str();
}

TEST(OdString, FormatsNumbersAndTexts) {
  EXPECT_EQ(made(L"%s=%d%%", L"\u540D", -7), L"\u540D=-7%");
  EXPECT_EQ(made(L"[%8.2f|%-8.3e|%g]", 1234.567, 0.5, 1e-7), L"[ 1234.57|5.000e-01|1e-07]");
  EXPECT_EQ(made(L"%F %E %G", -1.5, 1e300, 1e-300), L"-1.500000 1.000000E+300 1E-300");
  EXPECT_EQ(made(L"%08.3f %+d % d %+.0f", -3.14159, 5, 5, 2.5), L"-003.142 +5  5 +2");
  EXPECT_EQ(made(L"%x %X %#x %o %#o %u", 255, 255, 255, 8, 8, 4294967295U), L"ff FF 0xff 10 010 4294967295");
  EXPECT_EQ(made(L"%I64d %lld %I64u", LLONG_MIN, LLONG_MAX, ULLONG_MAX),
            L"-9223372036854775808 9223372036854775807 18446744073709551615");
  EXPECT_EQ(made(L"%ld %hd", -5L, 65535), L"-5 -1");
  EXPECT_EQ(made(L"[%5s|%-5s|%.2s|%*d|%-*d]", L"ab", L"ab", L"abcdef", 4, 7, 3, 7), L"[   ab|ab   |ab|   7|7  ]");
  EXPECT_EQ(made(L"[%*d|%.3d|%.0d|%05.3d]", -4, 7, 7, 0, 7), L"[7   |007||  007]");
  EXPECT_EQ(made(L"%#.3g %#.0f %g %.3g", 1.0, 3.0, 1e15, 123456.0), L"1.00 3. 1e+15 1.23e+05");
  EXPECT_EQ(made(L"%f %05f %E", HUGE_VAL, -HUGE_VAL, HUGE_VAL), L"inf  -inf INF");
  EXPECT_EQ(made(L"%c%c", L'\u00E9', 0), std::wstring(L"\u00E9\0", 2));
  EXPECT_EQ(made(L"%s|", static_cast<const wchar_t*>(nullptr)), L"|");
}

TEST(OdString, CopiesDirectivesItDoesNotKnow) {
  EXPECT_EQ(made(L"%q %5.2y %d", 3), L"%q %5.2y 3");
  EXPECT_EQ(made(L"100% "), L"100% ");
  EXPECT_EQ(made(L"50%"), L"50%");
  EXPECT_EQ(made(L"%5"), L"%5");
  EXPECT_EQ(made(L"%n%p"), L"%n%p");
  EXPECT_EQ(made(L"%I6%d", 4), L"%I64");
  EXPECT_EQ(made(L"%999999999d", 1).size(), 4096U);
  OdString self(L"name");
  self.format(L"%s (%s)", self.c_str(), L"copy");
  EXPECT_EQ(self.str(), L"name (copy)");
}

TEST(OdString, ConvertsToUtf8OrToNothing) {
  EXPECT_EQ(OdString(L"A\u00E9\u95E8\U0001F6AA").toUtf8(), "A\xC3\xA9\xE9\x97\xA8\xF0\x9F\x9A\xAA");
  for (wchar_t bad : {0xD800, 0xDFFF, 0xDC80, 0x110000, -1})
    EXPECT_EQ((OdString(L"abc") + bad).toUtf8(), "") << std::hex << static_cast<int>(bad);
  EXPECT_EQ((OdString(L"abc") + L'\0' + static_cast<wchar_t>(0xD800)).toUtf8(), "abc");
  EXPECT_EQ(OdString(L"\uD7FF\uE000\uFFFF\U0010FFFF").toUtf8().size(), 13U);
}

TEST(OdString, LosesNoByteOfDamagedUtf8) {
  const std::pair<std::string, int> cases[] = {
      // bytes and their characters
      {"plain", 5},
      {"\xE9\x97\xA8", 1},
      {"\xE9\x97", 2},                 // cut off
      {"\xC0\x80", 2},                 // overlong
      {"\xE0\x80\x80", 3},             //
      {"\xED\xA0\x80", 3},             // a surrogate
      {"\xF4\x90\x80\x80", 4},         // above the last character
      {"\xFF\xFE\x61\x80", 4},         //
      {"\xC3\xC3\xA9", 2},             // damage before a good one
      {std::string("a\0b", 3), 3},     //
      {"\xF0\x9F\x9A\xAA\xF0\x9F", 3}, //
  };
  for (const auto& [bytes, characters] : cases) {
    const OdString text = OdString::fromUtf8(bytes);
    EXPECT_EQ(text.getLength(), characters) << bytes;
    EXPECT_EQ(text.toUtf8Lossless(), bytes);
  }
  EXPECT_EQ(OdString::fromUtf8("\xFF").getAt(0), 0xDCFF);
  EXPECT_EQ(OdString(static_cast<wchar_t>(0xD800), 1).toUtf8Lossless(), "\xEF\xBF\xBD");
}

TEST(FoldCase, MakesCaseFormsEqual) {
  const wchar_t* const equal[] = {L"aA",           L"\u00E9\u00C9", L"\u00FF\u0178", L"\u0101\u0100",
                                  L"\u017F\u0053", L"\u01C6\u01C5", L"\u01C6\u01C4", L"\u0253\u0181",
                                  L"\u03C3\u03A3", L"\u03C2\u03A3", L"\u03AC\u0386", L"\u0436\u0416",
                                  L"\u0450\u0400", L"\u04CF\u04C0", L"\u0561\u0531", L"\uFF41\uFF21",
                                  L"\u1E9E\u00DF", L"\u00B5\u03BC", L"\u13A0\uAB70", L"\U00010428\U00010400"};
  for (const wchar_t* pair : equal)
    EXPECT_EQ(foldCase(pair[0]), foldCase(pair[1])) << std::hex << static_cast<int>(pair[0]);
  const wchar_t* const different[] = {L"@`", L"[{", L"\u00D7\u00F7", L"\u0130i", L"\u0131I", L"\u95E8\u95E9"};
  for (const wchar_t* pair : different)
    EXPECT_NE(foldCase(pair[0]), foldCase(pair[1])) << std::hex << static_cast<int>(pair[0]);
  for (wchar_t ch = 0; ch < 0x20000; ++ch) {
    const wchar_t folded = foldCase(ch);
    ASSERT_EQ(foldCase(folded), folded) << std::hex << static_cast<int>(ch);
    const bool dotless = ch == 0x131; // its capital is that of another letter
    ASSERT_TRUE(dotless || foldCase(upperCase(ch)) == folded) << std::hex << static_cast<int>(ch);
    ASSERT_EQ(foldCase(lowerCase(ch)), folded) << std::hex << static_cast<int>(ch);
  }
}

TEST(FoldCase, GoesThroughWholeTexts) {
  EXPECT_EQ(OdString(L"T\u00DCR-\u0416\u03A3").iCompare(L"t\u00FCr-\u0436\u03C2"), 0);
  EXPECT_EQ(foldHash(OdString(L"T\u00DCR")), foldHash(OdString(L"t\u00FCr")));
  EXPECT_NE(foldHash(OdString(L"door")), foldHash(OdString(L"doro")));
  EXPECT_EQ(OdString(L"t\u00FCr \u00DF \u00FF").makeUpper().str(), L"T\u00DCR \u00DF \u0178");
  EXPECT_EQ(OdString(L"T\u00DCR \u03A3").makeLower().str(), L"t\u00FCr \u03C3");
}

} // namespace

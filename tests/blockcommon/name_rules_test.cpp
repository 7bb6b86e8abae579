// Which texts may name a block. Accept and refuse tables for the two sets of rules, and the small text services.
#include "blockcommon/block_names.h"
#include "morvane/testing.h"
#include "tests/support/print.h"

#include <gtest/gtest.h>

namespace {

using morvane::ScriptedHost;

bool isLegal(const OdString& name) {
  bool flag = false;
  const bool legal = blockUtils::isLigitimacyName(name, flag);
  EXPECT_FALSE(flag);
  return legal;
}

TEST(BlockName, ExtendedRulesCountBytesAndRefuseThirteenCharacters) {
  ScriptedHost host;
  for (const wchar_t* name : {L"A", L"A 1", L" A", L"A(1)", L"$-_.'[]{}!", L"()^~@#%&+", L"块"})
    EXPECT_TRUE(isLegal(name)) << name;
  for (const wchar_t forbidden : std::wstring_view(L"\\<>/?\":;*|,=`"))
    EXPECT_FALSE(isLegal(OdString(L"A") + forbidden + L"B")) << static_cast<int>(forbidden);
  EXPECT_TRUE(isLegal(OdString(L'a', 1023)) && isLegal(OdString(L'块', 341)));
  EXPECT_FALSE(isLegal(OdString(L'a', 1024)) || isLegal(OdString(L'块', 400)));
}

TEST(BlockName, StrictRulesApplyOnlyToAReadableZero) {
  ScriptedHost host;
  mvsi::setVar(L"EXTNAMES", static_cast<short>(0), true);
  EXPECT_FALSE(isLegal(L"A(1)"));
  EXPECT_TRUE(isLegal(L"A 1"));
  EXPECT_TRUE(isLegal(L"块$-_.'[]{}!"));
  for (const wchar_t forbidden : std::wstring_view(L"()^~@#%&+`*"))
    EXPECT_FALSE(isLegal(OdString(L"A") + forbidden)) << static_cast<int>(forbidden);
  EXPECT_TRUE(isLegal(OdString(L'a', 32)));
  EXPECT_FALSE(isLegal(OdString(L'a', 33)));
  EXPECT_FALSE(isLegal(OdString(L'块', 11)));                   // 33 bytes
  host.host().variables().setOwn(L"EXTNAMES", std::int32_t{0}); // another kind of integer
  EXPECT_TRUE(isLegal(L"A(1)"));
  mv_arbitDict_unregister(kEditSystemServer);
  EXPECT_TRUE(isLegal(L"A(1)"));
}

TEST(BlockName, TheFlagIsSetOnlyForNamesWithoutUtf8) {
  ScriptedHost host;
  const OdString unencodable(std::wstring(1, static_cast<wchar_t>(0xD800)));
  const struct {
    OdString name;
    bool flag;
  } cases[] = {{OdString(), false}, {L"A*", false}, {unencodable, true}, {OdString(L"\0A", 2), true}, {L"A", false}};
  for (const auto& one : cases) {
    for (const bool before : {false, true}) {
      bool flag = before;
      EXPECT_EQ(blockUtils::isLigitimacyName(one.name, flag), one.name == L"A");
      EXPECT_EQ(flag, before || one.flag);
    }
  }
}

TEST(BlockName, InsertRulesHaveAFixedLimitAndCheckTheFirstSpace) {
  const struct {
    OdString name;
    bool block, insert;
  } cases[] = {
      {L"", false, true},    {L"A", true, true},   {OdString(L'块', 255), true, true},
      {L"A(B)", true, true}, {L" A", true, false}, {OdString(L'a', 256), false, false},
      {L"A ", true, false},  {L" ", true, false},  {L"A B ", true, true},
      {L"A B", true, true},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(insertCommon::isBlockNameValid(one.name), one.block) << one.name.toUtf8();
    EXPECT_EQ(insertCommon::isInsertBlockNameValid(one.name), one.insert) << one.name.toUtf8();
  }
  for (const wchar_t forbidden : std::wstring_view(L"`*<>,;:\"\\|/=?")) {
    EXPECT_FALSE(insertCommon::isBlockNameValid(OdString(L"A") + forbidden));
    EXPECT_FALSE(insertCommon::isInsertBlockNameValid(OdString(L"A") + forbidden));
  }
}

TEST(LastInsertedName, IsStoredInTheVariable) {
  ScriptedHost host;
  EXPECT_EQ(insertCommon::getLastInsertBlockName(), L"");
  EXPECT_EQ(insertCommon::setLastInsertBlockName(L"B%s", true), RTNORM);
  EXPECT_EQ(insertCommon::getLastInsertBlockName(), L"*B%s");
  EXPECT_EQ(insertCommon::setLastInsertBlockName(L"B1", false), RTNORM);
  OdString stored;
  mvsi::getVar(L"INSNAME", stored, true);
  EXPECT_EQ(stored, L"B1");
  host.host().variables().setOwn(L"INSNAME", 1.0);
  EXPECT_EQ(insertCommon::setLastInsertBlockName(L"B1", false), RTREJ);
  EXPECT_EQ(insertCommon::getLastInsertBlockName(), L"");
  EXPECT_EQ(insertCommon::generateBlockName(false), L"");
}

TEST(CountByCharacter, IsOneMoreThanTheLastPosition) {
  const struct {
    OdString text;
    wchar_t character;
    int count;
  } cases[] = {
      {L"a?b?", L'?', 4},  {L"?ab", L'?', 1}, {L"ab", L'?', 0}, {OdString(L"a?\0?", 4), L'?', 2},
      {L"x?y?z", L'?', 4}, {L"", L'?', 0},    {L"a", L'\0', 0}, {OdString(L"\0?", 2), L'?', 0},
  };
  for (const auto& one : cases)
    EXPECT_EQ(commonFun::GetCntsByeChar(one.text, one.character), one.count) << one.text.toUtf8();
  // Names come from files: a long one must not take quadratic time.
  EXPECT_EQ(commonFun::GetCntsByeChar(OdString(L'?', 2000000), L'?'), 2000000);
}

TEST(InputType, DistinguishesListsNamesAndErrors) {
  const std::pair<OdString, int> cases[] = {
      {L"?", 0},   {L"? x", 0}, {L"? ", 2}, {L"abc", 1},  {OdString(L"\0a", 2), 2},
      {L"a b", 1}, {L"a?", 2},  {L"??", 2}, {L"? xy", 2}, {OdString(L"a\0?", 3), 1},
      {L"", 2},
  };
  for (const auto& [text, type] : cases)
    EXPECT_EQ(commonFun::GetInputType(text), type) << text.toUtf8();
}

TEST(NumericText, IsWrittenInTheCurrentUnits) {
  ScriptedHost host;
  const std::pair<OdString, const wchar_t*> cases[] = {
      {L"1.5", L"1.5000"},
      {L"1.5e2", L"150.0000"},
      {L"1'-6\"", L"18.0000"},
      {OdString(L'0', 150) + L"1.5E2", L"150.0000"}, // an exponent keeps the text whole
      {OdString(L'0', 120) + L"7", L"0.0000"},
  };
  for (const auto& [text, number] : cases)
    EXPECT_EQ(blockUtils::stringToNumeriString(text), number) << text.toUtf8();
  for (const wchar_t* text : {L"", L"abc", L"inf", L"1e999"})
    EXPECT_EQ(blockUtils::stringToNumeriString(text), L"") << text;
  EXPECT_EQ(blockUtils::stringToNumeriString(OdString(L'1', 200)).getLength(), 105); // cut to 100 digits, which fit
  mvsi::setVar(L"LUNITS", static_cast<short>(4), true);
  EXPECT_EQ(blockUtils::stringToNumeriString(L"18"), L"1'-6\"");
  mv_arbitDict_unregister(kDbServer);
  EXPECT_EQ(blockUtils::stringToNumeriString(L"18"), L"");
  EXPECT_EQ(blockUtils::trimCoordinateSysValStrByLpcrecVar(L" 1,2 "), L" 1,2 ");
}

} // namespace

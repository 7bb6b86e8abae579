// The path of an answer: from a source through keywords, flags and coordinates to the service's caller.
#include "morvane/testing.h"
#include "tests/support/print.h"

#include <gtest/gtest.h>
#include <sstream>
#include <tuple>

namespace {

using morvane::ScriptedHost;

OdSmartPtr<MvEditGetServer> service() {
  const OdRxObjectPtr found = mv_arbitDict_getservice(kEditGetServer);
  return OdSmartPtr<MvEditGetServer>(dynamic_cast<MvEditGetServer*>(found.get()));
}

struct Asked {
  int code = 0;
  OdString text;
};

Asked promptKeyword(int flags, const wchar_t* keywords, int capacity = 64) {
  wchar_t buffer[64] = {};
  const auto input = service();
  input->mvsiedInitGet(flags, keywords);
  const int code = input->mvsiedGetKword(L"\n?: ", buffer, capacity);
  return {code, buffer};
}

Asked promptText(int allowSpaces) {
  static wchar_t buffer[morvane::kMaxAnswerLength + 1];
  const int code = service()->mvsiedGetString(allowSpaces, L"\n?: ", buffer);
  return {code, buffer};
}

// The answer, or 7,7,7 where none is written.
OdGePoint3d promptPoint(int code = RTNORM) {
  double point[3] = {7, 7, 7};
  EXPECT_EQ(service()->mvsiedGetPoint(nullptr, L"\nPoint: ", point), code);
  return {point[0], point[1], point[2]};
}

TEST(Keywords, MatchByCapitalsAndReturnGlobalNames) {
  const wchar_t* const none = nullptr; // no match, so free text
  const struct {
    const wchar_t* list;
    std::vector<std::pair<const wchar_t*, const wchar_t*>> answers; // what is typed, the global name
  } cases[] = {
      {L"Yes No _ Yes No", {{L"y", L"Yes"}, {L"YE", L"Yes"}}},
      {L"Yes No _Yes No", {{L"no", L"No"}}},
      {L"Yes No", {{L"yess", none}, {L"o", none}, {L"", none}}},
      {L"Ja Nein _ Yes No", {{L"j", L"Yes"}, {L"_n", L"No"}, {L"yes", none}}},
      {L"Ja Nein _ Yes", {{L"nein", L"Nein"}}},
      {L"LType LAyer", {{L"l", none}, {L"la", L"LAyer"}}},
      {L"eXit", {{L"x", L"eXit"}, {L"ex", L"eXit"}, {L"e", none}}},
      {L"ALL", {{L"al", none}}},
      {L"2P 3P", {{L"3p", L"3P"}}},
      {L"LTYPE,LT", {{L"lt", L"LTYPE"}}},
      {L"On OnAll", {{L"on", L"On"}}},
      {L"是(Y) 否(N) _ Yes No", {{L"n", L"No"}, {L"是(y)", L"Yes"}}},
      {L"", {{L"x", none}}},
      {L"_", {{L"_", none}}},
  };
  for (const auto& [list, answers] : cases) {
    for (const auto& [typed, global] : answers) {
      ScriptedHost host({typed});
      EXPECT_EQ(promptKeyword(128, list).text, global == none ? typed : global) << list << ' ' << typed;
    }
  }
}

TEST(Input, KeywordsAreArmedForOneInputOnly) {
  ScriptedHost host({L"y", L"maybe", L"y"});
  EXPECT_EQ(promptKeyword(128, L"Yes No").text, L"Yes");
  EXPECT_EQ(promptKeyword(128, L"Yes No").text, L"maybe");
  wchar_t buffer[8] = L"?";
  EXPECT_EQ(service()->mvsiedGetKword(L"?", buffer, 8), RTCANCELLED); // "y" is no keyword any more, then the input ends
  EXPECT_STREQ(buffer, L"");
}

TEST(Input, EmptyAnswersFollowTheFlag) {
  ScriptedHost host({L"", L"", L"", L"n"});
  EXPECT_EQ(promptKeyword(0, L"Yes No").code, RTEMPTY);
  EXPECT_EQ(promptKeyword(1, L"Yes No").text, L"No");
  EXPECT_EQ(promptText(1).code, RTCANCELLED);
}

TEST(Input, EndAndEscapeAreCancelsAndNeverLoops) {
  ScriptedHost host({L"\x1b", L"x"});
  EXPECT_EQ(promptKeyword(1, L"Yes No").code, RTCANCELLED);
  EXPECT_FALSE(host.host().input().endedInPrompt());
  EXPECT_EQ(promptKeyword(1, L"Yes No").code, RTCANCELLED); // "x" is refused, then nothing is left
  EXPECT_TRUE(host.host().input().endedInPrompt());
  EXPECT_EQ(promptPoint(RTCANCELLED).x, 7);
  EXPECT_EQ(promptText(0).code, RTCANCELLED);
}

TEST(Input, AnswersAreTruncatedToTheBuffer) {
  ScriptedHost host({L"abcdefgh", OdString(L'x', 5000), L"a"});
  EXPECT_EQ(promptKeyword(128, nullptr, 4).text, L"abc");
  EXPECT_EQ(promptText(1).text.getLength(), morvane::kMaxAnswerLength);
  wchar_t untouched = L'u';
  EXPECT_EQ(service()->mvsiedGetKword(L"?", &untouched, 0), RTERROR);
  EXPECT_EQ(service()->mvsiedGetKword(L"?", nullptr, 9), RTERROR);
  EXPECT_EQ(untouched, L'u');
}

TEST(Input, SpacesEndAnswersInScriptsUnlessAllowed) {
  ScriptedHost host;
  host.answerFromScript("\xEF\xBB\xBF; a comment\r\none two\r\nall of this\n1,2 y \nlast");
  EXPECT_TRUE(qzutads::isCalledByScript());
  EXPECT_EQ(promptText(0).text, L"one");
  EXPECT_EQ(promptText(0).text, L"two");
  EXPECT_EQ(promptText(1).text, L"all of this");
  EXPECT_EQ(promptPoint().y, 2);
  EXPECT_EQ(promptKeyword(0, L"Yes No").text, L"Yes");
  EXPECT_EQ(promptText(0).code, RTEMPTY); // the blank before the end of the line was an Enter
  EXPECT_EQ(promptText(0).text, L"last");
  EXPECT_EQ(promptText(0).code, RTCANCELLED);
}

TEST(Input, QuotesKeepNamesWithSpacesTogether) {
  ScriptedHost host;
  host.answerFromScript("\"a b\" c\n\"a b\"c \"open end\n\"\"\n");
  OdString name;
  for (const wchar_t* expected : {L"a b", L"c", L"\"a", L"b\"c", L"\"open", L"end"}) {
    EXPECT_EQ(host.host().input().getName(L"?", name), RTNORM);
    EXPECT_EQ(name, expected);
  }
  EXPECT_EQ(host.host().input().getName(L"?", name), RTEMPTY);
}

TEST(Input, PipedScriptsHaveCommentsAndARestCanBeDropped) {
  ScriptedHost host;
  std::istringstream pipe("\xEF\xBB\xBF; a comment\none two three\n;\nfour\n");
  host.host().input().pushSource(std::make_shared<morvane::StreamSource>(pipe, true));
  EXPECT_EQ(promptText(0).text, L"one");
  host.host().input().dropRestOfLine();
  EXPECT_EQ(promptText(0).text, L"four");
  EXPECT_EQ(promptText(0).code, RTCANCELLED);
}

TEST(Input, TypedLinesEndOnlyAtEnterWhereSpacesCount) {
  ScriptedHost host({L"two words", L"two words", L"1' 6,  2 1/2"});
  EXPECT_FALSE(qzutads::isCalledByScript());
  EXPECT_EQ(promptText(1).text, L"two words");
  EXPECT_EQ(promptText(0).text, L"two");
  EXPECT_EQ(promptText(0).text, L"words");
  EXPECT_EQ(promptPoint(), OdGePoint3d(18, 2.5, 0));
}

TEST(Input, GoesOnWithTheSourceBelowWhenAScriptEnds) {
  ScriptedHost host({L"typed"});
  host.host().input().pushSource(std::make_shared<morvane::ScriptSource>("scripted"));
  EXPECT_EQ(promptText(1).text, L"scripted");
  EXPECT_EQ(promptText(1).text, L"typed");
  std::istringstream pipe("piped\r\n");
  host.host().input().pushSource(std::make_shared<morvane::StreamSource>(pipe, false));
  EXPECT_EQ(promptText(1).text, L"piped");
  // A script that ends inside a prompt leaves the rules of its lines behind.
  host.answerWith({L"1, 2"});
  host.host().input().pushSource(std::make_shared<morvane::ScriptSource>(""));
  EXPECT_EQ(promptPoint().y, 2);
  EXPECT_EQ(morvane::ScriptSource::fromFile("."), nullptr);
  EXPECT_EQ(morvane::ScriptSource::fromFile("./no such file"), nullptr);
}

// A UCS turned by a quarter about Z, with its origin at (10, 0, 0).
class TurnedFrame : public morvane::CoordinateFrame {
public:
  bool ucsToWcs(const double* in, double* out) const override {
    std::tie(out[0], out[1], out[2]) = std::make_tuple(10 - in[1], in[0], in[2]);
    return true;
  }
  bool wcsToUcs(const double* in, double* out) const override {
    std::tie(out[0], out[1], out[2]) = std::make_tuple(in[1], 10 - in[0], in[2]);
    return true;
  }
};

TEST(Points, AreReadInTheUcs) {
  const struct {
    const wchar_t* typed;
    OdGePoint3d point;
  } cases[] = {
      {L"1,2", {1, 2, 0}},     {L"1,2,3", {1, 2, 3}},
      {L"@4,5", {5, 7, 3}},    {L"@", {5, 7, 3}},
      {L"@1,1,1", {6, 8, 4}},  {L"*10,0", {0, 0, 0}},
      {L"*10,5,2", {5, 0, 2}}, {L"@*1,0", {5, -1, 2}},
      {L"2<90", {0, 2, 0}},    {L"@2<180", {-2, 2, 0}},
      {L"@0<0,6", {-2, 2, 6}}, {L"*10<0", {0, 0, 0}},
      {L" 3 , 4 ", {3, 4, 0}}, {L"1'-1/2\",1e1", {12.5, 10, 0}},
  };
  const TurnedFrame frame;
  ScriptedHost host;
  host.host().input().setFrame(&frame);
  for (const auto& one : cases) { // each starts from where the one before ended
    host.answerWith({one.typed});
    EXPECT_LE(promptPoint().distanceTo(one.point), 1e-9) << one.typed;
  }
}

TEST(Points, RefuseOtherTextAndPromptAgain) {
  ScriptedHost host({L"1", L"1,2,3,4", L",", L"1,inf", L"a<5", L"1<", L"@@1,2", L"1e308<0,1e999", L"5,6"});
  EXPECT_EQ(promptPoint().x, 5);
  EXPECT_EQ(host.takeOutput().str().substr(0, 20), L"\nPoint: \nNot a point");
}

TEST(Points, KeywordsAndFreeTextAreForwarded) {
  ScriptedHost host({L"u", L"word", L"1,1"});
  const std::tuple<int, int, const wchar_t*> words[] = {{0, 16, L"Undo"}, {128, 3, L"wo"}}; // flags, room, what is left
  for (const auto& [flags, capacity, word] : words) {
    wchar_t text[16] = {};
    service()->mvsiedInitGet(flags, L"Undo");
    promptPoint(RTKEYWORD);
    EXPECT_EQ(mvsi::mvsiedGetInput(text, capacity), RTNORM);
    EXPECT_STREQ(text, word);
  }
  promptPoint();
}

TEST(Points, OutsideTheLimitsNeedTheUncheckedFlag) {
  ScriptedHost host({L"50,0", L"5,0", L"50,0"});
  host.host().input().setLimits([](const double* point) { return point[0] < 10; });
  EXPECT_EQ(promptPoint().x, 5);
  service()->mvsiedInitGet(8, nullptr);
  EXPECT_EQ(promptPoint().x, 50);
}

} // namespace

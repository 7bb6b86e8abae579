// What the block commands ask and print, as a user at the command line meets it.
#include "blockcommon/prompts.h"
#include "morvane/testing.h"
#include "tests/support/print.h"

#include <gtest/gtest.h>

namespace {

using morvane::FaultyHost;
using morvane::ScriptedHost;

constexpr wchar_t kPleaseAnswer[] = L"\n请回答“是”或“否”。";

TEST(YesNoQuestion, MapsEveryAnswer) {
  const struct {
    const wchar_t* typed;
    int answer;
  } cases[] = {{L"Yes", 1}, {L"yES", 1}, {L"y", 1},    {L"_yes", 1}, {L"No", 0},
               {L"n", 0},   {L"", 2},    {L"\x1b", 3}, {L"x", 4},    {L"Yes!", 4}};
  for (const auto& one : cases) {
    ScriptedHost host({one.typed, L"unread"});
    OdString prompt = L"\n100%s? ";
    EXPECT_EQ(blockUtils::KwordYesNO_Control(prompt), one.answer) << one.typed;
    EXPECT_EQ(host.takeOutput(), OdString(L"\n100%s? ") + (one.answer == 4 ? kPleaseAnswer : L""));
    EXPECT_EQ(host.remainingAnswers(), 1u); // asked once
  }
}

TEST(YesNoQuestion, AFailedCallNeverPassesForAYes) {
  FaultyHost host;
  OdString prompt = L"?";
  for (int n = 1; n == 1 || !host.allPassed(); ++n) {
    ASSERT_LT(n, 9) << "there is always one more call";
    host.answerWith({L"x"});
    host.failCall(n);
    EXPECT_EQ(blockUtils::KwordYesNO_Control(prompt), n == 1 ? 3 : 4); // unarmed, "x" is asked again
  }
  host.failNothing();
  host.answerWith({L"Yes"});
  host.takeOutput();
  mv_arbitDict_unregister(kEditGetServer);
  EXPECT_EQ(blockUtils::KwordYesNO_Control(prompt), 4);
  EXPECT_EQ(host.takeOutput(), kPleaseAnswer);
}

TEST(StringInput, EndsAtASpaceInScriptsUnlessSpacesAreAllowed) {
  static wchar_t result[morvane::kMaxAnswerLength + 1];
  const struct {
    bool script;
    int allowSpaces;
    const wchar_t* text;
  } cases[] = {{false, -1, L"two words"}, {true, -1, L"two"}, {true, 1, L"two words"}, {false, 0, L"two"}};
  for (const auto& one : cases) {
    ScriptedHost host({L"two words"});
    if (one.script)
      host.answerFromScript("two words\n");
    EXPECT_EQ(commonFun::inPutString(0, L"", one.allowSpaces, L"?", result), RTNORM);
    EXPECT_STREQ(result, one.text);
  }
}

TEST(Input, PromptsEvenWhenArmingFailedButNotWithoutAService) {
  FaultyHost host;
  static wchar_t result[morvane::kMaxAnswerLength + 1];
  double point[3] = {};
  host.answerWith({L"text", L"1,2"});
  host.failOperation("mvsiedInitGet");
  EXPECT_EQ(commonFun::inPutString(0, L"", 1, L"?", result), RTNORM);
  EXPECT_STREQ(result, L"text");
  host.failOperation("mvsiedInitGet");
  EXPECT_EQ(commonFun::inPutPoint(0, OdString(), nullptr, OdString(), point), RTNORM);
  EXPECT_EQ(point[1], 2);
  EXPECT_EQ(commonFun::inPutPoint(0, OdString(), nullptr, OdString(), point), RTCANCELLED);
  host.takeOutput();
  mv_arbitDict_unregister(kEditGetServer);
  EXPECT_EQ(commonFun::inPutString(0, L"", -1, L"?", result), RTERROR);
  EXPECT_EQ(commonFun::inPutPoint(0, L"", nullptr, L"?", point), RTERROR);
  EXPECT_EQ(host.takeOutput(), L"");
}

TEST(Printing, OneWayReadsDirectivesAndTheOtherDoesNot) {
  ScriptedHost host;
  EXPECT_EQ(commonFun::mvedPromptEx(L"%% %s"), RTNORM);
  EXPECT_EQ(commonFun::acedPromptString(L"|%% %s"), RTNORM);
  EXPECT_EQ(host.takeOutput(), L"% %s|%% %s");
}

TEST(ColumnFormatter, KeepsItsWidthsAndBreaks) {
  const struct {
    int name, middle;
    int lineBreak; // position of the line break, -1 none
    int length;    // with a tail of one character
  } cases[] = {
      {0, 0, -1, 37},  {28, 0, -1, 37}, {29, 0, -1, 37}, {30, 0, -1, 38}, {31, 0, -1, 39}, {0, 44, -1, 81},
      {0, 45, 81, 83}, {67, 3, -1, 78}, {67, 6, -1, 81}, {67, 7, 81, 83}, {68, 3, 75, 80}, {68, 40, 75, 117},
  };
  for (const auto& one : cases) {
    OdString line = L"old";
    const OdString copy =
        commonFun::createPromptString(line, OdString(L'n', one.name), L"t", OdString(L'm', one.middle));
    EXPECT_EQ(copy, line);
    EXPECT_EQ(line.getLength(), one.length) << one.name << ' ' << one.middle;
    EXPECT_EQ(line.find(L'\n'), one.lineBreak) << one.name << ' ' << one.middle;
  }
  OdString line;
  commonFun::createPromptString(line, L"", L"", L"");
  EXPECT_EQ(line, L"  \"\"   " + OdString(L' ', 29));
  commonFun::createPromptString(line, line, L"|", line); // the line itself may be its own parts
  EXPECT_EQ(line.left(5), L"  \"  ");
}

TEST(Separator, PrintsASpaceOnlyForTheFirstOnTheSameLine) {
  ScriptedHost host;
  for (const int row : {0, 1, 2, 3}) {
    bool first = row % 2 != 0;
    blockUtils::CheckFirstTime(first, row >= 2);
    EXPECT_FALSE(first);
    EXPECT_EQ(host.takeOutput(), row == 3 ? L" " : L"\n") << row;
  }
}

} // namespace

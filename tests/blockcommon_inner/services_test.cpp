// The layer between the library and the host's services: looked up at every call, forwarded as it is, and safe against
// missing services and objects of another kind.
#include "blockcommon/host/services.h"
#include "morvane/testing.h"
#include "tests/support/print.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

using morvane::ScriptedHost;

struct Wrapper {
  const char* name;
  const wchar_t* service;
  std::function<int()> call;
};

std::vector<Wrapper> allWrappers() {
  static wchar_t text[morvane::kMaxAnswerLength + 1];
  static double real[3];
  static long name[2];
  static int length;
  static mvsiresbuf record;
  using namespace hostAccess;
  return {
      {"InitGet", kEditGetServer, [] { return mvsiedInitGet(0, L""); }},
      {"GetString", kEditGetServer, [] { return mvsiedGetString(0, L"?", text); }},
      {"GetPoint", kEditGetServer, [] { return mvsiedGetPoint(nullptr, L"?", real); }},
      {"GetKword", kEditGetServer, [] { return mvsiedGetKword(L"?", text, 9); }},
      {"SSSetFirst", kSelectorServer, [] { return mvsiedSSSetFirst(nullptr, nullptr); }},
      {"SSFree", kSelectorServer, [] { return mvsiedSSFree(name); }},
      {"SSLength", kSelectorServer, [] { return mvsiedSSLength(name, &length); }},
      {"SSAdd", kSelectorServer, [] { return mvsiedSSAdd(name, name, name); }},
      {"SSName", kSelectorServer, [] { return mvsiedSSName(name, 0, name); }},
      {"SetVar", kEditSystemServer, [] { return mvsiedSetVar(L"LUPREC", &record); }},
      {"GetVar", kEditSystemServer, [] { return mvsiedGetVar(L"LUPREC", &record); }},
      {"GetUnitsFactor", kEditSystemServer, [] { return mvsiedGetUnitsFactor(1, real); }},
      {"FindFile", kEditSystemServer, [] { return mvsiedFindFile(L"a", text); }},
      {"RToS", kDbServer, [] { return mvsidbRToS(1, 2, 0, text); }},
      {"DisToF", kDbServer, [] { return mvsidbDisToF(L"1", -1, real); }},
  };
}

TEST(ServiceAccess, MissingServicesReturnAnErrorAndPrintNothing) {
  for (const Wrapper& wrapper : allWrappers()) // nor is there a host
    EXPECT_EQ(wrapper.call(), RTERROR) << wrapper.name;
  ScriptedHost host({L"answer"});
  for (const Wrapper& wrapper : allWrappers()) {
    mv_arbitDict_unregister(wrapper.service);
    EXPECT_EQ(wrapper.call(), RTERROR) << wrapper.name;
  }
  EXPECT_EQ(host.takeOutput(), L"");
  EXPECT_EQ(host.remainingAnswers(), 1u);
}

TEST(ServiceAccess, ObjectsOfAnotherKindAreRefused) {
  ScriptedHost host;
  const OdRxObjectPtr stranger(new OdRxObject);
  for (const Wrapper& wrapper : allWrappers()) {
    mv_arbitDict_register(wrapper.service, stranger);
    if (std::string(wrapper.name) == "FindFile") {
      EXPECT_EQ(wrapper.call(), RTERROR);
      continue;
    }
    try {
      wrapper.call();
      ADD_FAILURE() << wrapper.name;
    } catch (const OdError_NotThatKindOfClass& error) {
      EXPECT_TRUE(error.fromClass() == OdRxObject::desc() && error.toClass() == OdRxObject::desc());
    }
  }
  for (const wchar_t* name : {kEditGetServer, kSelectorServer, kEditSystemServer, kDbServer})
    mv_arbitDict_unregister(name);
  EXPECT_EQ(stranger->referenceCount(), 1u);
}

// Records what it was given, answers a code of its own, throws, or takes itself out of the dictionary.
class RecordingEditGet : public MvEditGetServer {
public:
  int mvsiedInitGet(int flags, const wchar_t* keywords) override {
    seen = OdString().format(L"%d %s %u", flags, keywords, referenceCount());
    return 1;
  }
  int mvsiedGetString(int allowSpaces, const wchar_t* prompt, wchar_t* result) override {
    seen = OdString().format(L"%d %s", allowSpaces, prompt);
    *result = L'r';
    return 2;
  }
  int mvsiedGetPoint(const double*, const wchar_t*, double*) override { throw OdError(eOutOfMemory); }
  int mvsiedGetKword(const wchar_t*, wchar_t*, int) override {
    mv_arbitDict_unregister(kEditGetServer);
    return static_cast<int>(referenceCount());
  }
  OdString seen;
};

TEST(ServiceAccess, ForwardsArgumentsAndResultsAndGivesTheReferenceBack) {
  ScriptedHost host;
  auto* service = new RecordingEditGet;
  const OdRxObjectPtr held(service);
  mv_arbitDict_register(kEditGetServer, held); // registered late, used by the next call
  EXPECT_EQ(hostAccess::mvsiedInitGet(136, L"Yes No"), 1);
  EXPECT_EQ(service->seen, L"136 Yes No 3"); // the test's, the dictionary's and the call's reference
  wchar_t result[2] = {};
  EXPECT_EQ(hostAccess::mvsiedGetString(7, L"ask", result), 2);
  EXPECT_EQ(service->seen, L"7 ask");
  EXPECT_STREQ(result, L"r");
  EXPECT_THROW(hostAccess::mvsiedGetPoint(nullptr, L"", nullptr), OdError);
  EXPECT_EQ(service->referenceCount(), 2u);
  EXPECT_EQ(hostAccess::mvsiedGetKword(L"", result, 2), 2); // the test's and the call's: it lives to the end of it
  EXPECT_EQ(service->referenceCount(), 1u);
}

// Counts its references while it is called.
class CountingEditSystem : public MvEditSystemServer {
public:
  int mvsiedSetVar(const wchar_t*, const mvsiresbuf*) override { return count(); }
  int mvsiedGetVar(const wchar_t*, mvsiresbuf*) override { return count(); }
  int mvsiedGetUnitsFactor(int, double*) override { return count(); }
  int mvsiedFindFile(const wchar_t*, wchar_t*) override { return count(); }

private:
  int count() const { return static_cast<int>(referenceCount()); }
};

TEST(ServiceAccess, EveryCallAddsOneReference) {
  ScriptedHost host;
  mv_arbitDict_register(kEditSystemServer, new CountingEditSystem);
  for (const Wrapper& wrapper : allWrappers()) {
    if (wrapper.service == kEditSystemServer) {
      EXPECT_EQ(wrapper.call(), 2) << wrapper.name; // the dictionary's and the call's
    }
  }
}

TEST(FindFile, LogsOnceWhenNothingUsableIsThere) {
  ScriptedHost host;
  wchar_t found[8];
  const OdRxObjectPtr stranger(new OdRxObject);
  for (const int level : {4, 5, 6}) {
    host.host().log().setLevel(level);
    mv_arbitDict_unregister(kEditSystemServer);
    EXPECT_EQ(hostAccess::mvsiedFindFile(L"a", found), RTERROR);
    mv_arbitDict_register(kEditSystemServer, stranger);
    EXPECT_EQ(hostAccess::mvsiedFindFile(L"a", found), RTERROR);
  }
  ASSERT_EQ(host.logRecords().size(), 4u); // twice at each of the levels 4 and 5
  const morvane::LogRecord& record = host.logRecords()[0];
  EXPECT_EQ(std::make_pair(record.level, record.line), std::make_pair(5, 400));
  EXPECT_EQ(record.function, "mvsiedFindFile");
  EXPECT_EQ(record.text, "mvsiedFindFile函数没有实现！");
}

} // namespace

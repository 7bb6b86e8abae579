// The host's services, printing, variables, configuration and files as a command module meets them.
#include "morvane/testing.h"
#include "tests/support/failing_files.h"
#include "tests/support/print.h"
#include "tests/support/scratch_folder.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {

using morvane::ScriptedHost;
namespace fs = std::filesystem;

void writeFile(const std::string& path, const std::string& text) {
  std::ofstream(path) << text;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

template <class Service>
OdSmartPtr<Service> find(const wchar_t* name) {
  const OdRxObjectPtr found = mv_arbitDict_getservice(name);
  return OdSmartPtr<Service>(dynamic_cast<Service*>(found.get()));
}

TEST(ServiceDictionary, FollowsEveryChangeAndTheCaseOfNames) {
  EXPECT_TRUE(mv_arbitDict_getservice(kDbServer).isNull()); // no host
  EXPECT_FALSE(mv_arbitDict_register(L"X", OdRxObjectPtr(new OdRxObject)));
  ScriptedHost host;
  const OdRxObjectPtr first(new OdRxObject), second(new OdRxObject);
  EXPECT_TRUE(mv_arbitDict_register(L"Core/X", first));
  EXPECT_EQ(first->referenceCount(), 2u);
  EXPECT_TRUE(mv_arbitDict_getservice(L"core/X").isNull());
  EXPECT_TRUE(mv_arbitDict_register(L"Core/X", second));
  EXPECT_EQ(first->referenceCount(), 1u);
  EXPECT_EQ(mv_arbitDict_getservice(L"Core/X").get(), second.get());
  EXPECT_TRUE(mv_arbitDict_unregister(L"Core/X"));
  EXPECT_FALSE(mv_arbitDict_unregister(L"Core/X"));
  EXPECT_EQ(second->referenceCount(), 1u);
  EXPECT_FALSE(mv_arbitDict_register(L"", first));
  EXPECT_FALSE(mv_arbitDict_register(L"Core/X", nullptr));
}

TEST(Host, TheLatestInstalledIsCurrentInWhateverOrderTheyEnd) {
  auto outer = std::make_unique<ScriptedHost>(), middle = std::make_unique<ScriptedHost>();
  auto inner = std::make_unique<ScriptedHost>();
  EXPECT_EQ(morvane::Host::current(), &inner->host());
  middle.reset();
  EXPECT_EQ(morvane::Host::current(), &inner->host());
  inner.reset();
  EXPECT_EQ(morvane::Host::current(), &outer->host());
  outer.reset();
  EXPECT_EQ(morvane::Host::current(), nullptr);
  EXPECT_EQ(mvsi::mvsiedPrompt(L"x"), RTERROR);
}

TEST(Printing, FormatsByTheTypesOfTheArguments) {
  ScriptedHost host;
  mvsi::mvsiutPrintf(L"%s|%5.2f|%-4d|%04x|%c|%%|%I64d", OdString(L"块"), 3.14159, 7, 255, L'c', 1LL << 40);
  EXPECT_EQ(host.takeOutput(), L"块| 3.14|7   |00ff|c|%|1099511627776");
  mvsi::mvsiutPrintf(L"%u %x %s", -1, static_cast<short>(-1), static_cast<const wchar_t*>(nullptr));
  EXPECT_EQ(host.takeOutput(), L"4294967295 ffff ");
}

TEST(Printing, DirectivesWithoutAnArgumentOfTheirTypeAreUnchanged) {
  ScriptedHost host;
  for (const wchar_t* format : {L"100%", L"%s %d\n", L"%%", L"%n%p", L"%99999d", L"%-", L"%*d", L""}) {
    EXPECT_EQ(mvsi::mvsiutPrintf(format), RTNORM);
    EXPECT_EQ(host.takeOutput(), format == OdString(L"%%") ? L"%" : format);
  }
  mvsi::mvsiutPrintf(L"%s-%d-%f", 5, L"text", 1);
  EXPECT_EQ(host.takeOutput(), L"%s-%d-%f");
  mvsi::mvsiedPrompt(L"%s%n");
  EXPECT_EQ(host.takeOutput(), L"%s%n");
  EXPECT_EQ(mvsi::mvsiutPrintf(static_cast<const wchar_t*>(nullptr)), RTERROR);
}

TEST(Log, WritesRecordsOfItsLevelAndAbove) {
  ScriptedHost host;
  host.host().log().setLevel(5);
  mv_Log(4, 1, "f", "quiet");
  mv_Log(5, 2, "g", "heard");
  ASSERT_EQ(host.logRecords().size(), 1u);
  EXPECT_EQ(host.logRecords()[0].text, "heard");
  EXPECT_EQ(mrvn_log_level(), 5);
  const tests::ScratchFolder folder;
  EXPECT_FALSE(host.host().log().setFile(folder.at("no/such")));
  EXPECT_TRUE(host.host().log().setFile(folder.at("log")));
  mv_Log(9, 3, "h", "kept");
  EXPECT_EQ(readFile(folder.at("log")), "[9] h:3 kept\n");
}

TEST(Variables, AreOneStoreForEveryAccess) {
  ScriptedHost host;
  const auto system = find<MvEditSystemServer>(kEditSystemServer);
  EXPECT_EQ(mvsi::setVar(L"insname", OdString(L"*B1"), true), RTNORM);
  mvsiresbuf record;
  EXPECT_EQ(system->mvsiedGetVar(L"InsName", &record), RTNORM);
  EXPECT_TRUE(record.groupCode == RTTEXT && record.rstring == L"*B1") << record.groupCode;
  record = {};
  record.groupCode = RTINT16;
  record.rint = 0;
  EXPECT_EQ(system->mvsiedSetVar(L"EXTNAMES", &record), RTNORM);
  short extnames = 9;
  EXPECT_EQ(mvsi::getVar(L"extnames", extnames), RTNORM);
  EXPECT_EQ(extnames, 0);
}

TEST(Variables, RefuseWhatDoesNotFit) {
  ScriptedHost host;
  OdString text = L"kept";
  short number = 9;
  EXPECT_EQ(mvsi::getVar(L"INSUNITS", number), RTERROR); // there is no drawing
  EXPECT_EQ(mvsi::getVar(L"NOSUCH", text, true), RTERROR);
  EXPECT_EQ(host.takeOutput(), L"");
  EXPECT_EQ(mvsi::getVar(L"NO%s", text, false), RTERROR);
  EXPECT_EQ(host.takeOutput(), L"\nUnknown variable NO%s.");
  EXPECT_EQ(mvsi::getVar(L"EXTNAMES", text, true), RTREJ);
  EXPECT_EQ(mvsi::getVar(L"INSNAME", number), RTREJ);
  EXPECT_TRUE(text == L"kept" && number == 9);
  for (const wchar_t* name : {L"DWGNAME", L"LUPREC"})
    EXPECT_EQ(mvsi::setVar(name, OdString(L"3"), true), RTREJ);
  EXPECT_EQ(mvsi::setVar(L"LUPREC", static_cast<short>(9), true), RTREJ);
  mvsiresbuf record;
  EXPECT_EQ(find<MvEditSystemServer>(kEditSystemServer)->mvsiedSetVar(L"LUPREC", &record), RTREJ);
}

TEST(DbServer, UsesTheCurrentUnitsForMinusOne) {
  ScriptedHost host;
  const auto numbers = find<MvDbServer>(kDbServer);
  wchar_t text[morvane::kMaxNumberLength + 1];
  EXPECT_EQ(numbers->mvsidbRToS(14.5, -1, -1, text), RTNORM);
  EXPECT_STREQ(text, L"14.5000");
  mvsi::setVar(L"LUNITS", static_cast<short>(4), true);
  EXPECT_EQ(numbers->mvsidbRToS(14.5, -1, 1, text), RTNORM);
  EXPECT_STREQ(text, L"1'-2 1/2\"");
  EXPECT_EQ(numbers->mvsidbRToS(14.5, 7, 1, text), RTERROR);
  EXPECT_EQ(numbers->mvsidbRToS(std::nan(""), 2, 1, text), RTERROR);
  double value = 9;
  for (const auto& [refused, unit] : {std::pair(L"x", -1), std::pair(L"1", 0)})
    EXPECT_EQ(numbers->mvsidbDisToF(refused, unit, &value), RTERROR);
  EXPECT_EQ(value, 9);
}

TEST(Json, PathsMakeObjectsAndKeepKinds) {
  const MvJsonPtr object = ElementValue::createObject(kMvJsonObject);
  EXPECT_TRUE(object->SetDataS("btnText/0", "确定(&C)"));
  EXPECT_TRUE(object->SetDataSW("btnText/1", L"否"));
  EXPECT_TRUE(object->SetDataL("id", 1LL << 40));
  EXPECT_TRUE(object->SetDataB("flag", true));
  EXPECT_EQ(object->toText(), "{\"btnText\":{\"0\":\"确定(&C)\",\"1\":\"否\"},\"flag\":true,\"id\":1099511627776}");
  for (const char* path : {"flag/below", ""})
    EXPECT_FALSE(object->SetDataI(path, 1)) << path;
  for (const char* path : {"id", "btnText", "none/at/all"}) // the first is too large for an int
    EXPECT_EQ(object->GetDataI(path, 5), 5) << path;
  EXPECT_TRUE(object->GetDataB("flag"));
  EXPECT_EQ(object->GetDataSW("btnText/1"), L"否");
  EXPECT_TRUE(ElementValue::createObject(3).isNull());
}

TEST(Json, ListsTakeCopies) {
  const MvJsonPtr list = ElementValue::createObject(kMvJsonList);
  const MvJsonPtr element = ElementValue::createObject();
  element->SetDataI("n", 1);
  EXPECT_TRUE(list->AppendData(element));
  element->SetDataI("n", 2);
  EXPECT_TRUE(list->AppendData(list->GetDataAt(0)));
  EXPECT_FALSE(element->AppendData(list));
  EXPECT_FALSE(list->AppendData(nullptr));
  list->GetDataAt(1)->SetDataI("n", 3);
  EXPECT_EQ(list->toText(), "[{\"n\":1},{\"n\":3}]");
  EXPECT_TRUE(list->GetDataAt(2).isNull());
  EXPECT_TRUE(list->SetDataI("0/n", 4));
  EXPECT_EQ(list->GetDataI("0/n"), 4);
  EXPECT_FALSE(list->SetDataI("7/n", 4));
}

TEST(UserConfig, SectionsShowChangesAtOnceAndAreSavedWithTheHost) {
  const tests::ScratchFolder folder;
  morvane::HostOptions options;
  options.configFile = folder.at("deep/er/config.json");
  {
    morvane::Host host(options);
    host.install();
    EXPECT_TRUE(mv_user_config("block_dialog", 2).isNull());
    const MvJsonPtr made = mv_user_config_create("block_dialog", 2);
    made->SetDataB("Explode", false);
    made->SetDataSW("Items\\Path", L"D:\\out\\块.dwg");
    EXPECT_FALSE(mv_user_config("block_dialog", 2)->GetDataB("Explode", true));
  }
  morvane::Host host(options);
  host.install();
  EXPECT_FALSE(mv_user_config("block_dialog", 2)->GetDataB("Explode", true));
  EXPECT_EQ(mv_user_config("block_dialog", 2)->GetDataSW("Items\\Path"), L"D:\\out\\块.dwg");
  EXPECT_FALSE(host.config().isChanged());
}

TEST(UserConfig, BacksUpADamagedFile) {
  const tests::ScratchFolder folder;
  const std::string tooDeep = "{\"a\":" + std::string(100000, '[') + std::string(100000, ']') + "}";
  for (const std::string& damaged : {std::string("{\"a\": "), std::string("[1]"), tooDeep}) {
    writeFile(folder.at("c.json"), damaged);
    morvane::UserConfig config(folder.at("c.json"), morvane::replaceFileSafely);
    EXPECT_NE(config.loadProblem(), "");
    config.createSection("s");
    EXPECT_EQ(config.save(), "");
    EXPECT_EQ(readFile(folder.at("c.json.damaged")), damaged);
    EXPECT_NE(readFile(folder.at("c.json")).find("\"s\""), std::string::npos);
  }
}

TEST(UserConfig, AFailedSaveKeepsWhatIsThereAndTheChange) {
  const tests::ScratchFolder folder;
  morvane::UserConfig isFolder(folder.at(""), morvane::replaceFileSafely);
  EXPECT_NE(isFolder.loadProblem(), "");
  EXPECT_NE(isFolder.save(), "");
  EXPECT_TRUE(fs::is_directory(folder.at("")));
  for (const std::string held : {"{\"s\":{\"n\":1}}", "{\"s\":"}) { // a damaged one as well
    writeFile(folder.at("c.json"), held);
    morvane::UserConfig config(folder.at("c.json"), [](const std::string& file, std::string_view text) {
      return file.ends_with("n") ? "disk full" : morvane::replaceFileSafely(file, text);
    });
    config.createSection("s")->SetDataI("n", 2);
    EXPECT_EQ(config.save(), "disk full");
    EXPECT_TRUE(config.isChanged());
    EXPECT_EQ(readFile(folder.at("c.json")), held);
  }
}

TEST(ReplaceFile, KeepsModeAndLinksAndLeavesNoTemporaryFiles) {
  const tests::ScratchFolder folder;
  writeFile(folder.at("real"), "old");
  fs::permissions(folder.at("real"), fs::perms(0640));
  fs::create_symlink("real", folder.at("link"));
  EXPECT_EQ(morvane::replaceFileSafely(folder.at("link"), "new"), "");
  EXPECT_TRUE(fs::is_symlink(folder.at("link")));
  EXPECT_EQ(readFile(folder.at("real")), "new");
  EXPECT_EQ(fs::status(folder.at("real")).permissions(), fs::perms(0640));
  EXPECT_NE(morvane::replaceFileSafely(folder.at("no/such"), "x"), "");
  fs::create_directory(folder.at("taken"));
  EXPECT_NE(morvane::replaceFileSafely(folder.at("taken"), "x"), "");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.at(".")), {}), 3);
  EXPECT_EQ(morvane::replaceFileSafely(folder.at("fresh"), "x"), "");
  EXPECT_EQ(fs::status(folder.at("fresh")).permissions(), fs::perms(0600));
  int n = 1;
  for (;; ++n) { // settings are saved through the same file operations as drawings
    tests::FailingFiles files(drawing::fileOperations(), n, ENOSPC);
    const tests::UsedFiles used(files);
    if (morvane::replaceFileSafely(folder.at("real"), "newest").empty())
      break;
    EXPECT_EQ(readFile(folder.at("real")), "new") << n;
  }
  EXPECT_GT(n, 5); // each of the calls before the new file is in place
  EXPECT_EQ(readFile(folder.at("real")), "newest");
}

TEST(Paths, MapDrivesAndBackslashesBothWays) {
  morvane::PathMap map;
  EXPECT_TRUE(map.setDrive(L'd', "/data/"));
  EXPECT_TRUE(map.setDrive(L'E', "/data/deep"));
  EXPECT_FALSE(map.setDrive(L'1', "/x"));
  const std::pair<const wchar_t*, const char*> toSystem[] = {
      {L"d:a", "/data/a"},   {L"C:\\a", "/a"},  {L"a\\b", "a/b"},   {L"D:\\a\\b.dwg", "/data/a/b.dwg"},
      {L"\\a\\块", "/a/块"}, {L"D:", "/data/"}, {L"1:\\a", "1:/a"}, {L"", ""},
  };
  for (const auto& [drawing, system] : toSystem)
    EXPECT_EQ(map.toSystem(drawing), system);
  const std::pair<const char*, const wchar_t*> toDrawing[] = {
      {"/data/a", L"D:\\a"}, {"/data/deep/a", L"E:\\a"}, {"/database/a", L"\\database\\a"}, {"rel/a", L"rel\\a"}};
  for (const auto& [system, drawing] : toDrawing)
    EXPECT_EQ(map.toDrawing(system), drawing);
  const std::string notUtf8 = "/data/\xff\xfe";
  EXPECT_EQ(map.toSystem(map.toDrawing(notUtf8)), notUtf8);
}

TEST(FindFile, SearchesTheFolderOfTheDrawingThenThePath) {
  const tests::ScratchFolder folder;
  fs::create_directories(folder.at("one/sub"));
  fs::create_directories(folder.at("two/only"));
  for (const char* name : {"one/a.dwg", "two/a.dwg", "two/b.dwg"})
    writeFile(folder.at(name), "");
  ScriptedHost host;
  host.host().paths().setDrive(L'T', folder.at("two"));
  host.host().searchPath().setDrawingFolder(folder.at("one"));
  host.host().searchPath().setFolders({folder.at("two")});
  const auto system = find<MvEditSystemServer>(kEditSystemServer);
  wchar_t found[morvane::kMaxPathLength + 1] = {};
  EXPECT_EQ(system->mvsiedFindFile(L"a.dwg", found), RTNORM);
  EXPECT_EQ(host.host().paths().toSystem(found), folder.at("one/a.dwg"));
  EXPECT_EQ(system->mvsiedFindFile(L"sub\\..\\b.dwg", found), RTERROR); // no "sub" in two
  EXPECT_EQ(system->mvsiedFindFile(L"b.dwg", found), RTNORM);
  EXPECT_STREQ(found, L"T:\\b.dwg");
  EXPECT_EQ(system->mvsiedFindFile(L"t:\\b.dwg", found), RTNORM);
  for (const wchar_t* none : {L"", L"only", L"c.dwg", L"T:\\sub\\a.dwg"})
    EXPECT_EQ(system->mvsiedFindFile(none, found), RTERROR) << none;
  EXPECT_TRUE(mvutIsExistFile("T:\\b.dwg") && !mvutIsExistFile("T:\\only"));
  EXPECT_TRUE(isDir("T:\\only") && !isDir("T:\\b.dwg"));
}

TEST(FileExtension, IsThatOfTheLastPart) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"C:\\a.b\\c", L""}, {L"a.dwg", L".dwg"}, {L"a.b.DXF", L".DXF"}, {L"", L""},
      {L"a.", L""},         {L".dwg", L".dwg"},  {L"a.b/c", L""},       {L"C:x.y:z", L".y:z"}};
  for (const auto& [path, extension] : cases)
    EXPECT_EQ(qzutads::getPathFileExtName(path), extension);
}

TEST(FaultyHost, FailsTheCallThatWasNamed) {
  morvane::FaultyHost host;
  short value = 0;
  host.failCall(2);
  for (const int code : {RTNORM, RTERROR, RTNORM})
    EXPECT_EQ(mvsi::getVar(L"EXTNAMES", value), code);
  EXPECT_FALSE(host.allPassed());
  host.failOperation("mvsiedPrompt");
  EXPECT_EQ(mvsi::getVar(L"EXTNAMES", value), RTNORM);
  EXPECT_TRUE(host.allPassed());
  EXPECT_EQ(mvsi::mvsiedPrompt(L"x"), RTERROR);
  EXPECT_EQ(host.calls(), (std::vector<std::string>{"getVar", "mvsiedPrompt"}));
}

} // namespace

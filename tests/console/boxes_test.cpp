// Message boxes for machines: which one it was, with what in it, and questions that nobody may answer.
#include "tests/console/console_run.h"

#include "console/session/message_box_ids.h"

#include "blockcommon/file_paths.h"
#include "blockcommon/messages.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace tests;
using Json = nlohmann::json;

TEST(Boxes, AreDistinguishedWithTheirParameters) {
  TestSession console;
  const auto& entry = console.session().transcript();
  const struct {
    void (*show)();
    const char* id;
    std::vector<OdString> parameters;
  } kCases[] = {
      {[] { dlgTips::showBlockRedefineTips(L"A", 3); }, "box.block-redefine", {L"A", L"3"}},
      {[] { dlgTips::showBlockRedefineTips(L"块\"%s”1", 12); }, "box.block-redefine", {L"块\"%s”1", L"12"}},
      {[] { dlgTips::showBlockRedefineTips(L"A", 0); }, "box.block-changed", {}},
      {[] { dlgTips::showBlockNameEmptyTips(); }, "box.name-empty", {}},
      {[] { dlgTips::showBlockNameBeyondLenTips(); }, "box.name-too-long", {}}, // the same caption
      {[] { dlgTips::showBasePointInValidTips(dlgTips::kCoordY); }, "box.base-point-y", {}},
      {[] { dlgTips::showBlockLockLayerTips(-7); }, "box.locked-layers", {L"-7"}},
      {[] { dlgTips::showBlockRefSelfTips(L""); }, "box.contains-itself", {L""}},
      {[] { filePath::isFilePathLegal(L"\t", true); }, "box.path-blank", {}},
      {[] { dlgTips::showFileDocUsingTips(L"C:\\a b.dwg"); }, "box.file-in-use", {L"C:\\a b.dwg"}},
      {[] { mvsi::mvuiMessageBoxEx(L"块 - 循环块参照", L"other", nullptr, 6, 1, 0); }, "box.other", {}},
  };
  for (const auto& row : kCases) {
    row.show();
    EXPECT_EQ(entry.back().id, row.id);
    EXPECT_EQ(entry.back().parameters, row.parameters) << row.id;
  }
}

// A definition that is there: without an answer the question is a refusal, and the answers behind it are not taken.
TEST(Boxes, QuestionsAreRefusedWithoutInteraction) {
  const char* const kScript = "LINE 0,0 1,0\n\nBLOCK part 0,0 All\n\nKeep\nBLOCK part\nLIST\n";
  const Outcome run = runMorvane({"--no-prompt", "-c", kScript});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.shown.find("Not answered: 块 - 重新定义块"), std::string::npos) << run.shown;
  EXPECT_NE(run.results.find("1 object, 1 block"), std::string::npos) << run.results;
  const Scratch scratch;
  const std::string out = scratch.write("out.dxf", "");
  const Outcome saving = runMorvane({"--no-prompt", "-c", "LINE 0,0 1,0\n\nSAVEAS " + out + " 2018 Yes\n"});
  EXPECT_EQ(saving.status, 1);
  EXPECT_EQ(readFile(out), "");
}

TEST(Boxes, AreInTheJsonOfAJob) {
  const Scratch scratch;
  const std::string made = scratch.path("made.dxf");
  const Outcome first =
      runMorvane({"make", kRoom, "--name", "a<b", "--base", "0,0", "--select", "all", "-o", made, "--json"});
  const Json box = Json::parse(first.results)["messages"][1];
  EXPECT_EQ(box["id"], "box.name-characters");
  EXPECT_EQ(box["caption"], "块 - 不支持的字符");
  EXPECT_EQ(box["buttons"], Json({"关闭(&C)"}));
  EXPECT_EQ(box["pressed"], 1);
  EXPECT_EQ(box["parameters"], Json::array());
  const Json refusal = Json::parse(first.results)["messages"][2];
  EXPECT_EQ(refusal["id"], "block.name-character");
  EXPECT_EQ(refusal["parameters"][0], "<");
}

} // namespace

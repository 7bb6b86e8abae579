// What other programs say of real drawings, and the report says the same: every value that both hold. The answers lie
// beside the drawings, one JSON file each; two tables map their names to those of the report.
#include "console/report/report_json.h"

#include "blockcommon/block_lookup.h"
#include "blockcommon/block_report.h"
#include "blockcommon/document_queries.h"
#include "morvane/testing.h"

#include "tests/corpus/drawings.h"
#include "tests/corpus/groups.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <set>
#include <span>

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

struct Same {
  const char* answer;
  const char* report = answer;
};

constexpr Same kHeader[] = {
    {"/raw_scan/version", "/header/acadver"},  {"/header/$DWGCODEPAGE", "/header/codepage"},
    {"/header/$INSUNITS", "/header/insunits"}, {"/header/$MEASUREMENT", "/header/measurement"},
    {"/header/$INSBASE", "/header/insbase"},   {"/header/$CLAYER", "/header/clayer"},
};
constexpr Same kLayer[] = {{"/locked"}, {"/frozen"}, {"/off"}, {"/color"}, {"/linetype"}};
constexpr Same kBlock[] = {
    {"/base_point", "/base"},         {"/flags/anonymous", "/anonymous"},
    {"/record_units", "/units"},      {"/record_explode", "/explodable"},
    {"/record_scale", "/uniform"},    {"/references/total", "/references"},
    {"/by_type", "/entities"},        {"/dynamic_true_name/0", "/true_name"},
    {"/tree_depth", "/depth"},        {"/flags/xref_overlay", "/xref/overlay"},
    {"/description", "/description"}, {"/flags/resolved", "/xref/resolved"},
};
constexpr Same kDialog[] = {
    {"/record_units", "/units"}, {"/record_explode", "/explodable"}, {"/record_scale", "/bUniform"}};
constexpr Same kShortDialog[] = {{"/description", "/des"}};
constexpr Same kAttribute[] = {
    {"/tag"},
    {"/prompt"},
    {"/default"},
    {"/flags/constant", "/constant"},
    {"/flags/preset", "/preset"},
    {"/flags/verify", "/verify"},
    {"/flags/invisible", "/invisible"},
};

bool isEqual(const Json& answer, const Json& reported) {
  if (reported.is_boolean() && answer.is_number_integer())
    return reported.get<bool>() == (answer.get<int>() != 0);
  if (answer.is_number() && reported.is_number())
    return std::fabs(answer.get<double>() - reported.get<double>()) <=
           1e-9 * std::max(1.0, std::fabs(answer.get<double>()));
  if (!answer.is_array())
    return nlohmann::json(answer) == nlohmann::json(reported); // without regard to the order of keys
  return reported.is_array() && std::equal(answer.begin(), answer.end(), reported.begin(), reported.end(), isEqual);
}

// Names are found without regard to case: a layer may spell its line type as it likes.
std::string folded(const Json& value) {
  return corpus::upper(value.is_string() ? value.get<std::string>() : std::string());
}

void expectSame(std::span<const Same> rows, const Json& answers, const Json& report) {
  for (const Same& row : rows) {
    const Json::json_pointer inAnswers(row.answer), inReport(row.report);
    if (!answers.contains(inAnswers) || !report.contains(inReport))
      continue;
    const Json &answer = answers[inAnswers], &reported = report[inReport];
    const bool isName = row.answer == std::string("/linetype");
    EXPECT_TRUE(isName ? folded(answer) == folded(reported) : isEqual(answer, reported))
        << row.answer << ": " << answer << " against " << reported;
  }
}

std::string nameOf(const Json& entry) {
  return entry.value("name", "");
}

// Files before 2007 hold no such values, whatever the other reader fills in.
void dropUnstated(Json& answer, const std::string& version) {
  if (version >= "AC1021")
    return;
  for (const char* key : {"record_units", "record_explode", "record_scale"})
    answer.erase(key);
}

// What the other reader made up is not in the file.
bool isInFile(const Json& answer) {
  return !answer.value("added_by_reader", false);
}

std::vector<std::string> namesOf(const Json& list, const std::function<bool(const Json&)>& wanted) {
  std::vector<std::string> names;
  for (const Json& entry : list) {
    if (wanted(entry))
      names.push_back(nameOf(entry));
  }
  return names;
}

const Json* named(const Json& list, const std::string& name) {
  const auto found = std::find_if(list.begin(), list.end(), [&](const Json& entry) { return nameOf(entry) == name; });
  return found == list.end() ? nullptr : &*found;
}

void compareAttributes(const Json& answers, const Json& report) {
  const Json definitions = answers.value("attribute_definitions", Json::array());
  const Json& reported = report["attribute_definitions"];
  ASSERT_EQ(definitions.size(), reported.size());
  for (std::size_t i = 0; i < definitions.size(); ++i) {
    SCOPED_TRACE(definitions[i].value("tag", ""));
    expectSame(kAttribute, definitions[i], reported[i]);
    EXPECT_EQ(definitions[i].contains("multi_line"), reported[i]["multiline"].get<bool>());
  }
}

void compareBlock(const Json& answer, const Json& report) {
  SCOPED_TRACE(nameOf(answer));
  expectSame(kBlock, answer, report);
  EXPECT_EQ(answer["layout"].get<bool>(), !report["layout"].is_null());
  EXPECT_EQ(answer["flags"]["xref"].get<bool>(), !report["xref"].is_null());
  EXPECT_EQ(answer.contains("annotative") && answer["annotative"].back() != 0, report["annotative"].get<bool>());
  EXPECT_EQ(answer.contains("dynamic_true_name") || answer.contains("dynamic_representation_of"),
            !report["true_name"].is_null());
  compareAttributes(answer, report);
}

// A file may hold two blocks of one name. The second has another name here; the other reader makes one of both.
Json together(const Json& blocks, const Json& first) {
  Json both = first;
  const Json* second = named(blocks, nameOf(first) + "-2");
  if (second == nullptr)
    return both;
  for (const auto& [type, count] : (*second)["entities"].items())
    both["entities"][type] = both["entities"].value(type, 0) + count.get<int>();
  both["references"] = both["references"].get<int>() + (*second)["references"].get<int>();
  return both;
}

// References to the shapes of a dynamic block are references to the block.
void compareTrueReferences(const Json& answers, const Json& report) {
  for (const Json& answer : answers["blocks_in_table_order"]) {
    const Json* block = named(report["blocks"], nameOf(answer));
    if (block == nullptr || (*block)["references_true"].is_null())
      continue;
    int references = answer["references"]["total"];
    for (const Json& other : answers["blocks_in_table_order"]) {
      const bool isShape = other.value("dynamic_representation_of", "") == nameOf(answer);
      references += isShape && nameOf(other) != nameOf(answer) ? other["references"]["total"].get<int>() : 0;
    }
    EXPECT_EQ((*block)["references_true"], references) << nameOf(answer);
  }
}

void compareBlocks(const Json& answers, const Json& report) {
  const Json& list = answers["blocks_in_table_order"];
  // What our reader made up, and the second block of a name, which the other reader does not keep.
  const auto isKnown = [&](const Json& block) {
    const Json* answer = named(list, nameOf(block));
    return answer != nullptr && isInFile(*answer);
  };
  EXPECT_EQ(namesOf(list, isInFile), namesOf(report["blocks"], isKnown));
  for (Json answer : list) {
    const Json* block = named(report["blocks"], nameOf(answer));
    dropUnstated(answer, report["header"]["acadver"]);
    if (isInFile(answer) && block != nullptr)
      compareBlock(answer, together(report["blocks"], *block));
  }
}

void compareLayouts(const Json& answers, const Json& report) {
  for (const Json& answer : answers["layouts"]) {
    const Json* space = named(report["blocks"], answer.value("block", ""));
    EXPECT_TRUE(space != nullptr && answer["name"] == (*space)["layout"]) << answer;
  }
  unsigned deepest = 0;
  for (const Json& block : report["blocks"]) {
    if (!block["layout"].is_null())
      deepest = std::max(deepest, block["depth"].get<unsigned>() - 1);
  }
  EXPECT_EQ(answers["nesting"]["max_depth_from_layouts"].get<unsigned>(), deepest);
}

void compare(const Json& answers, const Json& report) {
  expectSame(kHeader, answers, report);
  EXPECT_EQ(namesOf(answers["layers"], isInFile).size(), report["layers"].size());
  for (const Json& answer : answers["layers"]) {
    SCOPED_TRACE(nameOf(answer));
    const Json* layer = named(report["layers"], nameOf(answer));
    if (isInFile(answer))
      layer == nullptr ? void(ADD_FAILURE() << "no such layer") : expectSame(kLayer, answer, *layer);
  }
  compareBlocks(answers, report);
  compareTrueReferences(answers, report);
  compareLayouts(answers, report);
}

// The list of dialogs holds the named blocks among them.
void compareDialog(const Json& answers, const Json& report) {
  const Json dialog = Json::parse(blockUtils::getStatisticalCntsOfBT()->toText());
  MvJsonPtr shortList;
  blockUtils::getStatisticalCntsOfBT(shortList);
  const Json shortDialog = Json::parse(shortList->toText());
  EXPECT_EQ(shortDialog.size(), dialog.size());
  const auto isOrdinary = [](const Json& answer) {
    const Json& flags = answer["flags"];
    return isInFile(answer) && !answer["layout"].get<bool>() && !flags["anonymous"].get<bool>() &&
           !flags["xref"].get<bool>();
  };
  const Json& list = answers["blocks_in_table_order"];
  const auto isKnown = [&](const Json& block) { return named(list, nameOf(block)) != nullptr; };
  EXPECT_EQ(namesOf(list, isOrdinary), namesOf(dialog, isKnown));
  for (const Json& block : dialog) {
    const Json* found = named(list, nameOf(block));
    Json answer = found == nullptr ? Json::object() : *found;
    dropUnstated(answer, report["header"]["acadver"]);
    expectSame(kDialog, answer, block);
    const Json* brief = named(shortDialog, nameOf(block));
    ASSERT_NE(brief, nullptr);
    expectSame(kShortDialog, answer, *brief);
  }
}

// Adds where the references of a block stand and what they are.
void count(const OdDbDatabase& database, const OdString& name, Json& places) {
  const auto add = [](Json& sum, bool one = true) { sum = (sum.is_null() ? 0 : sum.get<int>()) + (one ? 1 : 0); };
  OdDbObjectId id;
  OdDbObjectIdArray references;
  if (blockUtils::getBlockIDByName(name, id, nullptr))
    tests::forRead<OdDbBlockTableRecord>(id)->getBlockReferenceIds(references, true, false);
  EXPECT_EQ(commonFun::getBlockReferenceCount(name), references.length());
  for (const OdDbObjectId& each : references) {
    const OdDbBlockReferencePtr reference = each.safeOpenObject();
    if (reference->dxfName() != "INSERT")
      continue; // a table shows its block, which the other reader does not count
    const OdDbBlockTableRecordPtr owner = reference->ownerId().safeOpenObject();
    const bool isModel = owner->objectId() == database.getModelSpaceId(), isPaperSpace = !owner->getLayoutId().isNull();
    add(places["total"]);
    add(isModel        ? places["modelspace"]
        : isPaperSpace ? places["paperspace"]
                       : places["in_blocks"][owner->getName().toUtf8()]);
    add(places["as_array"], reference->isA() == OdDbMInsertBlock::desc());
    add(places["with_attribs"], !reference->attributeIterator()->done());
  }
}

// A second block of the same name is counted with the first, as the other reader does.
void comparePlaces(const Json& answers, const OdDbDatabase& database) {
  for (const Json& answer : answers["blocks_in_table_order"]) {
    if (!isInFile(answer))
      continue;
    Json found = {{"total", 0}, {"modelspace", 0}, {"paperspace", 0}, {"in_blocks", Json::object()}};
    for (const char* second : {"", "-2"})
      count(database, OdString::fromUtf8(nameOf(answer) + second), found);
    found = found["total"] == 0 ? Json({{"total", 0}}) : found;
    EXPECT_TRUE(isEqual(answer["references"], found)) << nameOf(answer) << ": " << found << answer["references"];
  }
}

void compareFile(const std::string& folder, const fs::path& file) {
  const Json answers = Json::parse(corpus::textOf(file.string()), nullptr, false);
  ASSERT_TRUE(answers.is_object()) << file;
  const std::string name = answers.value("file", "");
  SCOPED_TRACE(name);
  const drawing::ReadResult read = drawing::readDrawing((fs::path(folder) / name).string());
  ASSERT_FALSE(read.database.isNull()) << read.message;
  const Json report = Json::parse(console::report::toJson(console::report::reportOf(*read.database), true).dump());
  compare(answers, report);
  morvane::ScriptedHost host;
  host.host().documents().open(read.database);
  compareDialog(answers, report);
  comparePlaces(answers, *read.database);
}

TEST(KnownAnswers, AgreeWithTheReport) {
  const std::string folder = corpus::folder();
  ASSERT_FALSE(folder.empty());
  std::set<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(folder) / "truth")) {
    if (entry.path().string().ends_with(".truth.json"))
      files.insert(entry.path());
  }
  EXPECT_GE(files.size(), 33u);
  for (const fs::path& file : files)
    compareFile(folder, file);
}

} // namespace

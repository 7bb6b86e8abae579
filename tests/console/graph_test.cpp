// The tree below a reference by the program: as text, JSON and DOT, whether it may be edited, and that trees which
// nobody could hold are told before they are made.
#include "tests/console/console_run.h"
#include "tests/support/dynamic_blocks.h"

#include <map>
#include <nlohmann/json.hpp>

namespace {

using namespace tests;
using Json = nlohmann::json;

// plan.dxf with references by name, and external drawings beside it.
class Graph : public testing::Test {
protected:
  Graph() {
    for (const int xedit : {0, 1}) {
      const OdDbDatabasePtr site = OdDbDatabase::create();
      site->setHeaderInt("XEDIT", 290, xedit);
      scratch_.save(*site, xedit == 0 ? "off.dxf" : "on.dxf");
    }
    const OdDbObjectId door = block(L"door"), room = block(L"room \"2\"\\\x202E"), house = block(L"house");
    const OdDbObjectId on = xref(L"on"), off = xref(L"off"), erased = xref(L"gone"), window = block(L"window");
    makeDynamic(door), makeDynamic(window);
    add("$d1", door, room), add("$d2", addShape(door), room), add("$in", room, house), add("$g", erased, house);
    add("$on", on), add("$off", off), add("$house", house), add("$room", room), add("$text", {});
    add("$twice", nest(L"twice", door, 60, 2)), add("$deep", nest(L"deep", door, 900, 1));
    add("$wide", nest(L"wide", nest(L"fan", door, 1, 2'000), 900, 1));
    add("$within", addShape(window), window), add("$endless", window);
    scratch_.save(*database_, "plan.dxf");
  }
  OdDbObjectId block(const OdString& name) { return addBlock(*database_, name); }
  void add(const std::string& word, OdDbObjectId shown, OdDbObjectId into = {}) {
    const OdDbObjectId id = shown.isNull() ? addText(*database_, L"x") : addReference(*database_, shown, into);
    handles_[word] = id.getHandle().ascii();
  }
  OdDbObjectId xref(const OdString& name) {
    const OdDbObjectId id = block(name);
    forWrite<OdDbBlockTableRecord>(id)->setXref(name + L".dxf");
    return id;
  }
  OdDbObjectId nest(const OdString& name, OdDbObjectId shown, int levels, int times) {
    for (int level = 0; level < levels; ++level) {
      const OdDbObjectId around = block(name + OdString(std::to_wstring(level)));
      for (int time = 0; time < times; ++time)
        addReference(*database_, shown, around);
      shown = around;
    }
    return shown;
  }
  // $F and $O are the drawing and its folder, other $words handles; the longer of two that begin alike comes first.
  Names names() const {
    Names all{{"$F", scratch_.path("plan.dxf")}, {"$O", scratch_.path("")}};
    all.insert(all.end(), handles_.rbegin(), handles_.rend());
    return all;
  }
  std::string text(const std::string& line) const { return filled(line, names()); }
  Json results(const std::string& line) const {
    return Json::parse(expectRun("graph $F --json --reference " + line, names(), 0, "").results)["results"];
  }

  Scratch scratch_;
  const OdDbDatabasePtr database_ = OdDbDatabase::create();
  std::map<std::string, std::string> handles_;
};

TEST_F(Graph, PrintsTheTreeAndWhetherItMayBeEdited) {
  const struct {
    const char* line;
    int status;
    const char* part;
  } rows[] = {
      {"$F --reference $room", 0, "  reference $d2  chain $d2 $room\nReference $room may be edited in place.\n"},
      {"$F --reference $house", 0,
       "\"house\"  reference $house  chain $house\n"
       "  \"room \"2\"\\\\u202E\"  reference $in  chain $in $house\n"
       "    \"door\"  reference $d1  chain $d1 $in $house\n"
       "    \"door\"  reference $d2  chain $d2 $in $house\n"
       "  \"gone\"  reference $g  chain $g $house  external: gone.dxf, not found, no file found\n"
       "Reference $house may not be edited in place: reference $g is an external reference to gone.dxf.\n"},
      {"$F --reference $off", 0, "edited in place: the external drawing off.dxf does not allow it (XEDIT is off"},
      {"$F --reference $on", 0, "chain $on  external: on.dxf, loaded, found at "},
      {"$F --reference $on", 0, "/on.dxf\nReference $on may not be edited in place: reference $on is an external"},
      {"$F --reference $in --dot", 0,
       "digraph references {\n  n0 [label=\"room \\\"2\\\"\\\\\\\\u202E\\n$in\"];\n  n1 [label=\"door\\n$d1\"];\n"
       "  n0 -> n1;\n  n2 [label=\"door\\n$d2\"];\n  n0 -> n2;\n}\n"},
      {"$F --reference $on --dot", 0, "n0 [label=\"on\\n$on\\non.dxf\", style=dashed];"},
      {"$F --reference $text", 1, "no block reference with the handle $text."},
      {"$F --reference FFFFFF --json", 1, "\"graph.no-reference\""},
      {"$F --reference $twice", 1, "would contain very many references"},
      {"$F --reference $house --max-nodes 4", 1, "would contain 5 references, more than 4;"},
      {"$F --reference $house --max-nodes 5", 0, "$g $house"},
      {"$F --reference $wide --max-nodes 3000", 1, "would list 2210351 references"},
      {"$F --reference $endless", 1, "infinite: a dynamic block contains itself"},
      {"$F --reference xyz", 2, "hexadecimal"},
      {"$F", 2, "--reference"},
      {"$O/none.dxf --reference 1", 3, "none.dxf"},
  };
  for (const auto& row : rows)
    expectRun("graph " + std::string(row.line), names(), row.status, row.part);
}

TEST_F(Graph, JsonHoldsAListAndNoNesting) {
  const Json house = results("$house");
  Json nodes = Json::array();
  for (const Json& node : house["nodes"])
    nodes.push_back({node["block"], node["parent"]});
  EXPECT_EQ(nodes,
            Json::parse(R"([["house", null], ["room \"2\"\\\u202E", 0], ["door", 1], ["door", 1], ["gone", 0]])"));
  EXPECT_EQ(house["nodes"][3]["chain"], Json::parse(text(R"(["$d2", "$in", "$house"])")));
  EXPECT_EQ(house["nodes"][4]["external"],
            Json::parse(R"({"path": "gone.dxf", "status": "not-found", "found": null})"));
  EXPECT_EQ(house["edit"],
            Json::parse(text(R"({"allowed": false, "reason": "external", "path": "gone.dxf", "reference": "$g"})")));
  const Json deep = results("$deep --max-nodes 901");
  EXPECT_EQ(deep["nodes"].back()["chain"].size(), 901u);
  EXPECT_EQ(deep["edit"]["allowed"], true);
}

} // namespace

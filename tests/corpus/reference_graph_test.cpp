// Trees of all references of real drawings: as large as they were counted to be, each node found again by its chain,
// below each the references that another program sees in its definition, and as deep as that program found it.
#include "blockcommon/reference_graph.h"
#include "console/report/reference_tree.h"
#include "tests/corpus/drawings.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>

namespace {

using Inner = std::map<std::string, int>; // how often a definition shows each other one

struct Answer {
  Inner inner;
  std::size_t depth = 0; // 0 where nobody else looked
  bool hasAttributes = false;
};
using Answers = std::map<std::string, Answer>;

// By definition; none when nobody else has looked into the drawing. Those drawings have no external references.
std::optional<Answers> answersFor(const std::string& path) {
  std::ifstream file(corpus::folder() + "truth/" + path.substr(corpus::folder().size()) + ".truth.json");
  if (!file)
    return std::nullopt;
  const nlohmann::json printed = nlohmann::json::parse(file);
  EXPECT_TRUE(printed["xrefs"].empty());
  Answers answers;
  for (const auto& block : printed["blocks_in_table_order"])
    answers[block["name"]] = {{}, block.value("tree_depth", std::size_t{0}), block.contains("attribute_definitions")};
  for (const auto& [name, inner] : printed["nesting"]["edges"].items())
    answers[name].inner = inner.get<Inner>();
  return answers;
}

struct Sum {
  std::size_t trees = 0, nodes = 0, compared = 0, rooted = 0;
};

void lookAt(OdDbObjectId picked, const std::optional<Answers>& answers, Sum& sum) {
  CRefGraph graph;
  graph.create(picked);
  OdDbObjectIdArray chain{picked};
  std::vector<CRefGraphNode*> nodes{graph.find(chain)};
  std::uint64_t inChains = 0;
  std::size_t depth = 0;
  for (std::size_t at = 0; at < nodes.size(); ++at) {
    CRefGraphNode& node = *nodes[at];
    ASSERT_TRUE(graph.getRefStack(chain, &node));
    EXPECT_EQ(graph.find(chain), &node);
    inChains += chain.size();
    depth = std::max<std::size_t>(depth, chain.size());
    Inner inner;
    for (CRefGraphNode* child : node.children) {
      ++inner[child->name.toUtf8()];
      nodes.push_back(child);
    }
    if (!answers)
      continue;
    const auto known = answers->find(node.name.toUtf8());
    EXPECT_EQ(inner, known == answers->end() ? Inner() : known->second.inner) << node.name.toUtf8();
    sum.compared += !inner.empty();
  }
  if (answers && answers->count(nodes[0]->name.toUtf8()) != 0) {
    const Answer& known = answers->at(nodes[0]->name.toUtf8());
    EXPECT_EQ(depth, known.depth) << nodes[0]->name.toUtf8();
    EXPECT_EQ(RefUtils::hasAttdef(picked), known.hasAttributes) << nodes[0]->name.toUtf8();
    EXPECT_FALSE(graph.checkXref());
    ++sum.rooted;
  }
  const console::TreeSize size = console::sizeOfTree(picked);
  EXPECT_EQ(size.nodes, nodes.size());
  EXPECT_EQ(size.inChains, inChains);
  ++sum.trees;
  sum.nodes += nodes.size();
}

TEST(ReferenceGraph, IsWhatTheDrawingsHold) {
  Sum sum;
  corpus::forEachDrawing([&](const std::string& path, const drawing::ReadResult& read) {
    const std::optional<Answers> answers = answersFor(path);
    for (const OdDbObjectId id : read.database->allIds()) {
      if (!OdDbBlockReference::cast(id.safeOpenObject()).isNull())
        lookAt(id, answers, sum);
    }
  });
  EXPECT_GE(sum.trees, 530u);
  EXPECT_GE(sum.compared, 50u);
  EXPECT_GE(sum.rooted, 300u);
  std::cout << sum.trees << " trees, " << sum.nodes << " nodes, " << sum.compared << " known, " << sum.rooted
            << " depths\n";
}

} // namespace

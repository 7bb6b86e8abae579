#include "console/report/reference_tree.h"
#include "console/messages/catalog/graph.h"
#include "console/messages/catalog/report.h"
#include "console/messages/number_text.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "blockcommon/document_queries.h"
#include "blockcommon/reference_graph.h"

#include <algorithm>

namespace console {
namespace {

OdString countText(std::uint64_t number) {
  return number == kMaxCounted ? render(msg::kReportMany) : count(number);
}

void refuseTooLarge(OdDbObjectId reference, std::uint64_t maxNodes) {
  const TreeSize size = sizeOfTree(reference);
  if (size.isEndless)
    refuse(msg::kGraphEndless, {handleText(reference)});
  if (size.nodes > maxNodes)
    refuse(msg::kGraphTooLarge, {handleText(reference), countText(size.nodes), count(maxNodes)});
  if (size.inChains > kInChainsAnyway + kInChainsPerNode * maxNodes)
    refuse(msg::kGraphTooDeep, {handleText(reference), countText(size.inChains), count(maxNodes)});
}

ReferenceNode nodeOf(Session& session, CRefGraph& graph, CRefGraphNode& made) {
  ReferenceNode node{made.refId, made.name, std::nullopt, {}, std::nullopt};
  graph.getRefStack(node.chain, &made);
  if (!made.isXref)
    return node;
  commonFun::getBlockNameByID(made.refId, node.block);
  node.external.emplace();
  node.external->path = made.name;
  OdString found;
  if (RefUtils::isXrefBlk(made.refId, found) && !found.isEmpty())
    node.external->found = OdString::fromUtf8(session.host().paths().toSystem(found));
  const OdDbBlockReferencePtr reference = made.refId.safeOpenObject();
  const OdDbBlockTableRecordPtr block = reference->blockTableRecord().safeOpenObject();
  node.external->status = block->xrefStatus();
  return node;
}

std::vector<ReferenceNode> nodesOf(Session& session, CRefGraph& graph, CRefGraphNode& root) {
  struct Waiting {
    CRefGraphNode* node;
    std::optional<std::size_t> parent;
  };
  std::vector<ReferenceNode> nodes;
  std::vector<Waiting> stack{{&root, std::nullopt}};
  while (!stack.empty()) {
    const Waiting at = stack.back();
    stack.pop_back();
    nodes.push_back(nodeOf(session, graph, *at.node));
    nodes.back().parent = at.parent;
    const std::size_t index = nodes.size() - 1;
    for (auto child = at.node->children.size(); child-- > 0;)
      stack.push_back({at.node->children[child], index});
  }
  return nodes;
}

EditCheck checkEdit(CRefGraph& graph, const std::vector<ReferenceNode>& nodes) {
  EditCheck check;
  OdDbObjectIdArray picked{nodes.front().reference};
  if (!RefUtils::checkXEdit(picked, check.path)) {
    check.reason = EditCheck::Reason::kXeditOff;
    check.reference = picked[0];
  } else if (graph.checkXref()) {
    check.reason = EditCheck::Reason::kExternal;
    const auto first = std::find_if(nodes.begin(), nodes.end(), [](const auto& node) { return node.external; });
    if (first != nodes.end()) {
      check.path = first->external->found.isEmpty() ? first->external->path : first->external->found;
      check.reference = first->reference;
    }
  }
  return check;
}

} // namespace

ReferenceTree treeOf(Session& session, OdDbObjectId reference, std::uint64_t maxNodes) {
  refuseTooLarge(reference, maxNodes);
  CRefGraph graph;
  graph.create(reference);
  OdDbObjectIdArray chain{reference};
  CRefGraphNode* root = graph.find(chain);
  if (root == nullptr)
    throw OdError(eObjectDoesNotOpen);
  ReferenceTree tree;
  tree.nodes = nodesOf(session, graph, *root);
  tree.edit = checkEdit(graph, tree.nodes);
  return tree;
}

} // namespace console

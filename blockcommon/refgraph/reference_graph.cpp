#include "blockcommon/reference_graph.h"

#include "blockcommon/refgraph/reference_graph_definition.h"

#include <memory>
#include <new>

namespace {

// A node whose definition is being read.
struct OpenNode {
  CRefGraphNode* node;
  OdDbObjectIteratorPtr contents;
};

std::unique_ptr<CRefGraphNode> makeNode(OdDbObjectId refId, CRefGraphNode* parent) {
  std::unique_ptr<CRefGraphNode> node(new (std::nothrow) CRefGraphNode);
  if (node == nullptr)
    throw OdError(eOutOfMemory);
  node->refId = refId;
  node->parent = parent;
  return node;
}

// Names the node, and puts it on the stack when its definition opens.
void enter(OdArray<OpenNode>& stack, CRefGraphNode* node, const OdDbBlockReference& reference) {
  const OdDbBlockTableRecordPtr definition = RefUtils::definitionOf(reference);
  if (definition.isNull())
    return;
  node->isXref = definition->isFromExternalReference();
  node->name = node->isXref ? definition->pathName() : definition->getName();
  stack.append(OpenNode{node, definition->newIterator(true, true, false)});
}

bool isFollowed(const CRefGraphNode& node, const OdDbEntityPtr& entity) {
  if (entity.isNull() || entity->isA() != OdDbBlockReference::desc())
    return false;
  return !node.isXref || !OdDbDynBlockReference(entity->objectId()).isDynamicBlock();
}

CRefGraphNode* appendChild(CRefGraphNode& parent, OdDbObjectId refId) {
  std::unique_ptr<CRefGraphNode> child = makeNode(refId, &parent);
  parent.children.append(child.get());
  return child.release();
}

// Each node is turned once, so that its first child is taken from the end of the array.
CRefGraphNode* takeFirstOfReversed(CRefGraphNode& node) {
  CRefGraphNode* child = node.children.last();
  node.children.removeLast();
  if (child != nullptr) {
    child->parent = &node; // the way back, whatever stood there
    child->children.reverse();
  }
  return child;
}

} // namespace

CRefGraphNode::~CRefGraphNode() {
  children.reverse();
  for (CRefGraphNode* at = this; at != this || !children.isEmpty();) {
    if (!at->children.isEmpty()) {
      CRefGraphNode* child = takeFirstOfReversed(*at);
      at = child == nullptr ? at : child;
      continue;
    }
    CRefGraphNode* above = at->parent;
    delete at; // it has no children left, so this goes no deeper
    at = above;
  }
}

CRefGraph::CRefGraph() = default;

CRefGraph::~CRefGraph() {
  delete root;
}

void CRefGraph::create(OdDbObjectId refId) {
  const OdDbObjectPtr object = refId.safeOpenObject();
  if (object.isNull())
    return;
  const OdDbBlockReferencePtr reference = object;
  root = makeNode(refId, nullptr).release();
  RefUtils::fillRefGraph(root, reference);
}

CRefGraphNode* CRefGraph::find(OdDbObjectIdArray& chain) {
  if (root == nullptr || chain.isEmpty() || chain.last() != root->refId)
    return nullptr;
  CRefGraphNode* node = root;
  for (OdDbObjectIdArray::size_type at = chain.size() - 1; at-- > 0 && node != nullptr;)
    node = RefUtils::findChildNode(node, chain[at]);
  return node;
}

bool CRefGraph::getRefStack(OdDbObjectIdArray& chain, CRefGraphNode* node) {
  chain.clear();
  for (const CRefGraphNode* at = node; at != nullptr; at = at->parent)
    chain.append(at->refId);
  return node != nullptr;
}

bool CRefGraph::checkXref() {
  OdString foundPath;
  return root == nullptr || RefUtils::checkXrefS(root, foundPath);
}

namespace RefUtils {

void fillRefGraph(CRefGraphNode*& node, OdSmartPtr<OdDbBlockReference> ref) {
  if (node == nullptr)
    throw OdError(eNullObjectPtr);
  OdArray<OpenNode> stack;
  enter(stack, node, *ref);
  while (!stack.isEmpty()) {
    const OpenNode at = stack.last();
    if (at.contents->done()) {
      stack.removeLast();
      continue;
    }
    const OdDbEntityPtr entity = at.contents->entity();
    at.contents->step();
    if (isFollowed(*at.node, entity))
      enter(stack, appendChild(*at.node, entity->objectId()), *OdDbBlockReferencePtr(entity));
  }
}

CRefGraphNode* findChildNode(CRefGraphNode* node, OdDbObjectId refId) {
  if (node == nullptr)
    return nullptr;
  for (CRefGraphNode* child : node->children) {
    if (child != nullptr && child->refId == refId)
      return child;
  }
  return nullptr;
}

} // namespace RefUtils

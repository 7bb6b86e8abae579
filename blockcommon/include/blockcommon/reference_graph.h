// Which references a picked one leads to, and whether it may be edited in place.
//
// The tree is made once from a reference and only read afterwards. It holds ids and opens each object for the step that
// reads it. A definition that several references show is read for each of them, so nested definitions can multiply the
// nodes; the memory goes with the nodes, and neither depth nor width is bounded by the stack. An id that does not open
// answers as stated; an object of another kind than a function asks for throws OdError_NotThatKindOfClass.
//
// Where a definition is asked for, a dynamic reference stands for its dynamic definition unless said otherwise.
#pragma once

#include "DbBlockReference.h"
#include "OdString.h"
#include "blockcommon/export.h"

// One reference. Owns its children, and destroys them depth first in their order.
class BLOCKCOMMON_API CRefGraphNode {
public:
  CRefGraphNode() = default;
  ~CRefGraphNode();
  CRefGraphNode(const CRefGraphNode&) = delete;
  CRefGraphNode& operator=(const CRefGraphNode&) = delete;

  bool isXref = false;              // its definition is an external reference
  OdString name;                    // of the definition, or the saved path when that is an external reference
  OdDbObjectId refId;               // the reference
  CRefGraphNode* parent = nullptr;  // null for the root
  OdArray<CRefGraphNode*> children; // in order of addition to the definition
};

// A chain names a node by references: the first id is that of the node itself, the last one the root's.
class BLOCKCOMMON_API CRefGraph {
public:
  CRefGraph(); // empty
  ~CRefGraph();
  CRefGraph(const CRefGraph&) = delete;
  CRefGraph& operator=(const CRefGraph&) = delete;

  // Makes the tree of a reference. An id that does not open, or is no reference's (which throws), leaves the graph as
  // it was. What throws later leaves the nodes that were made so far. To be called once: the tree of an earlier call is
  // lost, not freed.
  void create(OdDbObjectId refId);
  // Null for a chain that leads to no node. The time goes with the children on the way.
  CRefGraphNode* find(OdDbObjectIdArray& chain);
  // Replaces the chain by that of the node. False, and an empty chain, for null.
  bool getRefStack(OdDbObjectIdArray& chain, CRefGraphNode* node);
  // Whether it holds an external reference. An empty graph answers true: what could not be looked at is not to be
  // edited.
  bool checkXref();

private:
  CRefGraphNode* root = nullptr;
};

namespace RefUtils {

// Gives the node the name of the reference's definition, and appends the nodes of all references below. Only plain
// references count, no arrays of them; those in external references only when they are not dynamic. A definition that
// does not open leaves its node unnamed. Throws OdError for a null node or reference, and when memory runs out.
BLOCKCOMMON_API void fillRefGraph(CRefGraphNode*& node, OdSmartPtr<OdDbBlockReference> ref);
// The first child for that reference; null when there is none.
BLOCKCOMMON_API CRefGraphNode* findChildNode(CRefGraphNode* node, OdDbObjectId refId);

// Whether references may be edited in place as far as their own external drawings go: the first one that shows an
// external reference decides for all. It may when that drawing is not loaded or its variable XEDIT is on. False
// otherwise, and the path is as the drawing holds it; it is left alone with true. Goes by the definition that is shown,
// dynamic or not. An id that does not open ends the search with true. Throws OdError with the reason when a definition
// does not open.
BLOCKCOMMON_API bool checkXEdit(OdDbObjectIdArray& refIds, OdString& xrefPath);
// Whether this is a reference, or an array of references, to an external reference. The path is where the host finds
// the drawing, empty when it does not; it is left alone with false. Other kinds and what does not open answer false.
BLOCKCOMMON_API bool isXrefBlk(OdDbObjectId refId, OdString& foundPath);
// The same for the node and all below it, parents first: the path is that of the first one. False for null.
BLOCKCOMMON_API bool checkXrefS(CRefGraphNode* node, OdString& foundPath);
// Whether the reference's definition has attribute definitions, constant ones included.
BLOCKCOMMON_API bool hasAttdef(OdDbObjectId refId);

} // namespace RefUtils

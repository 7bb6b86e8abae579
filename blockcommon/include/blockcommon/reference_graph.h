// The tree of references below a selected one, and whether it may be edited in place.
//
// The tree is created once from a reference and not changed afterwards. It contains ids; objects are opened only while
// they are read. A definition with several references is read for each of them, so nested definitions can multiply the
// nodes; memory is linear in the nodes, and depth and width are not limited by the stack. An id that does not open
// gives the stated result; an object of an unexpected class throws OdError_NotThatKindOfClass.
//
// The definition of a dynamic reference is its dynamic definition unless stated otherwise.
#pragma once

#include "DbBlockReference.h"
#include "OdString.h"
#include "blockcommon/export.h"

// A reference. Owns its children, and destroys them depth first in their order.
class BLOCKCOMMON_API CRefGraphNode {
public:
  CRefGraphNode() = default;
  ~CRefGraphNode();
  CRefGraphNode(const CRefGraphNode&) = delete;
  CRefGraphNode& operator=(const CRefGraphNode&) = delete;

  bool isXref = false;              // its definition is an external reference
  OdString name;                    // name of the definition, or the stored path if that is an external reference
  OdDbObjectId refId;               // the reference
  CRefGraphNode* parent = nullptr;  // null for the root
  OdArray<CRefGraphNode*> children; // in order of addition to the definition
};

// A tree. A chain identifies a node by references: from that of the node itself to that of the root.
class BLOCKCOMMON_API CRefGraph {
public:
  CRefGraph(); // empty
  ~CRefGraph();
  CRefGraph(const CRefGraph&) = delete;
  CRefGraph& operator=(const CRefGraph&) = delete;

  // Creates the tree of a reference. An id that does not open, or is not a reference (which throws), leaves the graph
  // unchanged. After a later exception the nodes created so far remain. Call it once: the tree of a previous call is
  // leaked.
  void create(OdDbObjectId refId);
  // The node of a chain, owned by the graph; null if there is none. The time is linear in the children on the way.
  CRefGraphNode* find(OdDbObjectIdArray& chain);
  // Sets the chain to that of the node. False, and an empty chain, for null.
  bool getRefStack(OdDbObjectIdArray& chain, CRefGraphNode* node);
  // Whether the tree contains an external reference. True for an empty graph, as what cannot be examined must not be
  // edited.
  bool checkXref();

private:
  CRefGraphNode* root = nullptr;
};

namespace RefUtils {

// Sets the name of the node to that of the definition, and appends the nodes of all references below. Arrays of
// references are ignored, and so are dynamic references in external references. The node of a definition that does not
// open has no name. Throws OdError for a null node or reference, and without memory.
BLOCKCOMMON_API void fillRefGraph(CRefGraphNode*& node, OdSmartPtr<OdDbBlockReference> ref);
// The first child of that reference; null if there is none.
BLOCKCOMMON_API CRefGraphNode* findChildNode(CRefGraphNode* node, OdDbObjectId refId);

// Whether the external drawings of references permit editing in place: the first reference to an external reference
// decides for all. It is permitted if that drawing is not loaded or its variable XEDIT is on. Otherwise false, and
// `xrefPath` is the path as the drawing stores it; it is unchanged with true. The definition that the reference refers
// to counts, dynamic or not. An id that does not open ends the search with true. Throws OdError with the reason if a
// definition does not open.
BLOCKCOMMON_API bool checkXEdit(OdDbObjectIdArray& refIds, OdString& xrefPath);
// Whether this is a reference, or an array of references, to an external reference. `foundPath` is where the host finds
// the drawing, empty if it does not; it is unchanged with false. False for other objects and ids that do not open.
BLOCKCOMMON_API bool isXrefBlk(OdDbObjectId refId, OdString& foundPath);
// The same for the node and all below it, parents first: the path is that of the first one. False for null.
BLOCKCOMMON_API bool checkXrefS(CRefGraphNode* node, OdString& foundPath);
// Whether the definition of the reference has attribute definitions, constant ones included.
BLOCKCOMMON_API bool hasAttdef(OdDbObjectId refId);

} // namespace RefUtils

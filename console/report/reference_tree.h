// The references that one leads to, and whether it may be edited in place.
#pragma once

#include "console/session/session.h"

#include "DbObjectId.h"
#include "drawing/xref.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace console {

struct ExternalDrawing {
  OdString path;  // as the drawing holds it
  OdString found; // the file that the host finds for it; empty when there is none
  drawing::XrefStatus status = drawing::XrefStatus::kNotLoaded;
};

struct ReferenceNode {
  OdDbObjectId reference;
  OdString block;                          // dynamic definitions in place of their shapes; empty when it does not open
  std::optional<std::size_t> parent;       // its place in the list; none for the picked reference
  OdDbObjectIdArray chain;                 // from this reference out to the picked one
  std::optional<ExternalDrawing> external; // when the block is an external reference
};

struct EditCheck {
  enum class Reason { kNone, kXeditOff, kExternal };
  Reason reason = Reason::kNone;
  OdString path;          // of the external drawing that prevents it: where it is found, else as stored in the drawing
  OdDbObjectId reference; // the one that shows that drawing
  bool isAllowed() const { return reason == Reason::kNone; }
};

struct ReferenceTree {
  std::vector<ReferenceNode> nodes; // each before those that it leads to
  EditCheck edit;
};

// What a tree would hold, found in one walk over the definitions however often they are shown. Numbers end at
// kMaxCounted, which means so many or more.
struct TreeSize {
  std::uint64_t nodes = 1;
  std::uint64_t inChains = 1; // references in the chains of all nodes together
  bool isEndless = false;     // a dynamic block is part of itself by one of its shapes
};
inline constexpr std::uint64_t kMaxCounted = std::uint64_t{1} << 53;
TreeSize sizeOfTree(OdDbObjectId reference);

// The tree below the block reference. Throws for an id that is not a block reference, and, before any of it is created,
// when it would have more nodes than that, or so many references in chains that they fill memory although the nodes
// would not.
inline constexpr std::uint64_t kInChainsAnyway = 1'000'000, kInChainsPerNode = 16;
ReferenceTree treeOf(Session& session, OdDbObjectId reference, std::uint64_t maxNodes);

} // namespace console

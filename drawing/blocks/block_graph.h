// Walks over the graph of block definitions. None of them recurses; each visits a definition once.
#pragma once

#include "DbBlockTable.h"

namespace drawing {

// Whether the definition `from` is, or contains at any depth, a reference to `target`.
bool reaches(OdDbObjectId from, OdDbObjectId target);
bool reaches(std::vector<OdDbObjectId> from, OdDbObjectId target); // one of them
// Living references to the block, or also to those that contain it, in order of addition.
OdDbObjectIdArray referencesTo(const OdDbBlockTableRecord& block, bool directOnly);
OdResult extentsOf(const OdDbBlockTableRecord& block, OdGeExtents3d& extents);
// Definitions in an order in which each is after those that it contains; a definition in a cycle is where the traversal
// reached it. `cut` receives the references that close cycles.
std::vector<OdDbObjectId> bottomUp(OdDbDatabase& database, std::vector<OdDbObjectId>& cut);
// How many definitions stand in each other at most: 1 without any reference in a definition. Spaces do not count.
std::uint32_t nestingDepth(OdDbDatabase& database);

} // namespace drawing

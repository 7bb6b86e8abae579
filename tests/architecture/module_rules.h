// Which room may include what of which other room.
#pragma once

#include "tests/architecture/source_tree.h"

namespace architecture {

// Breaches of the direction between rooms, between the folders of blockcommon, and of the two rules that go with them:
// only blockcommon/host knows the service dictionary, and blockcommon stands on the standard library alone.
std::vector<Finding> checkModules(const SourceTree& tree);

} // namespace architecture

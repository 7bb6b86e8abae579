// Rules over the plain text of the files: sizes and words that have no place in them.
#pragma once

#include "tests/architecture/source_tree.h"

namespace architecture {

constexpr int kMaxLines = 800;

// Code files that are longer than the limit.
std::vector<Finding> checkSizes(const SourceTree& tree);

// Ids that two texts of the console share: scripts compare them.
std::vector<Finding> checkMessageIds(const SourceTree& tree);

// References to papers that a reader of the code does not have, notes of unfinished work, paths of one machine.
std::vector<Finding> checkWords(const SourceTree& tree);

} // namespace architecture

// How often blocks are shown, and how deep they nest.
#pragma once

#include "console/report/drawing_report.h"

namespace console::report {

// A reference from one block to another, by their places in the list; `places` is rows times columns.
struct Edge {
  std::size_t from, to;
  std::uint64_t instances;
};

// Fills counts and depth. `space` is the place of model space; anything outside the list counts no nested ones.
void countReferences(std::vector<Block>& blocks, const std::vector<Edge>& edges, std::size_t space);

} // namespace console::report

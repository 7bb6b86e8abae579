// The pages for programmers and the exported names are held together.
#pragma once

#include "tests/architecture/source_tree.h"

namespace architecture {

// Every exported function and class has one heading with one example on the page of its unit; every heading of these
// pages names one; the entry page lists the pages.
std::vector<Finding> checkPages(const SourceTree& tree);

} // namespace architecture

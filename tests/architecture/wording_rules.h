// Plain technical English in what people read: texts of the program, public headers, documents, reviewed comments.
#pragma once

#include "tests/architecture/source_tree.h"

namespace architecture {

// A wording to avoid, in lower case and as whole words, and what to write instead. It is fine after or before the words
// that are given with it ("there is no layer", "is no longer used"), and in quotes, as a name.
struct Wording {
  std::string words, instead, after, before;
};

const std::vector<Wording>& wordingTable();

// Folders and files whose comments are checked, besides all public headers.
const std::vector<std::string>& reviewedComments();

// String literals of the product that are more than one word, comments of public headers and of reviewed files, pages.
std::vector<Finding> checkWording(const SourceTree& tree, const std::vector<Wording>& table,
                                  const std::vector<std::string>& reviewed);

} // namespace architecture

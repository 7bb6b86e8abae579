// The pages about functions as data: which names a page explains, and the examples that explain them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace docs {

// A block of C++ and the line of the page on which its code begins.
struct Example {
  int line = 0;
  std::string code;
};

// What stands under one heading of the third level. A heading may list names, with a comma and a blank between them.
struct Entry {
  int line = 0;
  std::vector<std::string> names;
  std::vector<Example> examples;
};

struct Page {
  std::vector<Example> fileScope; // blocks that stand under no entry: includes and helpers of the whole page
  std::vector<Entry> entries;
};

// Throws std::runtime_error with the line of a block that has no end.
Page readPage(std::string_view text);

} // namespace docs

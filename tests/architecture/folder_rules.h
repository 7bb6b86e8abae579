// Direction between the folders of a module: over #include lines, and over the symbols that object files share.
#pragma once

#include "tests/architecture/source_tree.h"

#include <istream>
#include <string>
#include <vector>

namespace architecture {

struct FolderRule {
  std::string folder;            // path from the project's root
  std::vector<std::string> uses; // paths of the folders whose headers and symbols it may use
};

// The project's tables, lowest folder first.
const std::vector<FolderRule>& drawingFolders();
const std::vector<FolderRule>& consoleFolders();

// A folder may use those before it in the table only, so that there are no cycles.
std::vector<Finding> checkFolderTable(const std::vector<FolderRule>& table);

// Private headers that a folder of the module may not include, and sources in folders that the table lacks. Public
// headers belong to no folder: what they declare is checked by its symbols.
std::vector<Finding> checkFolderIncludes(const SourceTree& tree, const std::vector<FolderRule>& table,
                                         const std::string& module);

// Symbols as `nm -A -P` prints them ("object: name type ...") for the objects of a target, one for each source. An
// object is TARGET.dir/ with the path of the source in its module and ".o". A symbol that several objects define
// (inline functions) belongs to none.
std::vector<Finding> checkFolderSymbols(std::istream& symbols, const std::vector<FolderRule>& table,
                                        const std::string& module, const std::string& target);

} // namespace architecture

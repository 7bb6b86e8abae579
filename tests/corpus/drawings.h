// The real drawings that corpus tests read. A missing folder or file is a failure of the test that asks.
#pragma once

#include <string>
#include <vector>

namespace corpus {

std::string textOf(const std::string& path);
// The folder of the drawings, with a slash behind it; empty when it is not named.
std::string folder();
// The lines of its list, headings left out; the path below the folder stands in front of the first tab.
std::vector<std::string> listed();
// Full paths of all listed drawings.
std::vector<std::string> paths();

} // namespace corpus

// The real drawings that corpus tests read. A missing folder or file is a failure of the test that asks.
#pragma once

#include "drawing/file.h"
#include "tests/support/drawings.h"

#include <functional>
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
// Every listed drawing that can be read, under a trace of its path; why one cannot is the matter of a test of its own.
void forEachDrawing(const std::function<void(const std::string& path, const drawing::ReadResult& read)>& look);

// Whether two entities, or two blocks, have the same extents to the last bit, or have no extents for the same reason.
template <class T>
bool sameExtents(OdDbObjectId one, OdDbObjectId other) {
  OdGeExtents3d a, b;
  const bool sameResult = tests::forRead<T>(one)->getGeomExtents(a) == tests::forRead<T>(other)->getGeomExtents(b);
  return sameResult && (!a.isValidExtents() || (a.minPoint() == b.minPoint() && a.maxPoint() == b.maxPoint()));
}

} // namespace corpus

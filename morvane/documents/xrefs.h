// External references of open documents.
#pragma once

#include "OdString.h"
#include "drawing/file.h"
#include "drawing/xref.h"
#include "morvane/files.h"

#include <optional>

namespace morvane::documents {

// The full path of the file that a drawing names, as drawings spell it. A relative path starts at the folder of
// that drawing, and case does not matter there. The folder it names may be another machine's: the bare name is looked
// for as well.
std::optional<OdString> findInDrawingFolder(const PathMap& paths, const SearchPath& search, const OdString& saved,
                                            const OdDbDatabase& from);
drawing::Report loadXrefs(const PathMap& paths, const SearchPath& search, const drawing::ReadOptions& reading,
                          OdDbDatabase& database);

} // namespace morvane::documents

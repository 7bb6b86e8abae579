// Every definition of a drawing in a file of its own.
#pragma once

#include "console/blocks/write_block_file.h"
#include "console/messages/json.h"

#include <string>

namespace console {

struct LibraryRequest {
  std::string folder;    // made when it is not there; the one above must be
  BlockFileRequest each; // of every file; source and path are filled in
  bool withAnonymous = true;
  bool withPreviews = true;
};

// Writes NAME.dxf and NAME.png for each definition, anonymous ones included, and manifest.json, which lists the block
// of each file and the skipped ones: external references, whose contents belong to another file. Returns the manifest.
// Throws, and no file is changed, when one of the files is an open drawing, or is there already and may not be
// replaced.
Json writeLibrary(Session& session, const LibraryRequest& request);

} // namespace console

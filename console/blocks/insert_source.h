// Drawing files that come into the open drawing as blocks.
#pragma once

#include "console/session/session.h"

#include "DbDatabase.h"

#include <string>
#include <vector>

namespace console {

struct BlockSource {
  std::string path; // of this system
  OdString name;    // of the block; the file's own name unless another one was given
  OdDbDatabasePtr database;
};

// Reads the file. Repairs are reported and noted; a file that cannot be read throws.
BlockSource readBlockSource(Session& session, const std::string& path, const OdString& name);

// What happens when a block of the name is there.
enum class ConflictPolicy { kPrompt, kRefuse, kKeep, kReplace, kRename };

struct ImportedBlock {
  enum class Resolution {
    kMade,
    kReplaced, // the drawing's own definition
    kKept,     // the drawing's own definition, which has other contents
    kShared,   // the drawing's own definition, which has the same contents
    kRenamed   // made under a free name
  };
  Resolution resolution = Resolution::kMade;
  OdDbObjectId block;
  OdString name;
  struct Nested {
    OdString name, now;
  };
  std::vector<Nested> renamed; // definitions in the file that came in under another name
  std::vector<OdString> kept;  // definitions in the file whose place the drawing's own ones of that name take
};

// Makes the block, or refills it, or answers the one that is there; throws when that is refused or cancelled. Nested
// definitions that the drawing has with other contents give way to the drawing's, with ConflictPolicy::kRename they
// come in under free names. Everything except the block created under its own name is reported.
ImportedBlock importBlock(Session& session, const BlockSource& source, ConflictPolicy conflictPolicy);

// Definitions in the file, in any depth below model space, which the drawing has under the same name.
struct NestedConflict {
  OdString name;
  bool same = false; // in contents
};
std::vector<NestedConflict> nestedConflicts(const OdDbDatabase& source, const OdDbDatabase& target);

} // namespace console

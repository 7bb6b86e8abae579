// Blocks, objects and whole drawings into files of their own: what WBLOCK and `morvane wblock` do.
#pragma once

#include "console/session/session.h"

#include "DbObjectId.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint3d.h"
#include "OdDb.h"
#include "drawing/file.h"

#include <map>
#include <optional>
#include <string>
#include <variant>

namespace console {

struct WholeDrawing {};
// An id is a definition's; objects are of one space, at least one.
using BlockFileSource = std::variant<WholeDrawing, OdDbObjectId, OdDbObjectIdArray>;

struct BlockFileRequest {
  BlockFileSource source;
  // Nothing: the block's own, the origin for objects, that of the drawing. In coordinates of the block; in `ucs` else.
  std::optional<OdGePoint3d> basePoint;
  OdGeMatrix3d ucs = OdGeMatrix3d::kIdentity; // objects stand in the file along its axes
  std::optional<OdDb::UnitsValue> units;      // nothing: those of the block or the drawing
  std::string path;                           // in full
  OdDb::DwgVersion version = OdDb::kVersionUnknown;
  drawing::WriteOptions::Form form = drawing::WriteOptions::kText;
  bool mayReplace = false;
};

// What a drawing holds.
struct DrawingCount {
  std::size_t objects = 0; // of its spaces
  std::map<std::string, std::size_t> types;
  std::size_t definitions = 0;
  std::size_t objectsInDefinitions = 0;
  friend bool operator==(const DrawingCount&, const DrawingCount&) = default;
};
DrawingCount countOf(const OdDbDatabase& database);

struct BlockFile {
  std::string path;
  OdDb::DwgVersion version = OdDb::kVersionUnknown;
  DrawingCount count; // as read again
  OdGePoint3d basePoint;
  OdDb::UnitsValue units = OdDb::kUnitsUndefined;
  OdDbObjectIdArray written;                  // where the source is objects: those that the file holds
  std::map<std::string, std::size_t> dropped; // by type: objects that cannot be moved to the base point
};

// The definition of that name, or null. Throws for those whose contents are not the drawing's own to write: spaces and
// external references.
OdDbObjectId definitionToWrite(Session& session, const OdString& name);

// Makes the drawing, writes it, reads it again and counts. The open drawing is not changed. Throws, and no file is
// changed, when it cannot be made or written; throws as well when the file does not hold what was written.
BlockFile writeBlockFile(Session& session, const BlockFileRequest& request);
void reportBlockFile(Session& session, const BlockFile& written);

} // namespace console

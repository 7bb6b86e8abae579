// What the examples of docs/functions stand on: a host in memory with a small drawing open, and a folder for files.
#pragma once

#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbCurves.h"
#include "DbDatabase.h"
#include "DbSymbolRecords.h"
#include "OdError.h"
#include "blockcommon/blockcommon.h"
#include "drawing/file.h"
#include "morvane/testing.h"

#include <filesystem>
#include <string>
#include <vector>

namespace examples {

// The object behind an id. Throws OdError_NotThatKindOfClass for another class; null when it does not open.
template <class T>
OdSmartPtr<T> open(OdDbObjectId id, OdDb::OpenMode mode = OdDb::kForRead) {
  return OdSmartPtr<T>(id.safeOpenObject(mode));
}

// Each adds to the drawing and answers the new id. Entities go into model space when no block is named.
OdDbObjectId addBlock(OdDbDatabase& drawing, const OdString& name);
OdDbObjectId addLayer(OdDbDatabase& drawing, const OdString& name);
OdDbObjectId addLine(OdDbDatabase& drawing, const OdGePoint3d& from, const OdGePoint3d& to,
                     OdDbObjectId block = OdDbObjectId());
OdDbObjectId addReference(OdDbDatabase& drawing, OdDbObjectId definition, const OdGePoint3d& at = OdGePoint3d::kOrigin,
                          OdDbObjectId block = OdDbObjectId());
OdDbObjectId addAttributeDefinition(OdDbDatabase& drawing, const OdString& tag, const OdString& prompt,
                                    const OdString& text, OdDbObjectId block = OdDbObjectId());
// Puts the scale, paper units to drawing units, into the drawing's list and makes it the current annotation scale.
void setAnnotationScale(OdDbDatabase& drawing, const OdString& name, double paperUnits, double drawingUnits);

// A folder on disk that is removed with its owner.
class Folder {
public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  const std::filesystem::path& path() const { return path_; }

private:
  std::filesystem::path path_;
};

// A command's surroundings: answers are typed, boxes are collected, one drawing is open and current.
class Session {
public:
  explicit Session(std::vector<OdString> answers = {});

  // A drawing file of one line in the folder, named NAME.dxf for instance; answers its path as drawings spell it.
  OdString addFile(const OdString& name) const;
  OdString takeOutput() { return host.takeOutput(); } // what was printed since the last call

  morvane::ScriptedHost host;
  Folder folder;               // is the folder of the drive P:
  std::vector<OdString> boxes; // the texts of the message boxes that were shown
  int button = 0;              // the one that is pressed in them, 0 the first

  OdDbDatabasePtr drawing = OdDbDatabase::create(); // in millimetres
  mvsi::MvsiApDocument* document;                   // that of the drawing
  OdDbObjectId door;                                // the block DOOR: the lines (0,0) to (900,0) and (0,0) to (0,900)
  OdDbObjectId label;     // the block LABEL: the attribute ROOM, asked for with "Room:", 101 by default
  OdDbObjectId walls;     // the layer WALLS
  OdDbObjectId wall;      // in model space, on that layer: the line (0,0) to (5000,0)
  OdDbObjectId reference; // in model space, on layer 0: DOOR at (1000,0)
};

} // namespace examples

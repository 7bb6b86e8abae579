// Open documents, the working database, and the UCS of a drawing.
#pragma once

#include "DbDatabase.h"
#include "Ge/GeMatrix3d.h"
#include "OdString.h"
#include "drawing/report.h"
#include "morvane/export.h"
#include "morvane/off_screen.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace mvsi {

// A drawing that is open, with what the host keeps beside it.
class MORVANE_API MvsiApDocument : public OdRxObject {
public:
  // Numbers that stand in saved settings and scripts; the even ones of a pair are DWG, the odd ones DXF.
  enum SaveFormat : int {
    kUnknownFormat = 0,
    kR12Dxf = 1,
    kR12Dwg = 8,
    k2000Dwg = 12,
    k2000Dxf = 13,
    k2004Dwg = 24,
    k2004Dxf = 25,
    k2007Dwg = 36,
    k2007Dxf = 37,
    k2010Dwg = 48,
    k2010Dxf = 49,
    kNewestDwg = 60,
    kNewestDxf = 61
  };

  MvsiApDocument(OdDbDatabasePtr database, const OdString& fileName);
  ~MvsiApDocument() override;

  OdDbDatabase* database() const { return database_.get(); } // never null
  // As drawings spell paths; empty for a drawing without a file.
  const OdString& fileName() const { return fileName_; }
  void setFileName(const OdString& fileName) { fileName_ = fileName; }
  // The definition that is open in the block editor of this document, and its present name; null and empty when none
  // is. Its contents are the current space while it is open. One that is erased is closed until undo brings it back.
  OdDbObjectId blockEditorId() const;
  OdString blockEditorName() const;
  // Opens the definition of that name, or closes the editor for the empty and for an unknown name.
  void setBlockEditorName(const OdString& name);
  // Changed since it was opened or markSaved was called.
  bool isModified() const;
  void markSaved();
  std::uint64_t refreshCount() const { return refreshCount_; } // how often its views were drawn anew
  // What could not be loaded of its external references; notes only.
  const drawing::Report& xrefReport() const { return xrefReport_; }

private:
  friend class DocumentAccess;
  OdDbDatabasePtr database_;
  OdString fileName_;
  OdDbObjectId edited_;
  std::uint64_t savedAt_ = 0;
  std::uint64_t refreshCount_ = 0;
  drawing::Report xrefReport_;
};

using MvsiApDocumentPtr = OdSmartPtr<MvsiApDocument>;

// The database that commands work on: the current document's unless they were set apart. Null when there is none.
MORVANE_API OdDbDatabase* mvsidbWorkingDatabase();
// Sets another working database, or none; the current document's own, or a change of the current document, brings them
// together again.
MORVANE_API int mvsidbSetWorkingDatabase(OdDbDatabase* database);
// The document of that database; null when it is not open.
MORVANE_API MvsiApDocument* gsiGetApDocFromDb(const OdDbDatabase* database);

// The UCS of the drawing as a matrix from the UCS to the world. RTERROR for null.
MORVANE_API int mvsidbUcsMatrix(OdGeMatrix3d& matrix, OdDbDatabase* database);
// RTREJ for axes that are not of unit length and at right angles.
MORVANE_API int mvsidbSetUcsMatrix(const OdGeMatrix3d& matrix, OdDbDatabase* database);
// A point, or a vector when `vector`, between the UCS of the working database and the world. `in` may be `out`.
// RTERROR without a working database or for numbers that are not finite; `out` is then left alone.
MORVANE_API int mvsidbUcs2Wcs(const double* in, double* out, bool vector);
MORVANE_API int mvsidbUcs2Wcs(const OdGePoint3d& in, OdGePoint3d& out, bool vector);
MORVANE_API int mvsidbWcs2Ucs(const double* in, double* out, bool vector);

} // namespace mvsi

namespace morvane {

class PathMap;

// The documents of a host. They are owned here; a closed one lives on while somebody holds a pointer to it.
class MORVANE_API Documents {
public:
  using Refresher = std::function<void(mvsi::MvsiApDocument&)>;
  using CurrentChanged = std::function<void(mvsi::MvsiApDocument*)>;
  using XrefLoader = std::function<drawing::Report(OdDbDatabase&)>;

  // Opens the drawing as the current document, and the drawings that it refers to beside it. Null for a null database.
  mvsi::MvsiApDocument* open(OdDbDatabasePtr database, const OdString& fileName = OdString());
  // The document before it in the list, else the next, becomes current. False when it is not open.
  bool close(mvsi::MvsiApDocument* document);
  mvsi::MvsiApDocument* current() const { return current_; }                     // null when none is open
  bool setCurrent(mvsi::MvsiApDocument* document);                               // false when it is not open
  const std::vector<mvsi::MvsiApDocumentPtr>& all() const { return documents_; } // in order of opening
  mvsi::MvsiApDocument* find(const OdDbDatabase* database) const;
  // The document of that file, by whatever path it is named; without regard to case. Null for the empty name.
  mvsi::MvsiApDocument* findFile(const PathMap& paths, const OdString& fileName) const;

  OdDbDatabase* workingDatabase() const;
  void setWorkingDatabase(OdDbDatabase* database);

  // Draws a document's views anew; nothing to do when empty.
  void setRefresher(Refresher refresher) { refresher_ = std::move(refresher); }
  bool refresh(mvsi::MvsiApDocument* document);
  // Draws the space that the document shows, all of it, into a picture as large as the rectangle. False, and the image
  // left alone, for a document that is not open, a rectangle without area and one of more than 30000 pixels a side.
  bool drawOffScreen(const mvsi::MvsiApDocument* document, const mvsi::MvsiDeviceRect& rectangle,
                     mvsi::MvsiImage& image) const;
  void setCurrentChanged(CurrentChanged changed) { changed_ = std::move(changed); }

  // Loads the external references of a drawing; empty: they stay as they are.
  void setXrefLoader(XrefLoader loader) { loadXrefs_ = std::move(loader); }
  void loadXrefs(mvsi::MvsiApDocument& document); // again, when files have changed

private:
  void makeCurrent(mvsi::MvsiApDocument* document);
  std::vector<mvsi::MvsiApDocumentPtr> documents_;
  mvsi::MvsiApDocument* current_ = nullptr;
  std::optional<OdDbDatabasePtr> separateDatabase_; // set: this is the working database, null included
  Refresher refresher_;
  CurrentChanged changed_;
  XrefLoader loadXrefs_;
};

} // namespace morvane

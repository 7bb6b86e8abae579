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

// An open drawing with its state in the host.
class MORVANE_API MvsiApDocument : public OdRxObject {
public:
  // Formats of files. The numbers are stored in settings and scripts; even ones of a pair are DWG, odd ones DXF.
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

  // `database` must not be null; the document keeps it open.
  MvsiApDocument(OdDbDatabasePtr database, const OdString& fileName);
  ~MvsiApDocument() override;

  OdDbDatabase* database() const { return database_.get(); } // never null
  // Path with backslashes as in drawings; empty for a drawing without a file.
  const OdString& fileName() const { return fileName_; }
  void setFileName(const OdString& fileName) { fileName_ = fileName; }
  // The definition that is open in the block editor of this document, and its present name; null and empty if none is.
  // Its contents are the current space while it is open. It counts as closed while it is erased.
  OdDbObjectId blockEditorId() const;
  OdString blockEditorName() const;
  // Opens the definition of that name; closes the editor for an empty or unknown name.
  void setBlockEditorName(const OdString& name);
  // Whether the drawing was changed since the document was created or markSaved was called.
  bool isModified() const;
  void markSaved();
  std::uint64_t refreshCount() const { return refreshCount_; } // number of times that its views were redrawn
  // Report of loading its external references; notes only.
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

// The database that commands work on: that of the current document unless another one is set. Null if there is none,
// and without a host. The caller does not own it.
MORVANE_API OdDbDatabase* mvsidbWorkingDatabase();
// Sets another working database, or none (null), until the current document changes or its own database is set; the
// host keeps it open. RTNORM, or RTERROR without a host.
MORVANE_API int mvsidbSetWorkingDatabase(OdDbDatabase* database);
// The document of that database, owned by the host; null if it is not open, and without a host.
MORVANE_API MvsiApDocument* gsiGetApDocFromDb(const OdDbDatabase* database);

// The user coordinate system (UCS) of the drawing as a matrix from UCS to world coordinates. RTERROR for null.
MORVANE_API int mvsidbUcsMatrix(OdGeMatrix3d& matrix, OdDbDatabase* database);
// Sets the UCS. RTERROR for null, RTREJ for axes that do not have unit length or are not perpendicular.
MORVANE_API int mvsidbSetUcsMatrix(const OdGeMatrix3d& matrix, OdDbDatabase* database);
// Convert a point, or a vector if `vector` is true, between UCS and world coordinates of the working database. Pointers
// are to 3 numbers; `in` may be `out`. RTERROR, and `out` unchanged, without a working database and for numbers that
// are not finite.
MORVANE_API int mvsidbUcs2Wcs(const double* in, double* out, bool vector);
MORVANE_API int mvsidbUcs2Wcs(const OdGePoint3d& in, OdGePoint3d& out, bool vector);
MORVANE_API int mvsidbWcs2Ucs(const double* in, double* out, bool vector);

} // namespace mvsi

namespace morvane {

class PathMap;

// The documents of a host, which owns them; a closed document exists while a counted pointer refers to it.
class MORVANE_API Documents {
public:
  using Refresher = std::function<void(mvsi::MvsiApDocument&)>;
  using CurrentChanged = std::function<void(mvsi::MvsiApDocument*)>;
  using XrefLoader = std::function<drawing::Report(OdDbDatabase&)>;

  // Opens the drawing as the current document and loads its external references. Null for a null database.
  mvsi::MvsiApDocument* open(OdDbDatabasePtr database, const OdString& fileName = OdString());
  // Closes a document; if it was current, the one before it in the list, else the next, becomes current. False if it is
  // not open.
  bool close(mvsi::MvsiApDocument* document);
  mvsi::MvsiApDocument* current() const { return current_; }                     // null if none is open
  bool setCurrent(mvsi::MvsiApDocument* document);                               // false if it is not open
  const std::vector<mvsi::MvsiApDocumentPtr>& all() const { return documents_; } // in order of opening
  // The document of a database, or of a file: by any path that leads to it, case does not matter. Null if there is
  // none, and for an empty name.
  mvsi::MvsiApDocument* find(const OdDbDatabase* database) const;
  mvsi::MvsiApDocument* findFile(const PathMap& paths, const OdString& fileName) const;

  // See mvsidbWorkingDatabase.
  OdDbDatabase* workingDatabase() const;
  void setWorkingDatabase(OdDbDatabase* database);

  // Redraws the views of a document through the function that was set, if any; false for null.
  void setRefresher(Refresher refresher) { refresher_ = std::move(refresher); }
  bool refresh(mvsi::MvsiApDocument* document);
  // Draws the space that the document displays, all of it, into an image of the size of the rectangle. False, and the
  // image unchanged, for a document that is not open, a rectangle without area and one of more than 30000 pixels per
  // side.
  bool drawOffScreen(const mvsi::MvsiApDocument* document, const mvsi::MvsiDeviceRect& rectangle,
                     mvsi::MvsiImage& image) const;
  // Called with the new current document, which may be null.
  void setCurrentChanged(CurrentChanged changed) { changed_ = std::move(changed); }

  // Loads the external references of a drawing; empty: they are not loaded. loadXrefs loads them again, after files
  // have changed.
  void setXrefLoader(XrefLoader loader) { loadXrefs_ = std::move(loader); }
  void loadXrefs(mvsi::MvsiApDocument& document);

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

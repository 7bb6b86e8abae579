// External references of the open drawing: what the XREF command does once everything is known. Runs inside a step that
// changes the drawing: the code that catches the Failure undoes the step.
#pragma once

#include "console/session/session.h"

#include "DbBlockTable.h"
#include "Ge/GePoint3d.h"

namespace console {

struct AttachRequest {
  std::string file; // as externalFile answers it
  OdString name;
  OdGePoint3d pointUcs;
  double scale = 1; // on top of the units of both drawings
  double rotationRad = 0;
  bool overlay = false;
};

// The file of an entered path: as given, otherwise along the search path. Throws when there is none, and when it is
// that of the open drawing.
std::string externalFile(Session& session, const std::string& entered);
// The name that a reference to the file gets unless another is wanted.
OdString defaultXrefName(const std::string& path);

// All in table order, or the one of that name; "*" is all. Throws when there is none.
std::vector<OdDbBlockTableRecordPtr> xrefsNamed(Session& session, const OdString& name);
std::vector<OdDbBlockTableRecordPtr> allXrefs(Session& session);
// "loaded", "not found" ...
OdString xrefState(drawing::XrefStatus status);

// Places a reference to the file. A block that stands for the file already is used again.
void attachXref(CommandContext& context, const AttachRequest& request);
// Those that came with an inserted drawing.
void loadNewXrefs(Session& session);
// Erases the block, its references, and what the drawing held of it that nothing else uses; the rest is its own.
void detachXref(Session& session, const OdDbBlockTableRecordPtr& xref);
// Reads the files again; unloaded ones are loaded.
void reloadXrefs(Session& session, const std::vector<OdDbBlockTableRecordPtr>& xrefs);
void bindXref(Session& session, const OdDbBlockTableRecordPtr& xref);

} // namespace console

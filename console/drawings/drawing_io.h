// Reads and writes drawing files, with their messages.
#pragma once

#include "console/session/session.h"

#include "drawing/file.h"

#include <string>
#include <string_view>

namespace console {

// Reads the file in place of the open drawing. A repaired drawing is reported and noted; one that cannot be read
// throws, and the open drawing stays. `listsIssues` false: repairs are only counted, not listed. Returns the report of
// the reading.
drawing::Report openDrawing(Session& session, const std::string& path, bool listsIssues = true);

// Reads the file beside the open drawing. Repairs are reported and noted; a file that cannot be read throws.
OdDbDatabasePtr readDrawingFile(Session& session, const std::string& path);

struct SaveRequest {
  std::string path;
  OdDb::DwgVersion version = OdDb::kVersionUnknown; // unknown: the version that the drawing came in
  drawing::WriteOptions::Form form = drawing::WriteOptions::kAsRead;
  bool mayReplace = false; // an existing file
};

// Writes any drawing; losses of the version are reported and noted. Throws and changes no file when writing fails, for
// a name that is not that of a drawing, and for an existing file that may not be replaced.
void writeFile(Session& session, const OdDbDatabase& database, const SaveRequest& request);
// The same of the open drawing, which is that file from then on.
void saveDrawing(Session& session, const SaveRequest& request);
void reportLosses(Session& session, const std::string& path, const drawing::Report& report);

// What could not be loaded of the external references of the open drawing. Nothing is lost by it.
void reportXrefs(Session& session);

// Any file, as a whole. Throws and changes no file when that fails, and when it is there and may not be replaced.
void writeBytes(const std::string& path, std::string_view bytes, bool mayReplace);

bool fileExists(const std::string& path);
bool isOrdinaryFile(const std::string& path);                      // or a link to one
bool isOwnFileRepaired(Session& session, const std::string& path); // the file that the repaired drawing was read from
std::string versionToWrite(const OdDbDatabase& database, OdDb::DwgVersion wanted);
// Refuses the names of files that would not be what they are called.
void checkDrawingName(const std::string& path);

} // namespace console

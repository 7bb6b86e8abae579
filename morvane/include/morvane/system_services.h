// Services of the host for users of the drawing SDK: finding and reading files.
#pragma once

#include "DbDatabase.h"
#include "OdString.h"
#include "drawing/file.h"
#include "morvane/export.h"

// The services; they have no state and use the current host.
class MORVANE_API MvdbSystemServices {
public:
  // Kind of file; it makes no difference.
  enum FindFileHint : int { kDefault = 0, kXrefDrawing = 1 };

  // Full drawing path of an ordinary file; empty if there is none, and without a host. It is searched as named, in the
  // folder of the current drawing, and on the search path. With a database, the folder of that is searched first, and a
  // file that is not in the folder of its path is searched by its name alone.
  OdString findFile(const OdString& fileName, const OdDbDatabase* database = nullptr,
                    FindFileHint hint = kDefault) const;

  // Reads a drawing file with the limits and the encoding of the host. The path is used as given, without a search; no
  // drawing and the reason if the file does not exist, and without a host.
  drawing::ReadResult readDrawing(const OdString& path) const;
};

// The services of the program.
MORVANE_API MvdbSystemServices& mvdbSystemServices();

// What the host does for the drawing SDK and its callers: finding files and reading them.
#pragma once

#include "DbDatabase.h"
#include "OdString.h"
#include "drawing/file.h"
#include "morvane/export.h"

class MORVANE_API MvdbSystemServices {
public:
  enum FindFileHint : int { kDefault = 0, kXrefDrawing = 1 }; // both are looked for in the same places

  // The full path of an ordinary file as drawings spell it; empty when there is none, and without a host. It is looked
  // for as named, in the folder of the current drawing, and on the search path. With a database its own folder comes
  // before all that, and what has moved away from the folder it names is found by its bare name.
  OdString findFile(const OdString& fileName, const OdDbDatabase* database = nullptr,
                    FindFileHint hint = kDefault) const;

  // Reads a drawing file with the host's limits and encoding. The path is taken as it is given and not looked for; no
  // drawing and the reason when there is no such file, and without a host.
  drawing::ReadResult readDrawing(const OdString& path) const;
};

MORVANE_API MvdbSystemServices& mvdbSystemServices();

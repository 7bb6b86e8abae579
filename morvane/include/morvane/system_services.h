// What the host does for the drawing SDK and its callers: finding files.
#pragma once

#include "DbDatabase.h"
#include "OdString.h"
#include "morvane/export.h"

class MORVANE_API MvdbSystemServices {
public:
  enum FindFileHint : int { kDefault = 0, kXrefDrawing = 1 }; // both are looked for in the same places

  // The full path of an ordinary file as drawings spell it; empty when there is none, and without a host. It is looked
  // for as named, in the folder of the current drawing, and on the search path. With a database its own folder comes
  // before all that, and what has moved away from the folder it names is found by its bare name.
  OdString findFile(const OdString& fileName, const OdDbDatabase* database = nullptr,
                    FindFileHint hint = kDefault) const;
};

MORVANE_API MvdbSystemServices& mvdbSystemServices();

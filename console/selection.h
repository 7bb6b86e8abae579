// Which objects a command works on.
#pragma once

#include "console/session.h"

#include "DbObjectId.h"

#include <string>
#include <vector>

namespace console {

struct Selector {
  enum class Kind { All, Layer, Type, Handle };
  Kind kind = Kind::All;
  OdString value;
};

// The living objects of a space in order of addition.
OdDbObjectIdArray objectsOf(OdDbObjectId space);
// What any of the selectors picks, each object once, in order of addition. Throws for a layer, type or handle that is
// not there; the message says what there is.
OdDbObjectIdArray selectObjects(OdDbDatabase& database, OdDbObjectId space, const std::vector<Selector>& selectors);

// Asks until an empty answer, and remembers the answer for Previous. Throws when nothing was selected.
OdDbObjectIdArray askSelection(Session& session);

// Takes objects on locked layers out and tells how many there were. Throws when none is left.
std::size_t leaveOutLocked(Session& session, OdDbObjectIdArray& ids);

} // namespace console

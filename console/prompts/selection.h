// Which objects a command works on.
#pragma once

#include "console/session/session.h"

#include "DbObjectId.h"

#include <unordered_map>
#include <vector>

namespace console {

struct Selector {
  enum class Kind { kAll, kLayer, kType, kHandle };
  Kind kind = Kind::kAll;
  OdString value;
};

// What was picked, each object once, in the order of picking. An object that is taken away and picked again comes last.
class Picks {
public:
  void add(OdDbObjectId id);
  void remove(OdDbObjectId id) { positions_.erase(id); }
  std::size_t size() const { return positions_.size(); }
  OdDbObjectIdArray ids() const;

private:
  std::vector<OdDbObjectId> order_;
  std::unordered_map<OdDbObjectId, std::size_t> positions_;
};

// The living objects of a space in order of addition.
OdDbObjectIdArray objectsOf(OdDbObjectId space);
// Those of the objects that the selector picks, in their order. Throws for a layer, type or handle that is not there;
// the message says what there is.
OdDbObjectIdArray pickedBy(OdDbDatabase& database, const OdDbObjectIdArray& objects, const Selector& selector);
// Those that can be picked: not the viewport of a layout itself, which is its first.
OdDbObjectIdArray pickableObjects(OdDbObjectId space);
// What any of the selectors picks of a space.
OdDbObjectIdArray selectObjects(OdDbDatabase& database, OdDbObjectId space, const std::vector<Selector>& selectors);

// Asks until an empty answer, and remembers what was picked for Previous. Empty when nothing was.
OdDbObjectIdArray promptNewSelection(Session& session);
// The selection that was made before the command, which is used up by this; else asks. Throws when nothing is selected.
OdDbObjectIdArray promptSelection(Session& session);
// Reports a selection that was made before the command, and stores it for Previous.
void reportPreselection(Session& session, const OdDbObjectIdArray& ids);

// Removes objects on locked layers and reports their number. Throws when none is left.
std::size_t removeLocked(Session& session, OdDbObjectIdArray& ids);

} // namespace console

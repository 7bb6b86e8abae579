// Making a block of objects: what the BLOCK command and `morvane make` do once everything is known.
#pragma once

#include "console/session/session.h"

#include "DbObjectId.h"
#include "Ge/GePoint3d.h"
#include "OdDb.h"

#include <map>
#include <optional>

class OdDbBlockTableRecord;

namespace console {

struct BlockRequest {
  OdString name;
  OdGePoint3d basePointUcs;
  OdDbObjectIdArray ids; // of one space, as objectsForBlock answers them; none for a block without contents
  OdDbObjectId space;    // where a reference is placed
  SourceObjects sourceObjects = SourceObjects::kConvert;
  bool redefine = false;
  OdString description;
  std::optional<OdDb::UnitsValue> units; // nothing: those of the drawing
  bool annotative = false;
  bool matchOrientation = false;
  bool scalesUniformly = false;
  bool explodable = true;
};

struct BlockMade {
  OdDbObjectId block;
  OdDbObjectId reference; // null unless the objects were converted
  bool redefined = false;
  std::size_t objects = 0;
  std::map<std::string, std::size_t> dropped; // by type: cannot be put into the block, stay where they are
};

[[noreturn]] void refuseEmptyName();
// Throws Failure for a name that a block cannot have. Message boxes of the block commands explain the rules that they
// know.
void checkBlockName(Session& session, const OdString& name);
// The definition of that name in the open drawing; null when there is none.
OdDbObjectId definitionOf(Session& session, const OdString& name);
std::size_t referencesTo(OdDbObjectId block);
// Refuses the blocks whose contents are not the drawing's definitions: spaces and external references.
void refuseNonDefinition(const OdDbBlockTableRecord& block);

// Runs inside a step that changes the drawing: the code that catches the Failure undoes the step.
BlockMade makeBlock(Session& session, const BlockRequest& request);
// The results, for a caller that knows that they will last.
void reportSourceObjects(Session& session, SourceObjects sourceObjects);
void reportBlockMade(Session& session, const BlockRequest& request, const BlockMade& made);

} // namespace console

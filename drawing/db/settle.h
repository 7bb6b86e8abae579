// What every drawing must have, and the last steps of a reading.
#pragma once

#include "db/layout_links.h"
#include "db/load_context.h"

namespace drawing::db {

// Makes whatever every drawing holds and this one lacks: tables and their standard records, the spaces with their
// layouts, the named-objects dictionary. Answers what it made, for people; links between sheets and blocks that it had
// to mend go to `tell`.
std::vector<std::string> ensureBasics(OdDbDatabase& database, const TellLayoutFault& tell = {});

struct SettleFacts {
  OdDbDatabase& database;
  LoadContext& context;
  const Budget& budget;
};

// Ends a reading: references to stand-ins go to the records that came, what was named and never came is told, blocks
// get their ends, cycles of definitions are cut, objects without handle get one.
void settleDrawing(SettleFacts& facts);

} // namespace drawing::db

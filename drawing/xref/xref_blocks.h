// The external references of a drawing.
#pragma once

#include "DbBlockTable.h"
#include "drawing/model/table_records.h"

#include <vector>

namespace drawing {

// The blocks of the drawing's own external references, in the order of its block table.
inline std::vector<OdDbBlockTableRecord*> xrefsIn(const OdDbDatabase& database) {
  auto blocks = recordsOf<OdDbBlockTableRecord>(database, OdDb::kBlockTable);
  std::erase_if(blocks, [](const OdDbBlockTableRecord* block) { return !block->isFromExternalReference(); });
  return blocks;
}

} // namespace drawing

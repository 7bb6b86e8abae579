// Write block: parts of a drawing as separate drawings.
//
// Each function creates a drawing and does not change the source. Records that the objects depend on are cloned with
// them under their names and with their properties (nested definitions, layers, linetypes, styles, shape files,
// annotation scales, associations of dimensions), and nothing else; so are header variables that affect the appearance,
// and with images and wipeouts the display of their frames. The new drawing has the version and code page of the
// source. Its units (INSUNITS) are those of the source and its base point is the origin unless stated otherwise.
// Functions return null if the limits of cloning are exceeded.
#pragma once

#include "DbDatabase.h"

namespace drawing {

// A drawing whose model space has the entities of the block, in draw order and in block coordinates; the base point of
// the block is that of the drawing. Units, permission to explode and to scale unequally, description, annotative
// properties and dynamic block data are stored with model space, where OdDbDatabase::insert reads them. `path`: file
// that the drawing will be saved to, to which relative paths of other files are converted; empty makes them absolute.
// Throws OdError(eInvalidInput) unless `block` is a block that is not erased.
MVDRAWING_API OdDbDatabasePtr wblockBlock(OdDbObjectId block, const std::string& path = {});

// A drawing whose model space has these objects of one drawing, in this order and at their coordinates. Also null for
// an empty list and if one of the objects cannot be cloned.
MVDRAWING_API OdDbDatabasePtr wblockObjects(const OdDbObjectIdArray& ids, const std::string& path = {});

// A copy of the whole drawing, layouts included, without unused records. It keeps the base point. The copy is made
// through a file of that version in memory (unknown: the version of the drawing); `lost`, if not null, receives what
// the version cannot represent. Null also if writing or reading fails.
MVDRAWING_API OdDbDatabasePtr wblockDrawing(const OdDbDatabase& database, const std::string& path = {},
                                            OdDb::DwgVersion version = OdDb::kVersionUnknown, Report* lost = nullptr);

} // namespace drawing

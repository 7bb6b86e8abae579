// Parts of a drawing as drawings of their own.
//
// Each function makes a new drawing and leaves the source as it is. What the objects need comes along under its own
// name and with its own properties (nested definitions, layers, line types, styles, files of shapes, annotation scales,
// the associations of dimensions), and nothing else does; of the header, what decides how objects look, and with
// pictures and wipeouts whether their frames show. The new drawing has the source's version and code page. Its units
// (INSUNITS) are those of the source, its base point is the origin, unless said otherwise. Null when the drawing would
// grow beyond the limits of cloning.
#pragma once

#include "DbDatabase.h"

namespace drawing {

// Model space holds the contents of the block, in drawing order and in the coordinates of the block: its base point is
// that of the drawing. Units, whether references may be exploded or scaled unequally, the description, annotative
// properties and the behaviour of a dynamic block stand with model space, where OdDbDatabase::insert finds them.
// `block` must open as a block. `path`: where the drawing will lie, which relative paths of other files in it start
// from; empty makes them absolute.
MVDRAWING_API OdDbDatabasePtr wblockBlock(OdDbObjectId block, const std::string& path = {});

// Model space holds the objects, which are of one drawing, in the order given and where they are in theirs. Null for an
// empty list, too, and where one of the objects does not open.
MVDRAWING_API OdDbDatabasePtr wblockObjects(const OdDbObjectIdArray& ids, const std::string& path = {});

// The whole drawing, sheets included, less what nothing uses. It keeps its base point. Made by way of the file of that
// version (unknown: the drawing's own); `lost`, when given, receives what the version cannot hold.
MVDRAWING_API OdDbDatabasePtr wblockDrawing(const OdDbDatabase& database, const std::string& path = {},
                                            OdDb::DwgVersion version = OdDb::kVersionUnknown, Report* lost = nullptr);

} // namespace drawing

// Drawing files as block definitions of the current drawing, and properties of definitions for the insert command.
//
// For ids that do not open (null, erased, of a closed drawing) functions return false and change nothing; the id of
// another kind of object throws OdError_NotThatKindOfClass. Callers run functions that change the drawing in an undo
// step.
#pragma once

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbObjectId.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace insertCommon {

// Reads the drawing file (.dwg, .dws, .dxf, by the path as given) and creates or redefines the block `blockName` of the
// current drawing with it. The block is explodable as model space of the file is, and has the units of the file.
// External references of the current drawing whose files exist are listed then. Returns false, without a message, for
// a file that cannot be read, and without a current drawing; false, with two lines, for a file that defines the block
// that is open in the block editor. `newBlockId` is set as soon as the block has been created, also if a later step
// fails.
BLOCKCOMMON_API bool insertBlockRecord(const OdString& filePath, const OdString& blockName, OdDbObjectId& newBlockId);

// -- Its steps. --

// Inserts the drawing into the current one as a block (OdDbDatabase::insert); the source is unchanged. Returns false
// for null and without a current drawing, both with `newBlockId` unchanged, and if no block was created, which sets it
// to null.
BLOCKCOMMON_API bool insertDb(OdSmartPtr<OdDbDatabase> pSource, OdString blockName, OdDbObjectId& newBlockId);
// Whether the name is not empty and the drawing has a block of that name.
BLOCKCOMMON_API bool checkSameBlock(OdSmartPtr<OdDbDatabase> pSource, OdString editedBlockName);
// Prints that the block would refer to itself.
BLOCKCOMMON_API void CancelInsertTips(OdString blockName);
// Sets whether references to the block may be exploded, as model space of the source states it.
BLOCKCOMMON_API void setExplodableInfo(OdSmartPtr<OdDbDatabase> pSource, OdDbObjectId blockId);

// Calls insertExternalReference for each definition of the current drawing that has a name. Definitions that do not
// open for write are skipped.
BLOCKCOMMON_API void checkExternalReference(const OdString& filePath);
// Prints a line for an external reference whose file the host finds by the stored path, and calls
// reloadExternalReference for one whose file is missing. No effect for null and for ordinary blocks.
BLOCKCOMMON_API void insertExternalReference(OdSmartPtr<OdDbBlockTableRecord> pRec, OdString blockName,
                                             const OdString& filePath);
// Does nothing.
BLOCKCOMMON_API void reloadExternalReference(OdSmartPtr<OdDbBlockTableRecord> pRec, OdString& pathName,
                                             OdString blockName, OdString samePathName, const OdString& filePath);

// -- Definitions. --

// Whether a definition is an external reference or, by its name, dependent on one; whether its references are scaled
// uniformly; whether they may be exploded.
BLOCKCOMMON_API bool isXrefBlock(const OdDbObjectId& blockId);
BLOCKCOMMON_API bool isBlockUniformScaled(const OdDbObjectId& blockId);
BLOCKCOMMON_API bool isBlockCanExplode(const OdDbObjectId& blockId);

} // namespace insertCommon

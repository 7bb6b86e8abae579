// Drawing files as block definitions of the current drawing, and what the insert command asks of definitions.
//
// Ids that do not open (null, erased, of a drawing that is gone) answer false and change nothing; the id of another
// kind of object throws OdError_NotThatKindOfClass. Callers run what changes the drawing inside an undo step.
#pragma once

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbObjectId.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace insertCommon {

// Reads the drawing file (.dwg, .dws, .dxf, by the path as given) and makes or refills the block `blockName` of the
// current drawing with it. The block explodes as the file's model space does and has the file's units. External
// references of the current drawing whose files are there are listed then. False, without a word, for a file that
// cannot be read, and without a current drawing; false, with two lines, for a file that defines the block which is open
// in the block editor. `newBlockId` is stored as soon as the block was made, also when a later step fails.
BLOCKCOMMON_API bool insertBlockRecord(const OdString& filePath, const OdString& blockName, OdDbObjectId& newBlockId);

// -- Its steps. --

// Puts the drawing into the current one as a block; the source stays as it was. False for null, without a current
// drawing, both without touching `newBlockId`, and when no block was made, which stores null.
BLOCKCOMMON_API bool insertDb(OdSmartPtr<OdDbDatabase> pSource, OdString blockName, OdDbObjectId& newBlockId);
// Whether the name is not empty and the drawing defines a block of it.
BLOCKCOMMON_API bool checkSameBlock(OdSmartPtr<OdDbDatabase> pSource, OdString editedBlockName);
// Prints that the block would refer to itself.
BLOCKCOMMON_API void CancelInsertTips(OdString blockName);
BLOCKCOMMON_API void setExplodableInfo(OdSmartPtr<OdDbDatabase> pSource, OdDbObjectId blockId);

// Walks the definitions of the current drawing and hands each that has a name to insertExternalReference. Definitions
// that do not open for write are passed over.
BLOCKCOMMON_API void checkExternalReference(const OdString& filePath);
// Prints a line for an external reference whose file the host finds by the stored path, and hands one whose file is
// missing to reloadExternalReference. Nothing for null and for ordinary blocks.
BLOCKCOMMON_API void insertExternalReference(OdSmartPtr<OdDbBlockTableRecord> pRec, OdString blockName,
                                             const OdString& filePath);
// Does nothing.
BLOCKCOMMON_API void reloadExternalReference(OdSmartPtr<OdDbBlockTableRecord> pRec, OdString& pathName,
                                             OdString blockName, OdString samePathName, const OdString& filePath);

// -- Definitions. --

BLOCKCOMMON_API bool isXrefBlock(const OdDbObjectId& blockId); // an external reference, or part of one by its name
BLOCKCOMMON_API bool isBlockUniformScaled(const OdDbObjectId& blockId);
BLOCKCOMMON_API bool isBlockCanExplode(const OdDbObjectId& blockId);

} // namespace insertCommon

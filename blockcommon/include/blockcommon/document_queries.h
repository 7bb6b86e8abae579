// What commands ask about the open documents, the current drawing and its definitions.
//
// The current document is asked for anew at every call; without one there is nothing to find. Nothing here shows a
// message. An id that does not open answers as stated; an object of another kind throws OdError_NotThatKindOfClass
// unless a function says that it passes over it.
#pragma once

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace commonFun {

// -- Documents. Names of files are compared as they are spelled, case apart. --

BLOCKCOMMON_API bool isDoc(OdString filePath);    // an open document other than the current one has this name
BLOCKCOMMON_API bool iscurDoc(OdString filePath); // the current one has it

// Stops the process when there is no current document. Otherwise `pOutDb` is its database; nothing else is touched.
BLOCKCOMMON_API void checkPointerData(OdSmartPtr<OdDbDatabase> pDb, OdSmartPtr<OdDbBlockTable> pTable,
                                      OdSmartPtr<OdDbDatabase>& pOutDb, OdSmartPtr<OdDbSymbolTableIterator>& pOutIter);

// Draws what the drawing's document shows, or the current document where it has none, 480 by 320 pixels large, and
// makes it the drawing's thumbnail: a bitmap of 32 bits a pixel whose rows run from the top, kept when the drawing is
// saved. False, and nothing is stored, for null, without any document and when there is no picture.
BLOCKCOMMON_API bool createDib(OdSmartPtr<OdDbDatabase>& database);

// -- Definitions. --

BLOCKCOMMON_API bool isBlockNameInCurDb(OdString blockName);
// Appends the names of the current drawing's definitions, in order of addition: those of spaces and anonymous blocks
// excepted, and those of external references unless asked for. 5100, or -5001 without a current drawing.
BLOCKCOMMON_API int getCurDocBlockName(bool includeXrefs, OdArray<OdString>& names);
// The name of a definition, or of the one that a reference shows: 5100. -5001 when one of them does not open, -5003
// for anything else; `name` is then left alone.
BLOCKCOMMON_API int getBlockNameByID(OdDbObjectId& objectId, OdString& name);
// False when the id does not open.
BLOCKCOMMON_API bool isExternalReference(const OdDbObjectId& blockId);

// How many references show the block itself: of the working drawing by name, of any by id. 0 for an empty or unknown
// name and when it does not open.
BLOCKCOMMON_API int getBlockReferenceCount(const OdString& blockName);
BLOCKCOMMON_API int getBlockReferenceCount(const OdDbObjectId& blockId);

// -- Attribute definitions. --

// False exactly when the block has some and all of them are invisible.
BLOCKCOMMON_API bool isBlockVisable(const OdString& blockName);
// Whether it has one that is not constant.
BLOCKCOMMON_API bool isCanEditAttributeBlock(OdDbObjectId blockId);

// Whether one of the objects is an attribute definition that is neither preset nor constant, or a block definition with
// something to ask. What does not open and other kinds are passed over.
BLOCKCOMMON_API bool hasAttdef(const OdDbObjectIdArray& ids);

} // namespace commonFun

namespace insertCommon {

// Whether the current layer of the current drawing is locked.
BLOCKCOMMON_API bool isCurLayerLocked();
// The name of the block that is open in the block editor of the current document, empty when none is. Left alone
// without a current document.
BLOCKCOMMON_API void getBeditBlockName(OdString& name);

} // namespace insertCommon

// Queries about the open documents, the current drawing and its definitions.
//
// The current document is determined at every call; without one, nothing is found. No function displays a message. An
// id that does not open gives the stated result; an object of another class throws OdError_NotThatKindOfClass unless
// the function states that it is skipped.
#pragma once

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace commonFun {

// -- Documents. --

// Whether an open document other than the current one (isDoc), or the current one (iscurDoc), has this file name. Names
// are compared as text, case does not matter.
BLOCKCOMMON_API bool isDoc(OdString filePath);
BLOCKCOMMON_API bool iscurDoc(OdString filePath);

// Terminates the process without a current document. Otherwise sets `pOutDb` to its database; the other arguments
// are unchanged.
BLOCKCOMMON_API void checkPointerData(OdSmartPtr<OdDbDatabase> pDb, OdSmartPtr<OdDbBlockTable> pTable,
                                      OdSmartPtr<OdDbDatabase>& pOutDb, OdSmartPtr<OdDbSymbolTableIterator>& pOutIter);

// Draws the space that the document of the drawing displays (the current document if it has none) in 480 by 320 pixels
// and sets it as the thumbnail of the drawing: a bitmap of 32 bits per pixel with rows from the top, which is saved
// with the drawing. False, and nothing is set, for null, without any document and if the image cannot be drawn.
BLOCKCOMMON_API bool createDib(OdSmartPtr<OdDbDatabase>& database);

// -- Definitions. --

// Whether the current drawing has a definition of that name; case does not matter.
BLOCKCOMMON_API bool isBlockNameInCurDb(OdString blockName);
// Appends the names of the definitions of the current drawing in order of addition, without spaces and anonymous
// blocks, and without external references unless requested. Returns 5100, or -5001 without a current drawing.
BLOCKCOMMON_API int getCurDocBlockName(bool includeXrefs, OdArray<OdString>& names);
// Sets `name` to the name of a definition, or of the definition of a reference, and returns 5100. Returns -5001 if one
// of them does not open and -5003 for other objects; `name` is unchanged then.
BLOCKCOMMON_API int getBlockNameByID(OdDbObjectId& objectId, OdString& name);
// Whether the definition is an external reference; false if the id does not open.
BLOCKCOMMON_API bool isExternalReference(const OdDbObjectId& blockId);

// Number of direct references to a block: of the working drawing by name, of any drawing by id. 0 for an empty or
// unknown name and for an id that does not open.
BLOCKCOMMON_API int getBlockReferenceCount(const OdString& blockName);
BLOCKCOMMON_API int getBlockReferenceCount(const OdDbObjectId& blockId);

// -- Attribute definitions. --

// False exactly if the block has attribute definitions and all of them are invisible.
BLOCKCOMMON_API bool isBlockVisable(const OdString& blockName);
// Whether the block has an attribute definition that is not constant.
BLOCKCOMMON_API bool isCanEditAttributeBlock(OdDbObjectId blockId);

// Whether one of the objects is an attribute definition that is neither preset nor constant, or a block definition that
// has one. Other objects and ids that do not open are skipped.
BLOCKCOMMON_API bool hasAttdef(const OdDbObjectIdArray& ids);

} // namespace commonFun

namespace insertCommon {

// Whether the current layer of the current drawing is locked.
BLOCKCOMMON_API bool isCurLayerLocked();
// Sets `name` to the name of the block that is open in the block editor of the current document, empty if none is.
// Unchanged without a current document.
BLOCKCOMMON_API void getBeditBlockName(OdString& name);

} // namespace insertCommon

// Attributes of new block references: made from the definitions of the block, filled with defaults, or asked for on the
// command line.
//
// The i-th attribute definition that is not constant, in the order of the block's contents, belongs to the i-th
// attribute of a reference; tags are not compared. Ids are appended, never cleared. Ids and objects that do not open
// are passed over; an object of another kind than its place calls for throws OdError_NotThatKindOfClass.
#pragma once

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace insertCommon {

// Gives the reference its attributes. With `useDefaults`: what addDefaultAttributeToBlk does, and its answer. Without:
// when the numbers of definitions and attributes differ, an attribute with the default text for every definition, with
// the reference's bare blockTransform() and without a question; when they are equal, the values of all that are
// neither preset nor constant are asked for. False for null, for a reference that does not open for write, and when
// the user cancelled: values that were given before stay. The reference is opened for write when it is not and is
// open for read afterwards, also when an exception passes; layers of attributes are unlocked while they are handled.
BLOCKCOMMON_API bool processAttributesForInsert(OdSmartPtr<OdDbBlockReference> pRef, bool useDefaults);

// Definitions that are not constant, of the block that the reference shows. Nothing for null.
BLOCKCOMMON_API void getAllAttributeDefinesOfBlk(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids);
// All attributes of the reference. Nothing for null.
BLOCKCOMMON_API void getAllAttributesOfBlkRef(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids);

// Whether the block of the reference has attribute definitions; constant ones count.
BLOCKCOMMON_API bool hasAttribute(OdSmartPtr<OdDbBlockReference> pRef);

// Whether an attribute of the reference is on a locked layer; `allLocked` tells whether all are, and is true when there
// are none. False for an id that is no reference's.
BLOCKCOMMON_API bool isAllAttributeInLockLayer(OdDbObjectId refId, bool& allLocked);

// Appends an attribute with its default text for each definition that is not constant, moved so that the origins of the
// block and of the current space lie where they belong. Asks nothing, and does not look for attributes that are there.
// False for null, a reference that is in no drawing, and without a definition or a current space. The reference must be
// open for write: OdError(eNotOpenForWrite).
BLOCKCOMMON_API bool addDefaultAttributeToBlk(OdSmartPtr<OdDbBlockReference> pRef);

// Looks through the fields of those of the reference's attributes that are listed. True when definitions and attributes
// are equal in number.
BLOCKCOMMON_API bool processAttributesFieldsForInsert(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids);

// Leaves the fields of a definition's attributes as they are: the values that were computed last stay.
BLOCKCOMMON_API void updateFiledAttributeDefines(const OdDbObjectId& blockId);

// Whether nothing of the block needs to be asked: each of its attribute definitions is preset or constant. True for
// null.
BLOCKCOMMON_API bool hasPresetAttribute(OdSmartPtr<OdDbBlockTableRecord> pBlock);

// Opens every attribute of the reference for write, and changes nothing.
BLOCKCOMMON_API void setAttriAnnoByBlockRef(OdSmartPtr<OdDbBlockReference> pRef);
// Opens the definition for write, and changes nothing.
BLOCKCOMMON_API void addAnnoToObj(const OdDbObjectId& blockId, bool flag);
// True when the extended data of the definition does NOT say whether references follow the layout's orientation; false
// when it does, and when the definition does not open.
BLOCKCOMMON_API bool isExistAnnoPO(const OdDbObjectId& blockId);

} // namespace insertCommon

namespace blockUtils {

// processAttributesForInsert without defaults for a reference that is upgraded to write when it is not, and downgraded
// again. Nothing for null. Throws OdError(eOnLockedLayer).
BLOCKCOMMON_API void processBlockTbRefAsDefaultAttri(OdDbBlockReference* pRef);

} // namespace blockUtils

namespace commonFun {

// Always false.
BLOCKCOMMON_API bool isAnnotative(OdSmartPtr<OdDbObject> pObject);
BLOCKCOMMON_API bool isAnnotativeObject(const OdDbObjectId& id);

} // namespace commonFun

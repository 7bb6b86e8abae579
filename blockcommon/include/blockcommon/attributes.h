// Attributes of new block references: created from the definitions of the block, with default values or with values
// that are prompted for on the command line.
//
// The i-th attribute definition that is not constant, in the order of the entities of the block, belongs to the i-th
// attribute of a reference; tags are not compared. Ids are appended, never cleared. Ids and objects that do not open
// are skipped; an object of an unexpected class throws OdError_NotThatKindOfClass. Coordinates are those of the block
// that contains the reference. All functions of this library are called on the command thread of the host.
#pragma once

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "OdString.h"
#include "blockcommon/export.h"

namespace insertCommon {

// Creates or fills the attributes of a reference. With `useDefaults`: does what addDefaultAttributeToBlk does and
// returns its result. Without: if the numbers of definitions and attributes differ, appends an attribute with the
// default value for every definition, transformed by blockTransform() of the reference alone, without prompting; if
// they are equal, prompts for the values of all that are neither preset nor constant. Returns false for null, for a
// reference that does not open for write, and if the user cancels: values that were entered before are kept. The
// reference is opened for write if it is not and is open for read afterwards, also after an exception; layers of
// attributes are unlocked meanwhile.
BLOCKCOMMON_API bool processAttributesForInsert(OdSmartPtr<OdDbBlockReference> pRef, bool useDefaults);

// Appends the attribute definitions of the block of the reference that are not constant. No effect for null.
BLOCKCOMMON_API void getAllAttributeDefinesOfBlk(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids);
// Appends all attributes of the reference. No effect for null.
BLOCKCOMMON_API void getAllAttributesOfBlkRef(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids);

// Whether the block of the reference has attribute definitions; constant ones count.
BLOCKCOMMON_API bool hasAttribute(OdSmartPtr<OdDbBlockReference> pRef);

// Whether an attribute of the reference is on a locked layer; `allLocked` receives whether all are, true if there are
// none. False for an id that is not a reference.
BLOCKCOMMON_API bool isAllAttributeInLockLayer(OdDbObjectId refId, bool& allLocked);

// Appends an attribute with its default value for each definition that is not constant, with regard to the base points
// of the block and of the current space. Does not prompt and does not check for existing attributes. Returns false for
// null, a reference that is not in a drawing, and without a definition or a current space. Throws
// OdError(eNotOpenForWrite) unless the reference is open for write.
BLOCKCOMMON_API bool addDefaultAttributeToBlk(OdSmartPtr<OdDbBlockReference> pRef);

// Examines the fields of those attributes of the reference that are listed and changes nothing. True if the numbers of
// definitions and attributes are equal; false for null.
BLOCKCOMMON_API bool processAttributesFieldsForInsert(OdSmartPtr<OdDbBlockReference> pRef, OdDbObjectIdArray& ids);

// Changes nothing: the fields of the attributes of a definition keep the values that were computed last.
BLOCKCOMMON_API void updateFiledAttributeDefines(const OdDbObjectId& blockId);

// Whether no value of the block has to be prompted for: each of its attribute definitions is preset or constant. True
// for null.
BLOCKCOMMON_API bool hasPresetAttribute(OdSmartPtr<OdDbBlockTableRecord> pBlock);

// Opens every attribute of the reference for write, and changes nothing.
BLOCKCOMMON_API void setAttriAnnoByBlockRef(OdSmartPtr<OdDbBlockReference> pRef);
// Opens the definition for write, and changes nothing.
BLOCKCOMMON_API void addAnnoToObj(const OdDbObjectId& blockId, bool flag);
// True if the extended data of the definition does NOT state whether references match the orientation of the layout;
// false if it does, and if the definition does not open.
BLOCKCOMMON_API bool isExistAnnoPO(const OdDbObjectId& blockId);

} // namespace insertCommon

namespace blockUtils {

// Calls processAttributesForInsert without defaults for a reference, which is upgraded to write if it is not, and
// downgraded again. No effect for null. Throws OdError(eOnLockedLayer).
BLOCKCOMMON_API void processBlockTbRefAsDefaultAttri(OdDbBlockReference* pRef);

} // namespace blockUtils

namespace commonFun {

// Always false.
BLOCKCOMMON_API bool isAnnotative(OdSmartPtr<OdDbObject> pObject);
BLOCKCOMMON_API bool isAnnotativeObject(const OdDbObjectId& id);

} // namespace commonFun

// Whether an object is annotative: keeps its size on paper at every annotation scale. A protocol extension:
// queryX(OdDbAnnotativeObjectPE::desc()) of an object returns it, null if its kind cannot be annotative.
#pragma once

#include "DbObject.h"

// The extension. It has no state and serves all objects of its kinds.
class MVDRAWING_API OdDbAnnotativeObjectPE : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbAnnotativeObjectPE);

  // Whether the object is annotative; false for null. A block reference is if its definition is.
  virtual bool annotative(OdDbObject* object) const = 0;
  // Sets the property. Removing it also removes the representations at other scales. Returns eNullObjectPtr for null,
  // eNotApplicable for removing it from a reference whose definition is annotative, else eOk. Throws
  // OdError(eNotOpenForWrite) for a resident object that is not open for write.
  virtual OdResult setAnnotative(OdDbObject* object, bool annotative) = 0;
};
using OdDbAnnotativeObjectPEPtr = OdSmartPtr<OdDbAnnotativeObjectPE>;

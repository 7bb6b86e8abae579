// Whether an object keeps its size on paper at every annotation scale. A protocol extension: ask an object by
// queryX(OdDbAnnotativeObjectPE::desc()); null means that its kind cannot be annotative.
#pragma once

#include "DbObject.h"

class MVDRAWING_API OdDbAnnotativeObjectPE : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbAnnotativeObjectPE);

  // A block reference is annotative when its definition is.
  virtual bool annotative(OdDbObject* object) const = 0;
  // Throws OdError(eNotOpenForWrite) when the object is open for read. Taking the property away also takes the
  // object's representations at other scales. eNotApplicable for a reference whose definition is annotative.
  virtual OdResult setAnnotative(OdDbObject* object, bool annotative) = 0;
};
using OdDbAnnotativeObjectPEPtr = OdSmartPtr<OdDbAnnotativeObjectPE>;

// Whether an annotative object is rotated to match the orientation of the layout that displays it. A protocol
// extension: queryX(OdDbPaperOrientationPE::desc()) of an object returns it, null if its kind does not have the
// property.
#pragma once

#include "DbObject.h"

// The extension. It has no state and serves all objects of its kinds.
class MVDRAWING_API OdDbPaperOrientationPE : public OdRxObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbPaperOrientationPE);

  // Whether the object matches the orientation; false for null.
  virtual bool paperOrientation(OdDbObject* object) const = 0;
  // Sets the property. Returns eNullObjectPtr for null, else eOk. Throws OdError(eNotOpenForWrite) for a resident
  // object that is not open for write.
  virtual OdResult setPaperOrientation(OdDbObject* object, bool matches) = 0;
};
using OdDbPaperOrientationPEPtr = OdSmartPtr<OdDbPaperOrientationPE>;

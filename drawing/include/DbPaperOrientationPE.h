// Whether an annotative object is turned to match the orientation of the layout that shows it. A protocol extension:
// ask an object by queryX(OdDbPaperOrientationPE::desc()); null means that its kind has no such property.
#pragma once

#include "DbObject.h"

class MVDRAWING_API OdDbPaperOrientationPE : public OdRxObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbPaperOrientationPE);

  virtual bool paperOrientation(OdDbObject* object) const = 0;
  // Throws OdError(eNotOpenForWrite) when the object is open for read.
  virtual OdResult setPaperOrientation(OdDbObject* object, bool matches) = 0;
};
using OdDbPaperOrientationPEPtr = OdSmartPtr<OdDbPaperOrientationPE>;

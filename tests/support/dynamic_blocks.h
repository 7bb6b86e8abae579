// The marks that files tell dynamic blocks and their shapes by.
#pragma once

#include "tests/support/drawings.h"

namespace tests {

// Extended data of the application: a reference to an object, or the text when that is null.
void setData(OdDbObjectId id, const OdString& application, int code, OdDbObjectId reference, const OdString& text = {});
void makeDynamic(OdDbObjectId block);
void markShape(OdDbObjectId shape, OdDbObjectId definition);
OdDbObjectId addShape(OdDbObjectId definition); // a new anonymous block

} // namespace tests

// How one attribute is made from its definition.
#pragma once

#include "DbBlockReference.h"

namespace insertCommon {

// Appends an attribute with the definition's default text; `placed` takes block coordinates to the world. The reference
// must be open for write. Answers the attribute's id.
OdDbObjectId appendWithDefault(OdDbBlockReference& reference, const OdDbAttributeDefinition& definition,
                               const OdGeMatrix3d& placed);

} // namespace insertCommon

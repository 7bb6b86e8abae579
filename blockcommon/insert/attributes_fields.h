// Fields behind the texts of attributes.
#pragma once

#include "DbBlockReference.h"

namespace insertCommon {

// Whether the field of the definition's text keeps a value that equals the default from being written. Only for
// references of a drawing, and only when the field itself is gone.
bool isKeptByField(const OdDbBlockReference& reference, const OdDbAttributeDefinition& definition);

} // namespace insertCommon

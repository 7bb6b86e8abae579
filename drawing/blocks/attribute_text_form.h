// The multiline text of attributes in files of versions that store it outside the attribute.
#pragma once

#include "DbAttribute.h"

namespace drawing {

// The first version with the text in the attribute, after its own groups.
inline constexpr OdDb::DwgVersion kTextInAttribute = OdDb::kRelease2018;
// Before, it is in a record with this name in the attribute's extension dictionary, which hard-owns its entries.
inline constexpr const wchar_t* kAttributeTextRecord = L"ACAD_MLATT";

// How an attribute with a text of its own is written before kTextInAttribute. Reading that gives an attribute with the
// same text.
struct AttributeTextBefore2018 {
  GroupList rest;   // of the attribute's section: groups after its fields
  GroupList record; // of the record: all behind its marker and merge style (280 1)
};

} // namespace drawing

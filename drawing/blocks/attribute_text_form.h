// The multiline text of attributes in files of versions that store it outside the attribute.
#pragma once

#include "DbAttribute.h"

#include <optional>

namespace drawing {

// The first version with the text in the attribute, after its own groups.
inline constexpr OdDb::DwgVersion kTextInAttribute = OdDb::kRelease2018;
// Before, it is in a record with this name in the attribute's extension dictionary, which hard-owns its entries.
inline constexpr const wchar_t* kAttributeTextRecord = L"ACAD_MLATT";

struct AttributeTextBefore2018 {
  GroupList rest;   // of the attribute's section: groups after its fields
  GroupList record; // of the record: all behind its marker and merge style (280 1)
};

// How an attribute with a text of its own is written before kTextInAttribute; nothing when it has no such text, or has
// it in a record already. Reading that gives an attribute that answers the same text.
MVDRAWING_API std::optional<AttributeTextBefore2018> attributeTextBefore2018(const OdDbAttributeBase& attribute);

} // namespace drawing

// Attributes of references: how they are named, listed and changed.
#pragma once

#include "console/attributes/attribute_tags.h"

#include "DbBlockReference.h"
#include "OdString.h"

#include <vector>

class OdDbDatabase;

namespace console {

// Attributes with the same tag are distinguished by their ordinal, in their order on the reference.
struct AttributeRow {
  OdDbObjectId reference, attribute;
  OdString block; // of a dynamic block, the name that people know it by
  OdString tag;
  int ordinal = 1;
  OdString value; // lines of a multiline one are separated by \P
  std::vector<const char*> flags;
};

// The attributes of one reference.
class ReferenceAttributes {
public:
  explicit ReferenceAttributes(const OdDbBlockReference& reference);
  const std::vector<AttributeRow>& rows() const { return rows_; }
  std::size_t count(const OdString& tag) const { return tags_.count(tag); }
  // Null when there is none.
  const AttributeRow* find(const OdString& tag, int ordinal) const { return at(tags_.find(tag, ordinal)); }
  const AttributeRow* findEntered(const OdString& entered) const { return at(tags_.findEntered(entered)); }

private:
  const AttributeRow* at(std::optional<std::size_t> index) const;
  std::vector<AttributeRow> rows_;
  TagIndex tags_;
};

// "TAG", or "TAG#2" for the second of that tag.
OdString attributeName(const AttributeRow& row);
OdString effectiveBlockName(const OdDbBlockReference& reference);

// The attributes of all references of the drawing: those of the spaces and of every definition, in the order of the
// block table and of their blocks. External references keep theirs to themselves.
std::vector<AttributeRow> attributesOf(const OdDbDatabase& database);

enum class ValueChange { kSet, kSetWithoutField, kSame, kLocked, kConstant, kLines };
// Gives it the value unless it, or its reference, is on a locked layer, it is constant, or it has one line and the
// value has several. A field that computed the value goes. Line breaks become \P in a multiline one.
ValueChange changeValue(OdDbObjectId attribute, OdString value);

} // namespace console

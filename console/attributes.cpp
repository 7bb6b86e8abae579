#include "console/attributes.h"

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDynBlockReference.h"
#include "DbField.h"
#include "morvane/drawing_tools.h"

#include <charconv>
#include <optional>

namespace console {
namespace {

std::vector<const char*> flagsOf(const OdDbAttribute& attribute) {
  std::vector<const char*> flags;
  const std::pair<bool, const char*> all[] = {{attribute.isInvisible(), "invisible"},
                                              {attribute.isConstant(), "constant"},
                                              {attribute.isPreset(), "preset"},
                                              {attribute.isVerifiable(), "verify"},
                                              {attribute.isMTextAttribute(), "multi-line"}};
  for (const auto& [set, name] : all) {
    if (set)
      flags.push_back(name);
  }
  return flags;
}

// The number behind the last '#'; nothing when there is none.
std::optional<int> ordinalOf(const OdString& typed, int sharp) {
  const std::string digits = typed.mid(sharp + 1).toUtf8();
  int ordinal = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), ordinal);
  const bool whole = error == std::errc() && end == digits.data() + digits.size();
  return whole ? std::optional(ordinal) : std::nullopt;
}

} // namespace

std::wstring foldedTag(const OdString& tag) {
  OdString capitals = tag;
  for (int i = 0; i < capitals.getLength(); ++i)
    capitals.setAt(i, odFoldCase(capitals.getAt(i)));
  return capitals.str();
}

OdString shownBlockName(const OdDbBlockReference& reference) {
  const OdDbObjectId dynamic = OdDbDynBlockReference(&reference).dynamicBlockTableRecord();
  const OdDbObjectId block = dynamic.isNull() ? reference.blockTableRecord() : dynamic;
  const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::cast(block.safeOpenObject());
  return record.isNull() ? OdString() : record->getName();
}

OdString attributeName(const AttributeRow& row) {
  return row.ordinal == 1 ? row.tag : row.tag + L"#" + OdString(std::to_wstring(row.ordinal));
}

ReferenceAttributes::ReferenceAttributes(const OdDbBlockReference& reference) {
  OdString block;
  for (auto it = reference.attributeIterator(); !it->done(); it->step()) {
    const OdDbAttributePtr attribute = it->entity();
    if (attribute.isNull())
      continue;
    if (rows_.empty())
      block = shownBlockName(reference);
    std::vector<std::size_t>& places = places_[foldedTag(attribute->tag())];
    places.push_back(rows_.size());
    rows_.push_back({reference.objectId(), attribute->objectId(), block, attribute->tag(),
                     static_cast<int>(places.size()), attribute->textString(), flagsOf(*attribute)});
  }
}

std::size_t ReferenceAttributes::count(const OdString& tag) const {
  const auto found = places_.find(foldedTag(tag));
  return found == places_.end() ? 0 : found->second.size();
}

const AttributeRow* ReferenceAttributes::find(const OdString& tag, int ordinal) const {
  const auto found = places_.find(foldedTag(tag));
  if (found == places_.end() || ordinal < 1 || static_cast<std::size_t>(ordinal) > found->second.size())
    return nullptr;
  return &rows_[found->second[static_cast<std::size_t>(ordinal) - 1]];
}

const AttributeRow* ReferenceAttributes::findTyped(const OdString& typed) const {
  if (const AttributeRow* whole = find(typed, 1); whole != nullptr)
    return whole;
  const int sharp = typed.reverseFind(L'#');
  const std::optional<int> ordinal = sharp < 0 ? std::nullopt : ordinalOf(typed, sharp);
  if (!ordinal)
    return nullptr;
  if (sharp > 0)
    return find(typed.left(sharp), *ordinal);
  const bool there = *ordinal >= 1 && static_cast<std::size_t>(*ordinal) <= rows_.size();
  return there ? &rows_[static_cast<std::size_t>(*ordinal) - 1] : nullptr;
}

std::vector<AttributeRow> attributesOf(const OdDbDatabase& database) {
  std::vector<AttributeRow> rows;
  const OdDbSymbolTablePtr table = database.getBlockTableId().safeOpenObject();
  for (auto walk = table->newIterator(); !walk->done(); walk->step()) {
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(walk->getRecord());
    if (block.isNull() || block->isFromExternalReference())
      continue;
    for (auto it = block->newIterator(); !it->done(); it->step()) {
      const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(it->entity());
      if (reference.isNull() || !reference->hasAttributes())
        continue;
      const ReferenceAttributes attributes(*reference);
      rows.insert(rows.end(), attributes.rows().begin(), attributes.rows().end());
    }
  }
  return rows;
}

ValueChange changeValue(OdDbObjectId id, OdString value) {
  const OdDbAttributePtr attribute = id.safeOpenObject();
  if (qzutads::isObjLocked(id, true) || qzutads::isObjLocked(attribute->ownerId(), true))
    return ValueChange::Locked;
  if (attribute->isConstant())
    return ValueChange::Constant;
  if (attribute->isMTextAttribute()) {
    value.replace(L"\r\n", L"\n");
    value.replace(L"\n", L"\\P");
  } else if (value.findOneOf(L"\r\n") >= 0) {
    return ValueChange::Lines;
  }
  if (attribute->textString().str() == value.str())
    return ValueChange::Same;
  const OdDbAttributePtr writing = id.safeOpenObject(OdDb::kForWrite);
  writing->setTextString(value);
  return OdDbField::removeField(*writing) == eOk ? ValueChange::SetWithoutField : ValueChange::Set;
}

} // namespace console

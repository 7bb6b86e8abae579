#include "console/attributes/attribute_sync.h"

#include "console/attributes/attributes.h"

#include "DbBlockTable.h"
#include "DbDynBlockReference.h"
#include "blockcommon/attributes.h"
#include "morvane/drawing_tools.h"

#include <optional>

namespace console {
namespace {

// A value on its way between one line and several: what would be read as formatting is escaped, line breaks are blanks.
OdString adapted(const OdString& value, const OdDbMTextPtr& before, bool linesNow) {
  OdString text = value;
  if (before.isNull() && linesNow) {
    for (const wchar_t* character : {L"\\", L"{", L"}"})
      text.replace(character, (OdString(L"\\") + character).c_str());
  } else if (!before.isNull() && !linesNow) {
    text = before->plainText();
    text.replace(L"\n", L" ");
  }
  return text;
}

class Sync {
public:
  Sync(OdDbBlockReference& reference, const OdDbObjectIdArray& definitions, const OdGePoint3d& origin)
      : reference_(reference), definitions_(definitions),
        placed_(reference.blockTransform() * OdGeMatrix3d::translation(OdGePoint3d() - origin)), old_(reference),
        used_(old_.rows().size()) {}

  void run(SyncedAttributes& synced) {
    for (const OdDbObjectId& id : definitions_) {
      const OdDbAttributeDefinitionPtr definition = id.safeOpenObject();
      update(*definition);
    }
    for (std::size_t i = 0; i < used_.size(); ++i) {
      if (used_[i])
        continue;
      const AttributeRow& surplus = old_.rows()[i];
      synced.surplus.push_back({reference_.objectId(), surplus.tag, surplus.value});
      surplus.attribute.safeOpenObject(OdDb::kForWrite)->erase();
    }
  }

private:
  // The first attribute of that tag that no definition has taken yet.
  const AttributeRow* takeOld(const OdDbAttributeDefinition& definition) {
    const AttributeRow* found = old_.find(definition.tag(), taken_[foldedTag(definition.tag())] + 1);
    if (found != nullptr) {
      ++taken_[foldedTag(definition.tag())];
      used_[indexOf(*found)] = true;
    }
    return found;
  }
  std::size_t indexOf(const AttributeRow& row) const { return static_cast<std::size_t>(&row - old_.rows().data()); }

  // Attributes are in the order of their definitions. Those out of order are created again, after the others.
  void update(const OdDbAttributeDefinition& definition) {
    const AttributeRow* old = takeOld(definition);
    if (old == nullptr)
      return append(*OdDbAttribute::createObject(), definition, nullptr);
    const OdDbAttributePtr before = old->attribute.safeOpenObject(OdDb::kForWrite);
    if (indexOf(*old) >= next_ && !appended_) {
      next_ = indexOf(*old) + 1;
      return become(*before, definition, before.get());
    }
    append(*OdDbAttribute::createObject(), definition, before.get());
    before->erase();
  }

  void become(OdDbAttribute& attribute, const OdDbAttributeDefinition& definition, const OdDbAttribute* before) {
    std::optional<OdString> value;
    if (before != nullptr)
      value = adapted(before->textString(), before->getMTextAttribute(), definition.isMTextAttributeDefinition());
    attribute.setAttributeFromBlock(&definition, placed_);
    if (value)
      attribute.setTextString(*value);
  }

  void append(OdDbAttribute& attribute, const OdDbAttributeDefinition& definition, const OdDbAttribute* before) {
    const OdDbAttributePtr keepAlive(&attribute);
    appended_ = true;
    become(attribute, definition, before);
    reference_.appendAttribute(&attribute);
  }

  OdDbBlockReference& reference_;
  const OdDbObjectIdArray& definitions_;
  const OdGeMatrix3d placed_;
  const ReferenceAttributes old_;
  std::vector<bool> used_;
  std::map<std::wstring, int> taken_; // of each tag
  std::size_t next_ = 0;
  bool appended_ = false;
};

bool isLocked(const OdDbBlockReference& reference) {
  bool all = false;
  return qzutads::isObjLocked(reference.objectId(), true) ||
         insertCommon::isAllAttributeInLockLayer(reference.objectId(), all);
}

void syncReferencesOf(OdDbObjectId block, SyncedAttributes& synced) {
  const OdDbBlockTableRecordPtr record = block.safeOpenObject();
  OdDbObjectIdArray definitions;
  for (const OdDbObjectId& id : record->getBlockReferenceIds()) {
    const OdDbBlockReferencePtr reference = id.safeOpenObject();
    if (definitions.isEmpty())
      insertCommon::getAllAttributeDefinesOfBlk(reference, definitions);
    if (isLocked(*reference)) {
      synced.locked.push_back(id);
      continue;
    }
    const OdDbBlockReferencePtr writing = id.safeOpenObject(OdDb::kForWrite);
    Sync(*writing, definitions, record->origin()).run(synced);
    ++synced.references;
  }
}

} // namespace

SyncedAttributes syncAttributes(OdDbObjectId block) {
  SyncedAttributes synced;
  OdDbObjectIdArray blocks;
  blocks.append(block);
  blocks.append(OdDbDynBlockTableRecord(block).getAnonymousBlockIds());
  for (const OdDbObjectId& each : blocks)
    syncReferencesOf(each, synced);
  return synced;
}

} // namespace console

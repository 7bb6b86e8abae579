#include "DbBlockTable.h"

#include "DbDatabase.h"
#include "DbSymbolTable.h"
#include "drawing/model/block_preview.h"
#include "drawing/model/legacy_block_units.h"
#include "drawing/model/object_store.h"
#include "drawing/model/record.h"
#include "drawing/model/setters.h"
#include "drawing/model/visit_references.h"
#include "drawing/model/xref_table.h"

#include <algorithm>

using drawing::XrefStatus;

MVDRAWING_DEFINE_OBJECT(OdDbBlockTable, OdDbSymbolTable, "");
MVDRAWING_DEFINE_OBJECT(OdDbBlockTableRecord, OdDbSymbolTableRecord, "");
MVDRAWING_DEFINE_OBJECT(OdDbBlockBegin, OdDbEntity, "BLOCK");
MVDRAWING_DEFINE_OBJECT(OdDbBlockEnd, OdDbEntity, "ENDBLK");
MVDRAWING_DEFINE_CLASS(OdDbObjectIterator, OdRxObject, "");

const OdString modelSpaceStr(L"*Model_Space");
const OdString paperSpaceStr(L"*Paper_Space");

const drawing::Description& OdDbBlockTable::ownDescription() {
  return OdDbSymbolTable::ownDescription();
}

const drawing::Description& OdDbBlockTableRecord::ownDescription() {
  using drawing::field;
  static const drawing::Description description(
      &OdDbSymbolTableRecord::ownDescription(),
      {{"AcDbBlockTableRecord",
        {field<&OdDbBlockTableRecord::name_>(2), field<&OdDbBlockTableRecord::layout_>(340).ref(OdDb::kSoftPointerRef),
         field<&OdDbBlockTableRecord::units_>(70).relocatedBefore(OdDb::kRelease2007),
         field<&OdDbBlockTableRecord::explodable_>(280).otherwise(1).from(OdDb::kRelease2007),
         field<&OdDbBlockTableRecord::scalesUniformly_>(281).from(OdDb::kRelease2007)},
        [](OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
          return drawing::readPreview(static_cast<OdDbBlockTableRecord&>(object).preview_, group, context);
        },
        [](const OdDbObject& object, drawing::GroupSink& sink) {
          drawing::writePreview(static_cast<const OdDbBlockTableRecord&>(object).preview_, sink);
        }}});
  return description;
}

const drawing::SubclassLayout& OdDbBlockTableRecord::blockHeaderSubclass() {
  using drawing::field;
  static const drawing::SubclassLayout subclass{
      "AcDbBlockBegin",
      {field<&OdDbBlockTableRecord::blockHeaderFlags_>(70), field<&OdDbBlockTableRecord::origin_>(10),
       field<&OdDbBlockTableRecord::blockHeaderName_>(3), field<&OdDbBlockTableRecord::path_>(1),
       field<&OdDbBlockTableRecord::comments_>(4).unlessEmpty(), field<&OdDbBlockTableRecord::unloaded_>(71).unless(0)},
      // The name in the head led to this record.
      [](OdDbObject&, const drawing::RawGroup& group, drawing::LoadContext&) { return group.code == 2; }};
  return subclass;
}

const drawing::Description& OdDbBlockBegin::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(), {{"AcDbBlockBegin", {}}});
  return description;
}

const drawing::Description& OdDbBlockEnd::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(), {{"AcDbBlockEnd", {}}});
  return description;
}

OdDbObjectId OdDbBlockTable::getModelSpaceId() const {
  return getAt(modelSpaceStr);
}
OdDbObjectId OdDbBlockTable::getPaperSpaceId() const {
  return getAt(paperSpaceStr);
}

OdDbEntityPtr OdDbObjectIterator::entity(OdDb::OpenMode mode, bool openErased) const {
  return iterator_.object(mode, openErased);
}

MVDRAWING_SETTER(OdDbBlockTableRecord, setOrigin, const OdGePoint3d&, origin_)
MVDRAWING_SETTER(OdDbBlockTableRecord, setComments, const OdString&, comments_)
MVDRAWING_SETTER(OdDbBlockTableRecord, setPathName, const OdString&, path_)
MVDRAWING_SETTER(OdDbBlockTableRecord, setBlockInsertUnits, OdDb::UnitsValue, units_)
MVDRAWING_SETTER(OdDbBlockTableRecord, setExplodable, bool, explodable_)
MVDRAWING_SETTER(OdDbBlockTableRecord, setLayoutId, OdDbObjectId, layout_)
MVDRAWING_SETTER(OdDbBlockTableRecord, setIsUnloaded, bool, unloaded_)
MVDRAWING_SETTER(OdDbBlockTableRecord, setPreviewIcon, const std::string&, preview_)

void OdDbBlockTableRecord::setXref(const OdString& path, bool overlay) {
  setFlag(kExternalReference, !path.isEmpty());
  setFlag(kOverlay, overlay && !path.isEmpty());
  setPathName(path);
}

XrefStatus OdDbBlockTableRecord::xrefStatus() const {
  if (!isFromExternalReference())
    return XrefStatus::kNotAnXref;
  const auto* entry = database() == nullptr ? nullptr : database()->xrefs().find(objectId());
  return entry == nullptr ? XrefStatus::kNotLoaded : entry->status;
}

OdDbDatabase* OdDbBlockTableRecord::xrefDatabase(bool includeUnresolved) const {
  const auto* entry = database() == nullptr ? nullptr : database()->xrefs().find(objectId());
  if (entry == nullptr || !isFromExternalReference())
    return nullptr;
  return entry->status == XrefStatus::kCycle && includeUnresolved ? entry->back.database() : entry->database.get();
}

void OdDbBlockTableRecord::afterLoad() {
  if (database()->fileInfo().version < OdDb::kRelease2007 && xDataGroups() != nullptr)
    drawing::takeUnits(extrasForLoad().xData, units_);
}

OdResult OdDbBlockTableRecord::setBlockScaling(BlockScaling scaling) {
  assertWriteEnabled();
  scalesUniformly_ = scaling == kUniform;
  return eOk;
}

bool OdDbBlockTableRecord::isLayout() const {
  return !layout_.isNull();
}

bool OdDbBlockTableRecord::isAnonymous() const {
  if (name_.isEmpty() || name_.getAt(0) != L'*' || isLayout())
    return false;
  return name_.left(modelSpaceStr.getLength()).iCompare(modelSpaceStr) != 0 &&
         name_.left(paperSpaceStr.getLength()).iCompare(paperSpaceStr) != 0;
}

void OdDbBlockTableRecord::applyBlockHeader() {
  flags_ = static_cast<std::int16_t>(flags_ | blockHeaderFlags_);
  if (blockHeaderName_ == name_)
    blockHeaderName_.empty();
}

void OdDbBlockTableRecord::setEnds(OdDbObjectId begin, OdDbObjectId end) {
  if (!begin.isNull())
    begin_ = begin;
  if (!end.isNull())
    end_ = end;
}

void OdDbBlockTableRecord::clearCopiedLinks() {
  begin_ = OdDbObjectId();
  end_ = OdDbObjectId();
  layout_ = OdDbObjectId();
}

void OdDbBlockTableRecord::ensureEnds() {
  const auto make = [this](OdDbObjectId& id, OdSmartPtr<OdDbEntity> end) {
    if (drawing::lookup(id) != nullptr)
      return;
    end->setLayer(database()->getLayerZeroId());
    id = database()->addObject(end.get(), objectId());
  };
  make(begin_, OdDbBlockBegin::createObject());
  make(end_, OdDbBlockEnd::createObject());
}

OdDbObjectIteratorPtr OdDbBlockTableRecord::newIterator(bool, bool skipDeleted, bool) const {
  return OdDbObjectIteratorPtr(new OdDbObjectIterator(objectId(), skipDeleted));
}

// One reference may go to and fro between blocks; its notes take no more room than all references do.
void OdDbBlockTableRecord::recordReference(OdDbObjectId reference) {
  constexpr std::size_t kLinearSearchLimit = 64;
  auto& [ids, distinct] = referenceHistory_;
  if (!ids.empty() && ids.back() == reference)
    return;
  ids.push_back(reference);
  if (ids.size() < std::max(kLinearSearchLimit, 2 * distinct))
    return;
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  distinct = ids.size();
}

void OdDbBlockTableRecord::ownedObjects(std::vector<OdDbObjectId>& ids) const {
  OdDbSymbolTableRecord::ownedObjects(ids);
  ids.push_back(begin_);
  ids.insert(ids.end(), members_.ids().begin(), members_.ids().end());
  ids.push_back(end_);
}

MVDRAWING_VISIT_REFERENCES(OdDbBlockTableRecord, OdDbSymbolTableRecord, visitor.visit(begin_, OdDb::kHardOwnershipRef);
                           visitor.visit(end_, OdDb::kHardOwnershipRef);)

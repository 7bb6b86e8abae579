// A copy of a whole drawing.
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "drawing/model/object_store.h"
#include "drawing/model/visit_references.h"

namespace drawing {
namespace {

// An object has the same number in both drawings, so an id of the source differs from that of the copy by the serial.
class ToCopy final : public ReferenceVisitor {
public:
  ToCopy(const Store& source, const Store& copy) : source_(source.serial()), copy_(copy.serial()) {}
  OdDbObjectId operator()(OdDbObjectId id) const {
    return id.serial() == source_ ? OdDbObjectId(copy_, id.number()) : id;
  }
  void visit(OdDbObjectId& id, OdDb::ReferenceType) override { id = (*this)(id); }

private:
  std::uint32_t source_, copy_;
};

std::unique_ptr<OdDbObject> copied(const OdDbObject& object, ToCopy& toCopy) {
  std::unique_ptr<OdDbObject> copy(object.makeCopy());
  copy->setOwnerId(toCopy(object.ownerId()));
  copy->visitReferences(toCopy);
  return copy;
}

// An entry without an object would be saved, as files may have such entries; that of an erased object is not.
void dropErasedEntries(const OdDbDictionary& source, OdDbDictionary& copy) {
  for (const OdDbDictionary::Entry& entry : source.entries()) {
    if (const OdDbObject* object = lookup(entry.id); object != nullptr && object->isErased())
      copy.remove(entry.name);
  }
}

// What a container does not copy with its state.
void copyMembers(OdDbObject& source, OdDbObject& copy, const ToCopy& toCopy) {
  if (const IdList* members = source.memberList(); members != nullptr) {
    for (OdDbObjectId id : members->ids()) {
      if (isAlive(id))
        copy.memberList()->push(toCopy(id));
    }
    copy.membersChanged();
  }
  if (const auto* dictionary = dynamic_cast<const OdDbDictionary*>(&source); dictionary != nullptr)
    dropErasedEntries(*dictionary, static_cast<OdDbDictionary&>(copy));
  if (const auto* block = dynamic_cast<const OdDbBlockTableRecord*>(&source); block != nullptr) {
    for (OdDbObjectId id : block->referenceHistory())
      static_cast<OdDbBlockTableRecord&>(copy).recordReference(toCopy(id));
  }
}

} // namespace
} // namespace drawing

OdDbDatabasePtr OdDbDatabase::clone() const {
  OdDbDatabasePtr copy = createEmpty();
  copy->store_->copyNumbers(*store_);
  drawing::ToCopy toCopy(*store_, *copy->store_);
  for (OdDbObjectId id : allIds()) {
    OdDbObject* object = drawing::lookup(id);
    if (!drawing::isAlive(object))
      continue;
    std::unique_ptr<OdDbObject> made = drawing::copied(*object, toCopy);
    drawing::copyMembers(*object, *made, toCopy);
    copy->store_->replace(toCopy(id), made.release());
  }
  for (int kind = 0; kind < OdDb::kSymbolTableCount; ++kind)
    copy->tables_[kind] = toCopy(tables_[kind]);
  copy->namedObjects_ = toCopy(namedObjects_);
  copy->header_ = toCopy(header_);
  copy->fileInfo_ = fileInfo_;
  copy->opaqueSections_ = opaqueSections_;
  for (drawing::OpaqueSection& section : copy->opaqueSections_)
    drawing::visitGroups(section.groups, toCopy);
  copy->hasOwnThumbnail_ = hasOwnThumbnail_;
  copy->retainsThumbnail_ = retainsThumbnail_;
  return copy;
}

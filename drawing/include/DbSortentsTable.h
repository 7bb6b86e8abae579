// The draw order of a block's contents.
#pragma once

#include "DbObject.h"
#include "drawing/detail/cache.h"

#include <unordered_map>
#include <utility>
#include <vector>

// Gives entities other handles than their own to be sorted by; an entity without an entry sorts by its own handle.
class MVDRAWING_API OdDbSortentsTable : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbSortentsTable);
  OdDbSortentsTable() = default;

  OdDbObjectId blockId() const { return block_; }
  void setBlockId(OdDbObjectId block);
  // Bottom first. Ids that are no entities of the block keep their order by handle.
  void sort(std::vector<OdDbObjectId>& ids) const;
  OdDbHandle sortHandle(OdDbObjectId entity) const;
  void setSortHandle(OdDbObjectId entity, OdDbHandle handle);
  // Moves the entities behind or in front of all others of the block, keeping their order.
  void moveToBottom(const OdDbObjectIdArray& ids);
  void moveToTop(const OdDbObjectIdArray& ids);

  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  struct Entry {
    OdDbObjectId entity;
    OdDbHandle sortHandle;
  };
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  void setOrder(const std::vector<OdDbObjectId>& ids);
  using Places = std::unordered_map<OdDbObjectId, std::size_t>; // the first entry of each entity
  const Places& places() const;

  OdDbObjectId block_;
  std::vector<Entry> entries_;
  mutable drawing::Derived<Places> places_;
};
using OdDbSortentsTablePtr = OdSmartPtr<OdDbSortentsTable>;

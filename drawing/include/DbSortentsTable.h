// The draw order of the entities of a block.
#pragma once

#include "DbObject.h"
#include "drawing/detail/cache.h"

#include <unordered_map>
#include <utility>
#include <vector>

// A draw order table: sort handles of entities; an entity without an entry is sorted by its own handle. It is the entry
// "ACAD_SORTENTS" of the extension dictionary of the block.
class MVDRAWING_API OdDbSortentsTable : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbSortentsTable);
  OdDbSortentsTable() = default;

  // The block whose entities are ordered; setting does not check the id.
  OdDbObjectId blockId() const { return block_; }
  void setBlockId(OdDbObjectId block);
  // Sorts ids by their sort handles, bottom first; equal ones keep their order. Ids need not belong to the block.
  void sort(std::vector<OdDbObjectId>& ids) const;
  // Sort handle of an entity; its own handle if it has no entry.
  OdDbHandle sortHandle(OdDbObjectId entity) const;
  void setSortHandle(OdDbObjectId entity, OdDbHandle handle);
  // Move entities below or above all others of the block, keeping their order. Ids that do not belong to the block are
  // ignored. A table whose block does not exist becomes empty.
  void moveToBottom(const OdDbObjectIdArray& ids);
  void moveToTop(const OdDbObjectIdArray& ids);

  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  struct Entry {
    OdDbObjectId entity;
    OdDbHandle sortHandle;
  };
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  void setOrder(const std::vector<OdDbObjectId>& ids);
  using Positions = std::unordered_map<OdDbObjectId, std::size_t>; // the first entry of each entity
  const Positions& positions() const;

  OdDbObjectId block_;
  std::vector<Entry> entries_;
  mutable drawing::Derived<Positions> positions_;
};
using OdDbSortentsTablePtr = OdSmartPtr<OdDbSortentsTable>;

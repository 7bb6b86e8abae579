// Groups: entities that are picked together.
#pragma once

#include "DbObject.h"

#include <vector>

class MVDRAWING_API OdDbGroup : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbGroup);
  OdDbGroup() = default;
  OdString getName() const; // in its dictionary; empty when it is in none
  const OdString& getDescription() const { return description_; }
  void setDescription(const OdString& value);
  bool isAnonymous() const { return unnamed_; }
  void setAnonymous(bool value);
  bool isSelectable() const { return selectable_; }
  void setSelectable(bool value);

  // Living members in order; an erased one is left out, here and in files, and is back when it comes back.
  std::vector<OdDbObjectId> allEntityIds() const;
  std::size_t numEntities() const { return allEntityIds().size(); }
  bool has(OdDbObjectId entity) const;
  // Adds the entity at the end, once only; the group becomes a persistent reactor of it, which must be open for write.
  void append(OdDbObjectId entity);
  void remove(OdDbObjectId entity);

  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdString description_;
  bool unnamed_ = false;
  bool selectable_ = true;
  std::vector<OdDbObjectId> members_;
};
using OdDbGroupPtr = OdSmartPtr<OdDbGroup>;

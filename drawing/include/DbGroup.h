// Groups: entities that are selected together.
#pragma once

#include "DbObject.h"

#include <vector>

// A group.
class MVDRAWING_API OdDbGroup : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbGroup);
  OdDbGroup() = default;
  // Key of its dictionary entry, empty if it has none; description; whether the name was generated; whether selecting
  // one entity selects all.
  OdString getName() const;
  const OdString& getDescription() const { return description_; }
  void setDescription(const OdString& value);
  bool isAnonymous() const { return unnamed_; }
  void setAnonymous(bool value);
  bool isSelectable() const { return selectable_; }
  void setSelectable(bool value);

  // Entities in order, without erased ones, which are members again if they are unerased.
  std::vector<OdDbObjectId> allEntityIds() const;
  std::size_t numEntities() const { return allEntityIds().size(); }
  bool has(OdDbObjectId entity) const;
  // Adds an entity at the end unless it is a member; the group becomes a persistent reactor of the entity, which must
  // be open for write. Throws OdError(eNullObjectId) for an id without an object.
  void append(OdDbObjectId entity);
  // Removes an entity; the reactor remains. No effect if it is not a member.
  void remove(OdDbObjectId entity);

  // -- SDK internals. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);

  OdString description_;
  bool unnamed_ = false;
  bool selectable_ = true;
  std::vector<OdDbObjectId> members_;
};
using OdDbGroupPtr = OdSmartPtr<OdDbGroup>;

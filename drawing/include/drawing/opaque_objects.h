// Objects and entities of kinds that are not modelled, and those that could not be read.
#pragma once

#include "DbEntity.h"

// All groups of an object are carried and written back as they stood.
class MVDRAWING_API OdDbCarriedObject : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbCarriedObject);
  OdDbCarriedObject() = default;
  std::string dxfName() const override { return dxfName_; }
  void setDxfName(const std::string& name) { dxfName_ = name; }
  bool isUnread() const { return unread_; } // something in it could not be understood
  void setUnread(bool unread) { unread_ = unread; }

private:
  std::string dxfName_;
  bool unread_ = false;
};

// Layer, colour and the like are typed; everything else is carried. It does not transform. An unread one has no typed
// properties: its own groups are kept to the letter.
class MVDRAWING_API OdDbCarriedEntity : public OdDbEntity {
public:
  ODRX_DECLARE_MEMBERS(OdDbCarriedEntity);
  OdDbCarriedEntity() = default;
  OdDbObject* makeCopy() const override;
  void assignState(const OdDbObject& other) override;
  const drawing::Description& description() const override;
  std::string dxfName() const override { return dxfName_; }
  void setDxfName(const std::string& name) { dxfName_ = name; }
  bool isUnread() const { return unread_; }
  void setUnread(bool unread) { unread_ = unread; }

private:
  std::string dxfName_;
  bool unread_ = false;
};

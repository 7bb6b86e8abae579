// Proxies: entities and objects of applications that are not present, as bytes and references. They are preserved byte
// for byte.
#pragma once

#include "DbEntity.h"

// A proxy entity. Accepts only the identity matrix; has no extents.
class MVDRAWING_API OdDbProxyEntity : public OdDbEntity {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbProxyEntity);
  OdDbProxyEntity() = default;
  // Number of its class in the CLASSES section of the file, counted from 500 (group 91), and all groups in file order.
  std::int32_t applicationClassId() const;
  const drawing::GroupList& groups() const { return groups_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;

protected:
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;

private:
  drawing::GroupList groups_; // all groups of the subclass
};
using OdDbProxyEntityPtr = OdSmartPtr<OdDbProxyEntity>;

// A proxy object.
class MVDRAWING_API OdDbProxyObject : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbProxyObject);
  OdDbProxyObject() = default;
  // Number of its class in the CLASSES section of the file, counted from 500 (group 91), and all groups in file order.
  std::int32_t applicationClassId() const;
  const drawing::GroupList& groups() const { return groups_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;

private:
  drawing::GroupList groups_; // all groups of the subclass
};
using OdDbProxyObjectPtr = OdSmartPtr<OdDbProxyObject>;

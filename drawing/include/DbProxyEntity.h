// What programs that are not at hand put into a drawing: bytes that only they understand, and the objects they refer
// to. Everything is kept to the letter.
#pragma once

#include "DbEntity.h"

class MVDRAWING_API OdDbProxyEntity : public OdDbEntity {
public:
  ODDB_DECLARE_MEMBERS(OdDbProxyEntity);
  OdDbProxyEntity() = default;
  // The number of its class among those that the drawing lists, counted from 500.
  std::int32_t applicationClassId() const;
  const drawing::GroupList& groups() const { return groups_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;

protected:
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override; // takes nothing but the unit matrix

private:
  drawing::GroupList groups_; // all of the section
};
using OdDbProxyEntityPtr = OdSmartPtr<OdDbProxyEntity>;

class MVDRAWING_API OdDbProxyObject : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbProxyObject);
  OdDbProxyObject() = default;
  std::int32_t applicationClassId() const;
  const drawing::GroupList& groups() const { return groups_; }
  void visitReferences(drawing::ReferenceVisitor& visitor) override;

private:
  drawing::GroupList groups_; // all of the section
};
using OdDbProxyObjectPtr = OdSmartPtr<OdDbProxyObject>;

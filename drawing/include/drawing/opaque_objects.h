// Objects and entities of kinds that are not modelled, and those that could not be parsed.
#pragma once

#include "DbEntity.h"

// An object whose groups are preserved and written unchanged.
class MVDRAWING_API OdDbOpaqueObject : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbOpaqueObject);
  OdDbOpaqueObject() = default;
  // Its name in the file, and whether something in it could not be parsed. For readers: setting does not require the
  // object to be open for write.
  std::string dxfName() const override { return dxfName_; }
  void setDxfName(const std::string& name) { dxfName_ = name; }
  bool isUnparsed() const { return unparsed_; }
  void setUnparsed(bool unparsed) { unparsed_ = unparsed; }

private:
  std::string dxfName_;
  bool unparsed_ = false;
};

// An entity whose general properties (layer, colour ...) are accessible and whose other groups are preserved. It
// accepts no matrix. One that could not be parsed has no general properties: all its groups are preserved byte for
// byte.
class MVDRAWING_API OdDbOpaqueEntity : public OdDbEntity {
public:
  MVDRAWING_DECLARE_CLASS(OdDbOpaqueEntity);
  OdDbOpaqueEntity() = default;
  OdDbObject* makeCopy() const override;
  void assignState(const OdDbObject& other) override;
  const drawing::Description& description() const override;
  // As for objects.
  std::string dxfName() const override { return dxfName_; }
  void setDxfName(const std::string& name) { dxfName_ = name; }
  bool isUnparsed() const { return unparsed_; }
  void setUnparsed(bool unparsed) { unparsed_ = unparsed; }

private:
  std::string dxfName_;
  bool unparsed_ = false;
};

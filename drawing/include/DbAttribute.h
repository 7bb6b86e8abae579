// Attribute definitions, and the attributes that block references carry.
#pragma once

#include "DbText.h"

class OdDbAttributeDefinition;
class OdDbMText;

// What definitions and attributes share.
class MVDRAWING_API OdDbAttributeBase : public OdDbText {
public:
  ODRX_DECLARE_MEMBERS(OdDbAttributeBase);
  const OdString& tag() const { return tag_; }
  void setTag(const OdString& tag);
  bool isInvisible() const { return (attributeFlags_ & kInvisible) != 0; }
  void setInvisible(bool on) { setAttributeFlag(kInvisible, on); }
  bool isConstant() const { return (attributeFlags_ & kConstant) != 0; }
  bool isVerifiable() const { return (attributeFlags_ & kVerify) != 0; }
  bool isPreset() const { return (attributeFlags_ & kPreset) != 0; }
  std::int16_t fieldLength() const { return fieldLength_; }
  bool lockPositionInBlock() const { return lockPosition_; }
  void setLockPositionInBlock(bool on);

  // Multi-line text of the attribute. Single-line attributes have none.
  bool isMTextAttribute() const;

  static constexpr std::int16_t kInvisible = 1, kConstant = 2, kVerify = 4, kPreset = 8;

protected:
  OdDbAttributeBase() = default;
  void setAttributeFlag(std::int16_t bit, bool on);

  OdString tag_;
  std::int16_t attributeFlags_ = 0;
  std::int16_t fieldLength_ = 0;
  std::int16_t version_ = 0;
  bool lockPosition_ = false;
};

class MVDRAWING_API OdDbAttributeDefinition : public OdDbAttributeBase {
public:
  ODDB_DECLARE_MEMBERS(OdDbAttributeDefinition);
  OdDbAttributeDefinition() = default;
  const OdString& prompt() const { return prompt_; }
  void setPrompt(const OdString& prompt);
  void setConstant(bool on) { setAttributeFlag(kConstant, on); }
  void setVerifiable(bool on) { setAttributeFlag(kVerify, on); }
  void setPreset(bool on) { setAttributeFlag(kPreset, on); }
  void setFieldLength(std::int16_t length);

private:
  OdString prompt_;
};
using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;

class MVDRAWING_API OdDbAttribute : public OdDbAttributeBase {
public:
  ODDB_DECLARE_MEMBERS(OdDbAttribute);
  OdDbAttribute() = default;

  // Copies all properties of the definition with its default text, and moves the attribute from the definition's
  // place in the block to where `blockTransform` puts it.
  void setAttributeFromBlock(const OdDbAttributeDefinition* definition, const OdGeMatrix3d& blockTransform);
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;

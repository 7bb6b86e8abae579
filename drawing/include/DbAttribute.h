// Attribute definitions, and the attributes that block references carry.
#pragma once

#include "DbMText.h"
#include "DbText.h"

#include <optional>

namespace drawing {
struct AttributeTextBefore2018;
}
class OdDbAttributeDefinition;
class OdDbXrecord;

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

  // Of a multi-line attribute, the contents of its text, formatting codes included.
  OdString textString() const override;
  void setTextString(const OdString& text) override;

  // Multi-line text of the attribute. Single-line attributes have none.
  bool isMTextAttribute() const;
  OdDbMTextPtr getMTextAttribute() const; // a free copy; null when there is none
  // Takes a copy, and its contents as the text string; null makes the attribute a single-line one.
  void setMTextAttribute(const OdDbMText* text);

  void visitReferences(drawing::ReferenceVisitor& visitor) override;

  // -- For the SDK's own machinery. --
  std::optional<drawing::AttributeTextBefore2018> textBefore2018() const;
  bool hasTextInRecord() const { return mtextRecord() != nullptr; }
  // Changes between the places of the text. For resident attributes that are open for write.
  void moveTextToRecord();
  void moveTextIntoAttribute();

  static constexpr std::int16_t kInvisible = 1, kConstant = 2, kVerify = 4, kPreset = 8;

protected:
  OdDbAttributeBase() = default;
  // The multi-line text moves along, so matrices that it cannot take are refused.
  OdResult subTransformBy(const OdGeMatrix3d& matrix) override;
  OdResult transformAll(const OdGeMatrix3d& matrix, bool nearest);
  static bool readRest(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeRest(const OdDbObject& object, drawing::GroupSink& sink);
  void setAttributeFlag(std::int16_t bit, bool on);

  OdString tag_;
  std::int16_t attributeFlags_ = 0;
  std::int16_t fieldLength_ = 0;
  std::int16_t version_ = 0;
  bool lockPosition_ = false;
  // What the section holds besides, in file order. Behind a group 101 stands the multi-line text; older files have
  // it in a record of the extension dictionary.
  drawing::GroupList rest_;

private:
  OdDbXrecord* mtextRecord() const;
  virtual std::int16_t mtextFlag() const = 0;
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
  bool isMTextAttributeDefinition() const { return isMTextAttribute(); }
  OdDbMTextPtr getMTextAttributeDefinition() const { return getMTextAttribute(); }
  void setMTextAttributeDefinition(const OdDbMText* text) { setMTextAttribute(text); }

private:
  std::int16_t mtextFlag() const override { return 4; }
  OdString prompt_;
};
using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;

class MVDRAWING_API OdDbAttribute : public OdDbAttributeBase {
public:
  ODDB_DECLARE_MEMBERS(OdDbAttribute);
  OdDbAttribute() = default;

  // Copies all properties of the definition with its default text, and moves the attribute from the definition's
  // place in the block to where `blockTransform` puts it.
  // Where that would change the shape of multi-line text, its letters stay upright on the line they belong on.
  void setAttributeFromBlock(const OdDbAttributeDefinition* definition, const OdGeMatrix3d& blockTransform);

private:
  std::int16_t mtextFlag() const override { return 2; }
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;

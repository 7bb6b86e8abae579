// Attribute definitions, and the attributes of block references.
#pragma once

#include "DbMText.h"
#include "DbText.h"

#include <optional>

namespace drawing {
struct AttributeTextBefore2018;
}
class OdDbAttributeDefinition;
class OdDbXrecord;

// Common base of definitions and attributes. Accepts every invertible matrix, multiline ones only those that keep
// shapes in the plane of their text.
class MVDRAWING_API OdDbAttributeBase : public OdDbText {
public:
  MVDRAWING_DECLARE_CLASS(OdDbAttributeBase);
  // Tag; flags; length of the field in characters (0: not stated); whether the attribute keeps its position in the
  // block. Values are not checked.
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

  // Value, of a definition the default value. For a multiline attribute it is the contents of its text with formatting
  // codes.
  OdString textString() const override;
  void setTextString(const OdString& text) override;

  // Multiline text. getMTextAttribute returns a free copy, null for single-line attributes. setMTextAttribute copies
  // the text and sets its contents as the value; null makes the attribute single-line.
  bool isMTextAttribute() const;
  OdDbMTextPtr getMTextAttribute() const;
  void setMTextAttribute(const OdDbMText* text);

  // -- SDK internals. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  // Multiline text in the form of files before 2018, which store it in an xrecord of the extension dictionary, and the
  // move between that and the attribute. For resident attributes that are open for write.
  std::optional<drawing::AttributeTextBefore2018> textBefore2018() const;
  bool hasTextInRecord() const { return mtextRecord() != nullptr; }
  void moveTextToRecord();
  void moveTextIntoAttribute();

  // Bits of the flags (group 70).
  static constexpr std::int16_t kInvisible = 1, kConstant = 2, kVerify = 4, kPreset = 8;

protected:
  OdDbAttributeBase() = default;
  OdResult applyTransform(const OdGeMatrix3d& matrix) override;
  // Transforms the text and its multiline text. `nearest`: a matrix that multiline text does not accept is replaced by
  // the nearest one that keeps its characters upright.
  OdResult transformAll(const OdGeMatrix3d& matrix, bool nearest);
  // Groups that no member describes.
  static bool readRest(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeRest(const OdDbObject& object, drawing::GroupSink& sink);
  void setAttributeFlag(std::int16_t bit, bool on); // one of the bits above

  OdString tag_;
  std::int16_t attributeFlags_ = 0;
  std::int16_t fieldLength_ = 0;
  std::int16_t version_ = 0;
  bool lockPosition_ = false;
  // All other groups of the subclass in file order. The multiline text follows a group 101; files before 2018 store it
  // in an xrecord of the extension dictionary.
  drawing::GroupList rest_;

private:
  OdDbXrecord* mtextRecord() const;
  virtual std::int16_t mtextFlag() const = 0;
};

// An attribute definition in a block. Its position is in block coordinates.
class MVDRAWING_API OdDbAttributeDefinition : public OdDbAttributeBase {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbAttributeDefinition);
  OdDbAttributeDefinition() = default;
  // Prompt for the value, and further properties; the functions for multiline text are those of the base.
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

// An attribute of a block reference. Its position is in the coordinates of the block that contains the reference.
class MVDRAWING_API OdDbAttribute : public OdDbAttributeBase {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbAttribute);
  OdDbAttribute() = default;

  // Copies all properties of the definition with its default value, and transforms the attribute by `blockTransform`
  // from block coordinates to those of the reference's block. Where that would change the shape of multiline text, its
  // characters stay upright on their line. Throws OdError(eNullObjectPtr) for a null definition. The definition should
  // be of the same drawing.
  void setAttributeFromBlock(const OdDbAttributeDefinition* definition, const OdGeMatrix3d& blockTransform);

private:
  std::int16_t mtextFlag() const override { return 2; }
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;

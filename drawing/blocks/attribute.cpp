#include "DbAttribute.h"
#include "drawing/model/setters.h"

using drawing::field;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbAttributeBase, OdDbText);
MVDRAWING_DEFINE_OBJECT(OdDbAttributeDefinition, OdDbAttributeBase, "ATTDEF");
MVDRAWING_DEFINE_OBJECT(OdDbAttribute, OdDbAttributeBase, "ATTRIB");

// Group 280 occurs twice in these subclasses: first the version, after the others the locked position. Groups are in
// the order of the fields, which distinguishes the two.
const drawing::Description& OdDbAttributeDefinition::ownDescription() {
  using Self = OdDbAttributeDefinition;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {textSubclass(),
       {"AcDbAttributeDefinition",
        {field<&Self::version_>(280).from(OdDb::kRelease2010), field<&Self::prompt_>(3), field<&Self::tag_>(2),
         field<&Self::attributeFlags_>(70), field<&Self::fieldLength_>(73).unless(0),
         field<&Self::vertical_>(74).unless(0), field<&Self::lockPosition_>(280).from(OdDb::kRelease2007)},
        readRest,
        writeRest}});
  return description;
}

const drawing::Description& OdDbAttribute::ownDescription() {
  using Self = OdDbAttribute;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {textSubclass(),
       {"AcDbAttribute",
        {field<&Self::version_>(280).from(OdDb::kRelease2010), field<&Self::tag_>(2), field<&Self::attributeFlags_>(70),
         field<&Self::fieldLength_>(73).unless(0), field<&Self::vertical_>(74).unless(0),
         field<&Self::lockPosition_>(280).from(OdDb::kRelease2007)},
        readRest,
        writeRest}});
  return description;
}

MVDRAWING_SETTER(OdDbAttributeBase, setTag, const OdString&, tag_)

void OdDbAttributeBase::setAttributeFlag(std::int16_t bit, bool on) {
  assertWriteEnabled();
  attributeFlags_ = static_cast<std::int16_t>(on ? attributeFlags_ | bit : attributeFlags_ & ~bit);
}

MVDRAWING_SETTER(OdDbAttributeBase, setLockPositionInBlock, bool, lockPosition_)
MVDRAWING_SETTER(OdDbAttributeDefinition, setPrompt, const OdString&, prompt_)
MVDRAWING_SETTER(OdDbAttributeDefinition, setFieldLength, std::int16_t, fieldLength_)

void OdDbAttribute::setAttributeFromBlock(const OdDbAttributeDefinition* definition,
                                          const OdGeMatrix3d& blockTransform) {
  if (definition == nullptr)
    throw OdError(eNullObjectPtr);
  setPropertiesFrom(*definition);
  setTextFrom(*definition);
  tag_ = definition->tag();
  attributeFlags_ = 0;
  setAttributeFlag(kInvisible, definition->isInvisible());
  setAttributeFlag(kConstant, definition->isConstant());
  setAttributeFlag(kVerify, definition->isVerifiable());
  setAttributeFlag(kPreset, definition->isPreset());
  fieldLength_ = definition->fieldLength();
  lockPosition_ = definition->lockPositionInBlock();
  const OdDbMTextPtr text = definition->getMTextAttribute();
  if (!text.isNull() || isMTextAttribute())
    setMTextAttribute(text.get());
  transformAll(blockTransform, true);
}

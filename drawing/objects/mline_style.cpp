#include "DbStyles.h"
#include "DbSymbolRecords.h"
#include "drawing/model/load_context.h"
#include "drawing/model/setters.h"
#include "drawing/model/symbol_name.h"
#include "drawing/model/visit_references.h"
#include "drawing/records/group_readers.h"

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbMlineStyle, OdDbObject, "MLINESTYLE");

const drawing::Description& OdDbMlineStyle::ownDescription() {
  using Self = OdDbMlineStyle;
  static const drawing::Description description(
      &OdDbObject::ownDescription(),
      {{"AcDbMlineStyle",
        {field<&Self::name_>(2), field<&Self::flags_>(70), field<&Self::description_>(3), field<&Self::fillColor_>(62),
         field<&Self::startAngle_>(51).angle(), field<&Self::endAngle_>(52).angle()},
        readGroup,
        writeGroups}});
  return description;
}

// Colours that stand behind an offset are the stroke's.
bool OdDbMlineStyle::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& style = static_cast<OdDbMlineStyle&>(object);
  auto& elements = style.elements_;
  if (group.code == 71)
    return true; // the count
  if (group.code == 49) {
    elements.emplace_back();
    return drawing::takeReal(elements.back().offset, group, context);
  }
  if (group.code == 420)
    return drawing::takeInteger(elements.empty() ? style.fillTrueColor_ : elements.back().color.trueColor, group,
                                context);
  if (elements.empty())
    return false;
  if (group.code == 62)
    return drawing::takeInteger(elements.back().color.index, group, context);
  if (group.code == 6)
    elements.back().linetype = context.symbol(OdDb::kLinetypeTable, group);
  return group.code == 6;
}

void OdDbMlineStyle::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& style = static_cast<const OdDbMlineStyle&>(object);
  if (style.fillTrueColor_ != OdCmColor::kNoTrueColor)
    sink.integer(420, style.fillTrueColor_);
  sink.integer(71, static_cast<std::int64_t>(style.elements_.size()));
  for (const Element& element : style.elements_) {
    sink.real(49, element.offset);
    sink.integer(62, element.color.index);
    if (element.color.trueColor != OdCmColor::kNoTrueColor)
      sink.integer(420, element.color.trueColor);
    sink.text(6, element.linetype.isNull() ? OdString(L"BYLAYER") : drawing::symbolName(element.linetype));
  }
}

MVDRAWING_SETTER(OdDbMlineStyle, setDescription, const OdString&, description_)

MVDRAWING_VISIT_REFERENCES(OdDbMlineStyle, OdDbObject,
                           drawing::visitIds(elements_, OdDb::kHardPointerRef, visitor, &Element::linetype);)

#include "DbText.h"

#include "DbSymbolRecords.h"
#include "Ge/GeUtil.h"
#include "drawing/entities/text/text_frame.h"

#include "drawing/model/setters.h"
#include <cmath>

MVDRAWING_DEFINE_OBJECT(OdDbText, OdDbEntity, "TEXT");

const drawing::SubclassLayout& OdDbText::textSubclass() {
  using Self = OdDbText;
  using drawing::field;
  static const drawing::SubclassLayout subclass{
      "AcDbText",
      {field<&Self::thickness_>(39).unless(0), field<&Self::position_>(10), field<&Self::height_>(40),
       field<&Self::text_>(1), field<&Self::rotation_>(50).angle().unless(0), field<&Self::widthFactor_>(41).unless(1),
       field<&Self::oblique_>(51).angle().unless(0), field<&Self::style_>(7).name(OdDb::kTextStyleTable).unlessEmpty(),
       field<&Self::mirrored_>(71).unless(0), field<&Self::horizontal_>(72).unless(0),
       field<&Self::alignment_>(11).unless(0, 0, 0), field<&Self::normal_>(210).unless(0, 0, 1)},
      nullptr,
      // An aligned text at the origin has its second point as well.
      [](const OdDbObject& object, drawing::GroupSink& sink) {
        const auto& text = static_cast<const Self&>(object);
        if (text.alignment_ == OdGePoint3d() && (text.horizontal_ != kLeft || text.vertical_ != kBase))
          sink.point(11, text.alignment_);
      }};
  return subclass;
}

const drawing::Description& OdDbText::ownDescription() {
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {textSubclass(), {"AcDbText", {drawing::field<&OdDbText::vertical_>(73).unless(0)}}});
  return description;
}

OdGePoint3d OdDbText::position() const {
  return ocsToWcs(position_, normal_);
}
OdGePoint3d OdDbText::alignmentPoint() const {
  return ocsToWcs(alignment_, normal_);
}

void OdDbText::setPosition(const OdGePoint3d& point) {
  assertWriteEnabled();
  position_ = wcsToOcs(point, normal_);
}

void OdDbText::setAlignmentPoint(const OdGePoint3d& point) {
  assertWriteEnabled();
  alignment_ = wcsToOcs(point, normal_);
}

MVDRAWING_SETTER(OdDbText, setNormal, const OdGeVector3d&, normal_)
MVDRAWING_SETTER(OdDbText, setTextString, const OdString&, text_)
MVDRAWING_SETTER(OdDbText, setRotation, double, rotation_)
MVDRAWING_SETTER(OdDbText, setWidthFactor, double, widthFactor_)
MVDRAWING_SETTER(OdDbText, setOblique, double, oblique_)
MVDRAWING_SETTER(OdDbText, setThickness, double, thickness_)
MVDRAWING_SETTER(OdDbText, setTextStyle, OdDbObjectId, style_)
MVDRAWING_SETTER(OdDbText, setHorizontalMode, HorizontalMode, horizontal_)
MVDRAWING_SETTER(OdDbText, setVerticalMode, VerticalMode, vertical_)

OdResult OdDbText::setHeight(double height) {
  if (!(height >= 0) || !std::isfinite(height))
    return eInvalidInput;
  assertWriteEnabled();
  height_ = height;
  return eOk;
}

void OdDbText::setTextFrom(const OdDbText& other) {
  assertWriteEnabled();
  text_ = other.text_;
  position_ = other.position_;
  alignment_ = other.alignment_;
  normal_ = other.normal_;
  style_ = other.style_;
  height_ = other.height_;
  rotation_ = other.rotation_;
  widthFactor_ = other.widthFactor_;
  oblique_ = other.oblique_;
  thickness_ = other.thickness_;
  mirrored_ = other.mirrored_;
  horizontal_ = other.horizontal_;
  vertical_ = other.vertical_;
}

OdResult OdDbText::applyTransform(const OdGeMatrix3d& matrix) {
  drawing::TextFrame frame{rotation_, height_, widthFactor_, oblique_, normal_};
  if (!frame.transform(matrix))
    return eCannotTransform;
  const OdGePoint3d position = matrix * this->position();
  const OdGePoint3d alignment = matrix * alignmentPoint();
  if (const double along = (matrix * normal_).dotProduct(frame.normal); std::fabs(along - 1) > 1e-14)
    thickness_ *= along;
  rotation_ = frame.rotation;
  height_ = frame.height;
  widthFactor_ = frame.widthFactor;
  oblique_ = frame.oblique;
  normal_ = frame.normal;
  position_ = wcsToOcs(position, normal_);
  // Left-aligned text on its base line keeps no second point; the value is unused and stays 0.
  const bool unused = horizontal_ == kLeft && vertical_ == kBase && alignment_ == OdGePoint3d();
  if (!unused)
    alignment_ = wcsToOcs(alignment, normal_);
  return eOk;
}

OdResult OdDbText::getGeomExtents(OdGeExtents3d& extents) const {
  // Without font metrics a character is taken as wide as 0.9 of its height.
  const double width = 0.9 * height_ * std::fabs(widthFactor_) * text_.getLength();
  const bool placed = horizontal_ == kLeft && vertical_ == kBase;
  const double shareX[] = {0, 0.5, 1, 0, 0.5, 0};
  const double shareY[] = {0, 0, 0.5, 1};
  const OdGePoint3d base = placed || horizontal_ == kAligned || horizontal_ == kFit ? position_ : alignment_;
  const double left = horizontal_ >= 0 && horizontal_ < 6 ? -width * shareX[horizontal_] : 0;
  const double bottom = vertical_ >= 0 && vertical_ < 4 ? -height_ * shareY[vertical_] : 0;
  const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(normal_);
  for (const double x : {left, left + width}) {
    for (const double y : {bottom, bottom + height_}) {
      const double c = std::cos(rotation_), s = std::sin(rotation_), slanted = x + y * std::tan(oblique_);
      extents.addPoint(toWorld * OdGePoint3d(base.x + slanted * c - y * s, base.y + slanted * s + y * c, base.z));
    }
  }
  return eOk;
}

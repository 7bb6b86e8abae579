#include "DbMText.h"

#include "Ge/GeUtil.h"
#include "drawing/entities/text/mtext_frame.h"
#include "drawing/model/load_context.h"
#include "drawing/model/object_store.h"
#include "drawing/model/setters.h"
#include "drawing/model/visit_references.h"
#include "drawing/records/group_readers.h"

#include <algorithm>
#include <cmath>

using drawing::field;

MVDRAWING_DEFINE_OBJECT(OdDbMText, OdDbEntity, "MTEXT");

const drawing::SubclassLayout& OdDbMText::textSubclass() {
  using Self = OdDbMText;
  static const drawing::SubclassLayout subclass{
      "AcDbMText",
      {field<&Self::location_>(10), field<&Self::height_>(40), field<&Self::width_>(41),
       field<&Self::definedHeight_>(46).unless(0).from(OdDb::kRelease2007), field<&Self::attachment_>(71),
       field<&Self::flowDirection_>(72), field<&Self::style_>(7).name(OdDb::kTextStyleTable).unlessEmpty(),
       field<&Self::normal_>(210).unless(0, 0, 1), field<&Self::direction_>(11),
       field<&Self::actualWidth_>(42).unless(0), field<&Self::actualHeight_>(43).unless(0),
       field<&Self::lineSpacingStyle_>(73), field<&Self::lineSpacing_>(44)},
      readGroup,
      writeGroups};
  return subclass;
}

const drawing::Description& OdDbMText::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(), {textSubclass()});
  return description;
}

namespace {

// Files mean degrees; some programs wrote radians. Quarter turns in radians are recognised: text with exactly so few
// degrees is not plausible.
OdGePoint2d unitVectorOf(double angle) {
  constexpr OdGePoint2d kQuarters[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  const double quarters = std::round(angle / (kPi / 2));
  if (quarters >= 1 && quarters <= 4 && std::fabs(angle - quarters * (kPi / 2)) < 1e-12)
    return kQuarters[static_cast<int>(quarters) % 4];
  return {std::cos(toRadians(angle)), std::sin(toRadians(angle))};
}

} // namespace

bool OdDbMText::readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context) {
  auto& text = static_cast<OdDbMText&>(object);
  text.afterEmbedded_ = text.afterEmbedded_ || group.code == 101;
  text.afterColumns_ = text.afterColumns_ || group.code == 75;
  if (!text.afterEmbedded_ && (group.code == 1 || group.code == 3)) {
    text.contents_ += context.text(group);
    return true;
  }
  if (group.code == 50 && !text.afterEmbedded_ && !text.afterColumns_) {
    // An angle stands for the direction where there is none.
    double angle = 0;
    const OdGeVector3d none(1, 0, 0);
    if (context.real(group, angle) && text.direction_.isEqualTo(none, OdGeTol(0))) {
      const OdGePoint2d unit = unitVectorOf(angle);
      text.direction_ = OdGeMatrix3d::planeToWorld(text.normal_) * OdGeVector3d(unit.x, unit.y, 0);
    }
    return true;
  }
  context.append(text.rest_, group);
  return true;
}

void OdDbMText::writeContents(const OdString& contents, drawing::GroupSink& sink) {
  constexpr int kChunk = 250; // characters that fit in one group
  int at = 0;
  for (; contents.getLength() - at > kChunk; at += kChunk)
    sink.text(3, contents.mid(at, kChunk));
  sink.text(1, contents.mid(at));
}

void OdDbMText::writeGroups(const OdDbObject& object, drawing::GroupSink& sink) {
  const auto& text = static_cast<const OdDbMText&>(object);
  writeContents(text.contents_, sink);
  text.rest_.writeTo(sink);
}

MVDRAWING_VISIT_REFERENCES(OdDbMText, OdDbEntity, drawing::visitGroups(rest_, visitor);)

MVDRAWING_SETTER(OdDbMText, setContents, const OdString&, contents_)
MVDRAWING_SETTER(OdDbMText, setLocation, const OdGePoint3d&, location_)
MVDRAWING_SETTER(OdDbMText, setNormal, const OdGeVector3d&, normal_)
MVDRAWING_SETTER(OdDbMText, setDirection, const OdGeVector3d&, direction_)
MVDRAWING_SETTER(OdDbMText, setTextHeight, double, height_)
MVDRAWING_SETTER(OdDbMText, setWidth, double, width_)
MVDRAWING_SETTER(OdDbMText, setAttachment, AttachmentPoint, attachment_)
MVDRAWING_SETTER(OdDbMText, setTextStyle, OdDbObjectId, style_)
MVDRAWING_SETTER(OdDbMText, setLineSpacingFactor, double, lineSpacing_)

double OdDbMText::rotation() const {
  const OdGeVector3d inPlane = OdGeMatrix3d::worldToPlane(normal_) * direction_;
  return normalizeAngle(std::atan2(inPlane.y, inPlane.x));
}

void OdDbMText::setRotation(double angleRad) {
  assertWriteEnabled();
  direction_ = OdGeMatrix3d::planeToWorld(normal_) * OdGeVector3d(std::cos(angleRad), std::sin(angleRad), 0);
}

OdResult OdDbMText::applyTransform(const OdGeMatrix3d& matrix) {
  drawing::MTextFrame frame{location_, direction_, normal_};
  if (!frame.transform(matrix))
    return eCannotTransform;
  location_ = frame.location;
  direction_ = frame.direction;
  normal_ = frame.normal;
  for (double* length : {&height_, &width_, &definedHeight_, &actualWidth_, &actualHeight_})
    *length *= frame.alongScale;
  drawing::scaleColumns(rest_, matrix, frame.alongScale);
  return eOk;
}

OdResult OdDbMText::getGeomExtents(OdGeExtents3d& extents) const {
  const OdString contents = plainText();
  int lines = 1, longest = 0, length = 0;
  for (const wchar_t ch : contents.str()) {
    lines += ch == L'\n' ? 1 : 0;
    length = ch == L'\n' ? 0 : length + 1;
    longest = std::max(longest, length);
  }
  // A character is taken as wide as 0.9 of its height, and lines stand 5/3 of it apart.
  const double width = actualWidth_ > 0 ? actualWidth_ : std::max(width_, width_ > 0 ? 0 : 0.9 * height_ * longest);
  const double height = actualHeight_ > 0 ? actualHeight_ : height_ * (1 + (lines - 1) * lineSpacing_ * 5 / 3);
  const int corner = attachment_ >= kTopLeft && attachment_ <= kBottomRight ? attachment_ - 1 : 0;
  const int column = corner % 3, row = corner / 3;
  const double left = -width * column / 2, top = height * row / 2;
  const OdGeVector3d x = direction_.normal(), y = normal_.crossProduct(x);
  for (const double dx : {left, left + width}) {
    for (const double dy : {top, top - height})
      extents.addPoint(location_ + x * dx + y * dy);
  }
  return eOk;
}

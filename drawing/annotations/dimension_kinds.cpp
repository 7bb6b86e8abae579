#include "DbDimension.h"
#include "Ge/GeUtil.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/setters.h"

using drawing::field;
using drawing::PlaneMap;

MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbLinearDimension, OdDbDimension);
MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbAngularDimension, OdDbDimension);
MVDRAWING_DEFINE_ABSTRACT_CLASS(OdDbRoundDimension, OdDbDimension);
MVDRAWING_DEFINE_OBJECT(OdDbAlignedDimension, OdDbLinearDimension, "DIMENSION");
MVDRAWING_DEFINE_OBJECT(OdDbRotatedDimension, OdDbLinearDimension, "DIMENSION");
MVDRAWING_DEFINE_OBJECT(OdDb2LineAngularDimension, OdDbAngularDimension, "DIMENSION");
MVDRAWING_DEFINE_OBJECT(OdDb3PointAngularDimension, OdDbAngularDimension, "DIMENSION");
MVDRAWING_DEFINE_OBJECT(OdDbRadialDimension, OdDbRoundDimension, "DIMENSION");
MVDRAWING_DEFINE_OBJECT(OdDbDiametricDimension, OdDbRoundDimension, "DIMENSION");
MVDRAWING_DEFINE_OBJECT(OdDbOrdinateDimension, OdDbDimension, "DIMENSION");
MVDRAWING_DEFINE_OBJECT(OdDbArcDimension, OdDbDimension, "ARC_DIMENSION");
MVDRAWING_DEFINE_OBJECT(OdDbRadialDimensionLarge, OdDbDimension, "LARGE_RADIAL_DIMENSION");

drawing::SubclassLayout OdDbLinearDimension::linearSubclass() {
  using Self = OdDbLinearDimension;
  return {"AcDbAlignedDimension",
          {field<&Self::insertion_>(12).unless(0, 0, 0), field<&Self::first_>(13), field<&Self::second_>(14),
           field<&Self::oblique_>(52).angle().unless(0)}};
}

const drawing::Description& OdDbAlignedDimension::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(), {dimensionSubclass(), linearSubclass()});
  return description;
}

// The angles stand in front of the last marker; some programs write them behind it.
const drawing::Description& OdDbRotatedDimension::ownDescription() {
  using Self = OdDbRotatedDimension;
  static const drawing::Description description = [] {
    drawing::SubclassLayout linear = linearSubclass();
    linear.fields.push_back(field<&Self::rotation_>(50).angle().unless(0));
    const drawing::SubclassLayout rotated{
        "AcDbRotatedDimension",
        {field<&Self::rotation_>(50).angle().onlyRead(), field<&Self::oblique_>(52).angle().onlyRead()}};
    return drawing::Description(&OdDbEntity::ownDescription(), {dimensionSubclass(), linear, rotated});
  }();
  return description;
}

drawing::SubclassLayout OdDbAngularDimension::angularSubclass(const char* marker) {
  using Self = OdDbAngularDimension;
  return {marker,
          {field<&Self::first_>(13), field<&Self::second_>(14), field<&Self::third_>(15),
           field<&Self::arc_>(16).unless(0, 0, 0)}};
}

const drawing::Description& OdDb2LineAngularDimension::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {dimensionSubclass(), angularSubclass("AcDb2LineAngularDimension")});
  return description;
}

const drawing::Description& OdDb3PointAngularDimension::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {dimensionSubclass(), angularSubclass("AcDb3PointAngularDimension")});
  return description;
}

drawing::SubclassLayout OdDbRoundDimension::roundSubclass(const char* marker) {
  return {marker, {field<&OdDbRoundDimension::chord_>(15), field<&OdDbRoundDimension::leaderLength_>(40)}};
}

const drawing::Description& OdDbRadialDimension::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {dimensionSubclass(), roundSubclass("AcDbRadialDimension")});
  return description;
}

const drawing::Description& OdDbDiametricDimension::ownDescription() {
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {dimensionSubclass(), roundSubclass("AcDbDiametricDimension")});
  return description;
}

const drawing::Description& OdDbOrdinateDimension::ownDescription() {
  using Self = OdDbOrdinateDimension;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {dimensionSubclass(), {"AcDbOrdinateDimension", {field<&Self::feature_>(13), field<&Self::leaderEnd_>(14)}}});
  return description;
}

const drawing::Description& OdDbArcDimension::ownDescription() {
  using Self = OdDbArcDimension;
  static const drawing::Description description(
      &OdDbEntity::ownDescription(),
      {dimensionSubclass(),
       {"AcDbArcDimension",
        {field<&Self::first_>(13), field<&Self::second_>(14), field<&Self::center_>(15), field<&Self::isPart_>(70),
         field<&Self::startAngle_>(40), field<&Self::endAngle_>(41), field<&Self::hasLeader_>(71),
         field<&Self::leaderStart_>(16), field<&Self::leaderEnd_>(17)}}});
  return description;
}

const drawing::Description& OdDbRadialDimensionLarge::ownDescription() {
  using Self = OdDbRadialDimensionLarge;
  static const drawing::Description description(&OdDbEntity::ownDescription(),
                                                {dimensionSubclass(),
                                                 {"AcDbRadialDimensionLarge",
                                                  {field<&Self::overrideCenter_>(13), field<&Self::jog_>(14),
                                                   field<&Self::chord_>(15), field<&Self::jogAngle_>(40)}}});
  return description;
}

MVDRAWING_SETTER(OdDbLinearDimension, setXLine1Point, const OdGePoint3d&, first_)
MVDRAWING_SETTER(OdDbLinearDimension, setXLine2Point, const OdGePoint3d&, second_)
MVDRAWING_SETTER(OdDbLinearDimension, setDimLinePoint, const OdGePoint3d&, definition_)
MVDRAWING_SETTER(OdDbLinearDimension, setOblique, double, oblique_)
MVDRAWING_SETTER(OdDbRotatedDimension, setRotation, double, rotation_)
MVDRAWING_SETTER(OdDbAngularDimension, setDefinitionPoint, const OdGePoint3d&, definition_)
MVDRAWING_SETTER(OdDbAngularDimension, setXLine1Point, const OdGePoint3d&, first_)
MVDRAWING_SETTER(OdDbAngularDimension, setXLine2Point, const OdGePoint3d&, second_)
MVDRAWING_SETTER(OdDbAngularDimension, setCenterPoint, const OdGePoint3d&, third_)
MVDRAWING_SETTER_OCS(OdDbAngularDimension, setArcPoint, arc_)
MVDRAWING_SETTER(OdDbRoundDimension, setDefinitionPoint, const OdGePoint3d&, definition_)
MVDRAWING_SETTER(OdDbRoundDimension, setChordPoint, const OdGePoint3d&, chord_)
MVDRAWING_SETTER(OdDbRoundDimension, setLeaderLength, double, leaderLength_)
MVDRAWING_SETTER(OdDbOrdinateDimension, setOrigin, const OdGePoint3d&, definition_)
MVDRAWING_SETTER(OdDbOrdinateDimension, setDefiningPoint, const OdGePoint3d&, feature_)
MVDRAWING_SETTER(OdDbOrdinateDimension, setLeaderEndPoint, const OdGePoint3d&, leaderEnd_)

OdGePoint3d OdDbAngularDimension::arcPoint() const {
  return ocsToWcs(arc_, normal_);
}

OdResult OdDbAngularDimension::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(arcPoint());
  return OdDbDimension::getGeomExtents(extents);
}

OdResult OdDbRoundDimension::getGeomExtents(OdGeExtents3d& extents) const {
  extents.addPoint(chord_ + (chord_ - definition_).normal() * leaderLength_);
  return OdDbDimension::getGeomExtents(extents);
}

// The slant counts from the dimension line, so only a mirror turns it.
void OdDbLinearDimension::moveRest(const PlaneMap& map) {
  if (map.isMirrored())
    oblique_ = -oblique_;
}

void OdDbRotatedDimension::moveRest(const PlaneMap& map) {
  OdDbLinearDimension::moveRest(map);
  rotation_ = map.angle(rotation_);
}

void OdDbRoundDimension::moveRest(const PlaneMap& map) {
  leaderLength_ *= map.scale();
}

void OdDbArcDimension::moveRest(const PlaneMap& map) {
  if (isPart_)
    drawing::mapArcAngles(map, startAngle_, endAngle_);
}

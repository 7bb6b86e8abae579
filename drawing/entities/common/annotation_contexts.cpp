#include "drawing/entities/common/annotation_contexts.h"

#include "DbDictionary.h"
#include "Ge/GeUtil.h"
#include "drawing/ge/plane_map.h"
#include "drawing/model/object_store.h"
#include "drawing/records/raw_groups.h"

#include <cmath>

namespace drawing {

namespace {

constexpr GroupRole kNoRoles[] = {{-1, GeometricRole::kLength}};
constexpr GroupRole kMText[] = {
    {10, GeometricRole::kDirection}, {11, GeometricRole::kPoint},  {40, GeometricRole::kLength},
    {41, GeometricRole::kLength},    {42, GeometricRole::kLength}, {43, GeometricRole::kLength},
    {44, GeometricRole::kLength},    {45, GeometricRole::kLength}, {46, GeometricRole::kLength}};
constexpr GroupRole kReference[] = {
    {41, GeometricRole::kLength}, {42, GeometricRole::kLength}, {43, GeometricRole::kLength}};
constexpr GroupRole kLeader[] = {{10, GeometricRole::kPoint},
                                 {11, GeometricRole::kDirection},
                                 {12, GeometricRole::kVector},
                                 {13, GeometricRole::kVector}};
constexpr GroupRole kFrame[] = {{10, GeometricRole::kPoint}, {11, GeometricRole::kDirection}};
constexpr GroupRole kDimension[] = {
    {11, GeometricRole::kPoint}, {12, GeometricRole::kPoint}, {13, GeometricRole::kPoint}};

struct Representation {
  std::string_view kind; // between the parts that all names share
  std::span<const GroupRole> world;
  int inPlane[2]; // places in the frame of the plane, -1 for none
  bool rotates;   // an angle in the plane under 50, in degrees
};

constexpr Representation kRepresentations[] = {
    {"TEXT", kNoRoles, {10, 11}, true},      {"MTEXT", kMText, {-1, -1}, false},
    {"BLKREF", kReference, {10, -1}, true},  {"LEADER", kLeader, {-1, -1}, false},
    {"FCF", kFrame, {-1, -1}, false},        {"ALDIM", kDimension, {10, -1}, false},
    {"ANGDIM", kDimension, {10, -1}, false}, {"DMDIM", kDimension, {10, -1}, false},
    {"ORDDIM", kDimension, {10, -1}, false}, {"RADIM", kDimension, {10, -1}, false},
    {"RADIMLG", kDimension, {10, -1}, false}};

const Representation* representationOf(std::string_view dxfName) {
  constexpr std::string_view kPrefix = "ACDB_", kSuffix = "OBJECTCONTEXTDATA_CLASS";
  for (const Representation& one : kRepresentations) {
    if (dxfName.size() == kPrefix.size() + one.kind.size() + kSuffix.size() &&
        dxfName.substr(kPrefix.size(), one.kind.size()) == one.kind && dxfName.substr(0, kPrefix.size()) == kPrefix &&
        dxfName.substr(kPrefix.size() + one.kind.size()) == kSuffix)
      return &one;
  }
  return nullptr;
}

// A place of two or three coordinates; the third is taken for 0 where it is missing. Zero stands for none.
void movePoint(GroupList& groups, std::size_t i, const PlaneMap& map) {
  const int code = groups[i].code;
  const auto isReal = [&](std::size_t at, int wanted) {
    return at < groups.size() && groups[at].code == wanted && groups[at].kind == GroupKind::kReal;
  };
  if (!isReal(i, code) || !isReal(i + 1, code + 10))
    return;
  const bool deep = isReal(i + 2, code + 20);
  const OdGePoint3d position(groups[i].real, groups[i + 1].real, deep ? groups[i + 2].real : 0);
  if (position.x == 0 && position.y == 0 && position.z == 0)
    return;
  const OdGePoint3d moved = map.point(position);
  groups.setReal(i, moved.x);
  groups.setReal(i + 1, moved.y);
  if (deep)
    groups.setReal(i + 2, moved.z);
}

void moveRepresentation(GroupList& groups, const Representation& kind, const PlaneMap& map,
                        const OdGeMatrix3d& matrix) {
  const std::size_t first = groups.find(340); // its scale; places stand behind it
  const double scale = map.keepsShapes() && std::fabs(map.scale() - 1) > 1e-14 ? map.scale() : 1;
  transformRawGroups(groups, first, groups.size(), kind.world, matrix, scale);
  for (std::size_t i = first; i < groups.size(); ++i) {
    if (groups[i].code == kind.inPlane[0] || groups[i].code == kind.inPlane[1])
      movePoint(groups, i, map);
    else if (kind.rotates && groups[i].code == 50 && groups[i].kind == GroupKind::kReal)
      groups.setReal(i, toDegrees(map.angle(toRadians(groups[i].real))));
  }
}

} // namespace

ContextData::ContextData(const OdDbEntity& entity) {
  const auto* extension = getIf<OdDbDictionary>(entity.extensionDictionary());
  const auto* data =
      extension == nullptr ? nullptr : getIf<OdDbDictionary>(extension->getAt(L"AcDbContextDataManager"));
  const auto* scales = data == nullptr ? nullptr : getIf<OdDbDictionary>(data->getAt(L"ACDB_ANNOTATIONSCALES"));
  if (scales == nullptr)
    return;
  normal_ = entity.planeNormal();
  for (const OdDbDictionary::Entry& entry : scales->entries()) {
    if (isAlive(entry.id))
      objects_.push_back(entry.id);
  }
}

void ContextData::move(const OdGeMatrix3d& matrix) const {
  for (OdDbObjectId id : objects_) {
    OdDbObject& object = *lookup(id);
    const Representation* kind = representationOf(object.dxfName());
    if (kind == nullptr || object.unmodelledGroupsOrNull() == nullptr)
      continue;
    const WriteScope scope(object);
    moveRepresentation(object.unmodelledGroups(), *kind, PlaneMap(matrix, normal_), matrix);
  }
}

} // namespace drawing

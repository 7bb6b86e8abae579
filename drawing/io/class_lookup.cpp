#include "drawing/io/class_lookup.h"

#include "DbBlockReference.h"
#include "DbDimension.h"
#include "DbVertexPolylines.h"
#include "drawing/base/trimmed.h"
#include "drawing/model/record.h"

#include <charconv>
#include <iterator>
#include <utility>

namespace drawing {

namespace {

using Groups = std::span<const RawGroup>;

constexpr int kFirstXData = 1000, kEmbedded = 101, kMarker = 100;

// The record's own groups: without embedded objects and extended data.
Groups ownGroups(Groups groups) {
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code >= kFirstXData || groups[i].code == kEmbedded)
      return groups.first(i);
  }
  return groups;
}

// The first value under that code.
std::int64_t integerOf(Groups groups, int code, std::int64_t absent) {
  for (const RawGroup& group : groups) {
    if (group.code != code)
      continue;
    std::int64_t value = absent;
    if (group.form == RawGroup::Form::kInteger)
      return group.integer;
    const std::string_view text = trimmed(group.text, " \t");
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  }
  return absent;
}

bool hasMarker(Groups groups, std::string_view marker) {
  for (const RawGroup& group : groups) {
    if (group.code == kMarker && trimmed(group.text, " \t") == marker)
      return true;
  }
  return false;
}

OdRxClass* chooseInsert(Groups groups) {
  const bool multiple =
      hasMarker(groups, "AcDbMInsertBlock") || integerOf(groups, 70, 1) > 1 || integerOf(groups, 71, 1) > 1;
  return multiple ? OdDbMInsertBlock::desc() : OdDbBlockReference::desc();
}

// The class whose own marker the record holds.
struct ClassOfMarker {
  std::string_view marker;
  OdRxClass* (*descriptor)();
};

template <std::size_t Count>
OdRxClass* byMarker(Groups groups, const ClassOfMarker (&classes)[Count]) {
  for (const ClassOfMarker& one : classes) {
    if (hasMarker(groups, one.marker))
      return one.descriptor();
  }
  return nullptr;
}

// Old files have no markers; flags identify the class as well. The first whose bits are all set is it.
struct Flagged {
  std::int64_t bits;
  OdRxClass* (*descriptor)();
};

template <std::size_t Count>
OdRxClass* byFlags(Groups groups, const Flagged (&classes)[Count]) {
  const std::int64_t flags = integerOf(groups, 70, 0);
  for (const Flagged& one : classes) {
    if ((flags & one.bits) == one.bits)
      return one.descriptor();
  }
  return nullptr;
}

OdRxClass* choosePolyline(Groups groups) {
  static constexpr ClassOfMarker kClassOfMarker[] = {{"AcDb2dPolyline", OdDb2dPolyline::desc},
                                                     {"AcDb3dPolyline", OdDb3dPolyline::desc},
                                                     {"AcDbPolygonMesh", OdDbPolygonMesh::desc},
                                                     {"AcDbPolyFaceMesh", OdDbPolyFaceMesh::desc}};
  static constexpr Flagged kFlagged[] = {
      {64, OdDbPolyFaceMesh::desc}, {16, OdDbPolygonMesh::desc}, {8, OdDb3dPolyline::desc}, {0, OdDb2dPolyline::desc}};
  OdRxClass* chosen = byMarker(groups, kClassOfMarker);
  return chosen != nullptr ? chosen : byFlags(groups, kFlagged);
}

OdRxClass* chooseVertex(Groups groups) {
  static constexpr ClassOfMarker kClassOfMarker[] = {{"AcDb2dVertex", OdDb2dVertex::desc},
                                                     {"AcDb3dPolylineVertex", OdDb3dPolylineVertex::desc},
                                                     {"AcDbPolygonMeshVertex", OdDbPolygonMeshVertex::desc},
                                                     {"AcDbPolyFaceMeshVertex", OdDbPolyFaceMeshVertex::desc},
                                                     {"AcDbFaceRecord", OdDbFaceRecord::desc}};
  static constexpr Flagged kFlagged[] = {{64 + 128, OdDbPolyFaceMeshVertex::desc},
                                         {128, OdDbFaceRecord::desc},
                                         {64, OdDbPolygonMeshVertex::desc},
                                         {32, OdDb3dPolylineVertex::desc},
                                         {0, OdDb2dVertex::desc}};
  OdRxClass* chosen = byMarker(groups, kClassOfMarker);
  return chosen != nullptr ? chosen : byFlags(groups, kFlagged);
}

OdRxClass* chooseDimension(Groups groups) {
  static constexpr ClassOfMarker kClassOfMarker[] = {{"AcDbRotatedDimension", OdDbRotatedDimension::desc},
                                                     {"AcDbAlignedDimension", OdDbAlignedDimension::desc},
                                                     {"AcDb2LineAngularDimension", OdDb2LineAngularDimension::desc},
                                                     {"AcDb3PointAngularDimension", OdDb3PointAngularDimension::desc},
                                                     {"AcDbRadialDimension", OdDbRadialDimension::desc},
                                                     {"AcDbDiametricDimension", OdDbDiametricDimension::desc},
                                                     {"AcDbOrdinateDimension", OdDbOrdinateDimension::desc}};
  if (OdRxClass* chosen = byMarker(groups, kClassOfMarker))
    return chosen;
  using Descriptor = OdRxClass* (*)();
  static constexpr Descriptor kByType[] = {OdDbRotatedDimension::desc,      OdDbAlignedDimension::desc,
                                           OdDb2LineAngularDimension::desc, OdDbDiametricDimension::desc,
                                           OdDbRadialDimension::desc,       OdDb3PointAngularDimension::desc,
                                           OdDbOrdinateDimension::desc};
  const std::int64_t type = integerOf(groups, 70, 0) & 15;
  return type < static_cast<std::int64_t>(std::size(kByType)) ? kByType[type]() : nullptr;
}

struct Chooser {
  std::string_view dxfName;
  OdRxClass* (*choose)(Groups);
};

constexpr Chooser kChoosers[] = {
    {"INSERT", chooseInsert},
    {"DIMENSION", chooseDimension},
    {"POLYLINE", choosePolyline},
    {"VERTEX", chooseVertex},
};

} // namespace

OdRxClass* chooseClass(std::string_view dxfName, std::span<const RawGroup> groups) {
  for (const Chooser& chooser : kChoosers) {
    if (chooser.dxfName == dxfName)
      return chooser.choose(ownGroups(groups));
  }
  return classRegistry().findByDxfName(dxfName);
}

} // namespace drawing

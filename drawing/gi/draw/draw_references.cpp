// What shows other blocks: references and viewports.
#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbSpatialFilter.h"
#include "DbViewport.h"
#include "Ge/GeUtil.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/model/object_store.h"
#include "drawing/records/raw_groups.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

const char* reasonNotLoaded(const OdDbBlockTableRecord& block) {
  return block.xrefStatus() == XrefStatus::kUnloaded ? "xref-unloaded" : "xref-not-loaded";
}

// Points of the contents are in the block's own coordinates: its origin is mapped to the position of the reference.
OdGeMatrix3d contentsTransform(const OdDbBlockReference& reference, const OdGePoint3d& origin) {
  return reference.blockTransform() * OdGeMatrix3d::translation(OdGePoint3d() - origin);
}

void addClip(const OdDbSpatialFilter& filter, BlockInstance& instance, Canvas& canvas) {
  const Path hole = filter.holeInBlock();
  std::vector<OdGePoint2d> polygon;
  for (const OdGePoint3d& corner : hole.empty() ? filter.boundaryInBlock() : hole)
    polygon.push_back((instance.context.toScene * corner).to2d());
  if (polygon.size() > 2)
    canvas.cut(instance, std::move(polygon), !hole.empty());
  if (filter.frontClipDist() || filter.backClipDist())
    canvas.reportNotDrawn("depth-clip");
}

// The contents of an external drawing have layers of their own, which the host may override.
void enterXref(const OdDbDatabase& external, const OdDbBlockTableRecord& block, BlockInstance& instance,
               Canvas& canvas) {
  instance.block = external.getModelSpaceId();
  instance.context.setting.layers = canvas.resolver().addView(block.getName() + L"|");
}

void addRepetitions(const OdDbBlockReference& reference, BlockInstance& instance) {
  const auto* array = OdDbMInsertBlock::cast(&reference).get();
  if (array == nullptr)
    return;
  const OdGeMatrix3d rotated =
      OdGeMatrix3d::planeToWorld(reference.normal()) * OdGeMatrix3d::rotation(reference.rotation(), {0, 0, 1});
  instance.columns = std::max<int>(array->columns(), 1);
  instance.rows = std::max<int>(array->rows(), 1);
  instance.column = rotated * OdGeVector3d(array->columnSpacing(), 0, 0);
  instance.row = rotated * OdGeVector3d(0, array->rowSpacing(), 0);
}

} // namespace

void drawReference(const OdDbBlockReference& reference, Canvas& canvas) {
  const auto* block = getIf<OdDbBlockTableRecord>(reference.blockTableRecord());
  if (!isAlive(block))
    return canvas.reportNotDrawn("no-block");
  const OdDbDatabase* external = block->isFromExternalReference() ? block->xrefDatabase() : nullptr;
  const OdGePoint3d origin = external != nullptr ? external->getINSBASE() : block->origin();
  BlockInstance& instance = canvas.show(block->objectId(), contentsTransform(reference, origin));
  if (reference.hasAttributes()) {
    const OdDbObjectIdArray ids = reference.attributeIds();
    instance.rest = std::make_shared<const std::vector<OdDbObjectId>>(ids.begin(), ids.end());
  }
  if (external != nullptr)
    enterXref(*external, *block, instance, canvas);
  else if (block->isFromExternalReference())
    canvas.reportNotDrawn(reasonNotLoaded(*block));
  addRepetitions(reference, instance);
  const OdDbSpatialFilterPtr filter = OdDbSpatialFilter::of(reference);
  if (!filter.isNull() && filter->isEnabled())
    addClip(*filter, instance, canvas);
}

namespace {

constexpr std::int64_t kViewportOff = 0x20000;
constexpr std::int64_t kPerspective = 1;

// The groups of the viewport's own section; early files have no sections.
GroupList viewOf(const OdDbViewport& viewport) {
  GroupList view;
  const GroupList* unmodelled = viewport.unmodelledGroupsOrNull();
  bool isOwn = true;
  for (std::size_t i = 0; unmodelled != nullptr && i < unmodelled->size(); ++i) {
    if ((*unmodelled)[i].code == 100)
      isOwn = unmodelled->textOf((*unmodelled)[i]) == "AcDbViewport";
    else if (isOwn)
      view.append(*unmodelled, i, 1);
  }
  return view;
}

// From model space coordinates to the layout.
OdGeMatrix3d viewportTransform(const OdDbViewport& viewport, const GroupList& view) {
  const OdGeVector3d direction = rawPoint(view, 16, {0, 0, 1}).asVector();
  const double height = rawReal(view, 45, viewport.height()), scale = height > 0 ? viewport.height() / height : 1;
  const OdGePoint3d center(rawReal(view, 12), rawReal(view, 22), 0);
  const OdGeMatrix3d eye = OdGeMatrix3d::rotation(toRadians(rawReal(view, 51)), {0, 0, 1}) *
                           OdGeMatrix3d::worldToPlane(direction.isZeroLength() ? OdGeVector3d(0, 0, 1) : direction) *
                           OdGeMatrix3d::translation(OdGePoint3d() - rawPoint(view, 17));
  return OdGeMatrix3d::translation(viewport.centerPoint().asVector()) * OdGeMatrix3d::scaling(scale) *
         OdGeMatrix3d::translation(OdGePoint3d() - center) * eye;
}

Path borderOf(const OdDbViewport& viewport, const GroupList& view) {
  if (const auto* boundary = getIf<OdDbEntity>(rawReference(view, 340)); isAlive(boundary)) {
    if (Path outline = outlineOf(*boundary); outline.size() > 2)
      return outline;
  }
  const OdGePoint3d c = viewport.centerPoint();
  const double x = viewport.width() / 2, y = viewport.height() / 2;
  return {{c.x - x, c.y - y, 0}, {c.x + x, c.y - y, 0}, {c.x + x, c.y + y, 0}, {c.x - x, c.y + y, 0}};
}

} // namespace

void drawViewport(const OdDbViewport& viewport, Canvas& canvas) {
  const GroupList view = viewOf(viewport);
  const std::int64_t number = rawInteger(view, 69), state = rawInteger(view, 68, 1), flags = rawInteger(view, 90);
  if (number == 1)
    return; // the layout itself
  const Path border = borderOf(viewport, view);
  canvas.stroke(border, true);
  if (state == 0 || (flags & kViewportOff) != 0 || canvas.context().depth > 0)
    return;
  BlockInstance& instance = canvas.show(canvas.database().getModelSpaceId(), viewportTransform(viewport, view));
  instance.context.setting.isInReference = false;
  instance.context.setting.byBlock = canvas.resolver().initial();
  instance.context.setting.layers = canvas.resolver().addView();
  for (std::size_t i = 0; i < view.size(); ++i) {
    if ((view[i].code == 331 || view[i].code == 341) && view[i].kind == GroupKind::kReference)
      instance.context.setting.layers->frozen.insert(view.idOf(view[i]).getHandle());
  }
  canvas.cut(instance, canvas.project(border));
  if ((flags & kPerspective) != 0)
    canvas.reportNotDrawn("perspective");
}

} // namespace drawing::gi

#include "drawing/gi/draw/entity_drawers.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDimension.h"
#include "DbFaces.h"
#include "DbFcf.h"
#include "DbHatch.h"
#include "DbHelix.h"
#include "DbLeader.h"
#include "DbLight.h"
#include "DbMLeader.h"
#include "DbMline.h"
#include "DbModelerGeometry.h"
#include "DbOle2Frame.h"
#include "DbPolyline.h"
#include "DbProxyEntity.h"
#include "DbRasterImage.h"
#include "DbShape.h"
#include "DbSubDMesh.h"
#include "DbUnderlayReference.h"
#include "DbVertexPolylines.h"
#include "DbViewport.h"
#include "Ge/GeUtil.h"

#include <unordered_map>

namespace drawing::gi {

namespace {

void drawLine(const OdDbLine& line, Canvas& canvas) {
  canvas.stroke(pathOf(line));
}

void drawPoint(const OdDbPoint& point, Canvas& canvas) {
  const OdDbDatabase& drawing = canvas.database();
  canvas.pointSymbol(point.position(), static_cast<int>(drawing.headerInt("PDMODE")), drawing.headerReal("PDSIZE"));
}

void drawCircle(const OdDbCircle& circle, Canvas& canvas) {
  canvas.stroke(pathOf(circle, 0, kTwoPi));
}
void drawArc(const OdDbArc& arc, Canvas& canvas) {
  canvas.stroke(pathOf(arc, arc.startAngle(), arc.endAngle()));
}
void drawEllipse(const OdDbEllipse& ellipse, Canvas& canvas) {
  canvas.stroke(pathOf(ellipse));
}
void drawSpline(const OdDbSpline& spline, Canvas& canvas) {
  canvas.stroke(pathOf(spline));
}

void drawEndless(const OdDbUnboundedLine& line, Canvas& canvas) {
  canvas.endless(line.basePoint(), line.basePoint() + line.unitDir(), line.isKindOf(OdDbXline::desc()));
}

void drawBody(const OdDbModelerGeometry&, Canvas& canvas) {
  canvas.reportNotDrawn("body");
}
void drawShape(const OdDbShape&, Canvas& canvas) {
  canvas.reportNotDrawn("shape-file");
}
void drawProxy(const OdDbProxyEntity&, Canvas& canvas) {
  canvas.reportNotDrawn("proxy");
}
void drawOle(const OdDbOleFrame&, Canvas& canvas) {
  canvas.reportNotDrawn("document");
}

// Lights and cameras are not drawn; neither are ends of sequences and of blocks.
void drawNothing(const OdDbEntity&, Canvas&) {}

template <class T, void (*Draw)(const T&, Canvas&)>
std::pair<OdRxClass*, Drawer> entry() {
  return {T::desc(), drawAs<T, Draw>};
}

using Table = std::unordered_map<OdRxClass*, Drawer>;

const Table& table() {
  static const Table drawers{entry<OdDbLine, drawLine>(),
                             entry<OdDbPoint, drawPoint>(),
                             entry<OdDbCircle, drawCircle>(),
                             entry<OdDbArc, drawArc>(),
                             entry<OdDbEllipse, drawEllipse>(),
                             entry<OdDbSpline, drawSpline>(),
                             entry<OdDbUnboundedLine, drawEndless>(),
                             entry<OdDbPolyline, drawPolyline>(),
                             entry<OdDb2dPolyline, draw2dPolyline>(),
                             entry<OdDb3dPolyline, draw3dPolyline>(),
                             entry<OdDbPolygonMesh, drawPolygonMesh>(),
                             entry<OdDbPolyFaceMesh, drawPolyFaceMesh>(),
                             entry<OdDbSubDMesh, drawSubDMesh>(),
                             entry<OdDbFace, drawFace>(),
                             entry<OdDbFilledArea, drawFilledArea>(),
                             entry<OdDbText, drawText>(),
                             entry<OdDbMText, drawMText>(),
                             entry<OdDbAttribute, drawAttribute>(),
                             entry<OdDbAttributeDefinition, drawAttributeDefinition>(),
                             entry<OdDbBlockReference, drawReference>(),
                             entry<OdDbDimension, drawDimension>(),
                             entry<OdDbViewport, drawViewport>(),
                             entry<OdDbLeader, drawLeader>(),
                             entry<OdDbMLeader, drawMLeader>(),
                             entry<OdDbHatch, drawHatch>(),
                             entry<OdDbMline, drawMline>(),
                             entry<OdDbFcf, drawFcf>(),
                             entry<OdDbRasterImage, drawImage>(),
                             entry<OdDbWipeout, drawWipeout>(),
                             entry<OdDbUnderlayReference, drawUnderlay>(),
                             entry<OdDbOle2Frame, drawOleFrame>(),
                             entry<OdDbOleFrame, drawOle>(),
                             entry<OdDbModelerGeometry, drawBody>(),
                             entry<OdDbShape, drawShape>(),
                             entry<OdDbProxyEntity, drawProxy>(),
                             {OdDbLight::desc(), drawNothing},
                             {OdDbCamera::desc(), drawNothing},
                             {OdDbBlockBegin::desc(), drawNothing},
                             {OdDbBlockEnd::desc(), drawNothing},
                             {OdDbVertex::desc(), drawNothing},
                             {OdDbSequenceEnd::desc(), drawNothing}};
  return drawers;
}

} // namespace

Drawer drawerOf(const OdDbEntity& entity) {
  for (OdRxClass* at = entity.isA(); at != nullptr; at = at->parent()) {
    const auto found = table().find(at);
    if (found != table().end())
      return found->second;
  }
  return nullptr;
}

} // namespace drawing::gi

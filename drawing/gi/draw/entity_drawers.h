// The functions that draw the kinds of entities.
#pragma once

#include "drawing/gi/draw/canvas.h"
#include "drawing/gi/draw/paths.h"

class OdDbAttribute;
class OdDbAttributeDefinition;
class OdDbBlockReference;
class OdDbDimension;
class OdDbFace;
class OdDbFcf;
class OdDbFilledArea;
class OdDbHatch;
class OdDbLeader;
class OdDbMLeader;
class OdDbMline;
class OdDbMText;
class OdDbOle2Frame;
class OdDbPolyFaceMesh;
class OdDbPolygonMesh;
class OdDbPolyline;
class OdDb2dPolyline;
class OdDb3dPolyline;
class OdDbRasterImage;
class OdDbSubDMesh;
class OdDbText;
class OdDbUnderlayReference;
class OdDbViewport;
class OdDbWipeout;

namespace drawing::gi {

PlanePath planePathOf(const OdDbPolyline& polyline);
PlanePath planePathOf(const OdDb2dPolyline& polyline);

void drawPolyline(const OdDbPolyline& polyline, Canvas& canvas);
void draw2dPolyline(const OdDb2dPolyline& polyline, Canvas& canvas);
void draw3dPolyline(const OdDb3dPolyline& polyline, Canvas& canvas);
void drawPolygonMesh(const OdDbPolygonMesh& mesh, Canvas& canvas);
void drawPolyFaceMesh(const OdDbPolyFaceMesh& mesh, Canvas& canvas);
void drawSubDMesh(const OdDbSubDMesh& mesh, Canvas& canvas);
void drawFace(const OdDbFace& face, Canvas& canvas);
void drawFilledArea(const OdDbFilledArea& area, Canvas& canvas);

void drawText(const OdDbText& text, Canvas& canvas);
// Another string in the place of the text's own, and moved by the matrix.
void drawStringAt(const OdDbText& text, const OdString& string, const OdGeMatrix3d& transform, Canvas& canvas);
void drawMText(const OdDbMText& text, Canvas& canvas);
void drawAttribute(const OdDbAttribute& attribute, Canvas& canvas);
void drawAttributeDefinition(const OdDbAttributeDefinition& definition, Canvas& canvas);

void drawReference(const OdDbBlockReference& reference, Canvas& canvas);
void drawDimension(const OdDbDimension& dimension, Canvas& canvas);
void drawViewport(const OdDbViewport& viewport, Canvas& canvas);
void drawLeader(const OdDbLeader& leader, Canvas& canvas);
void drawMLeader(const OdDbMLeader& leader, Canvas& canvas);

void drawHatch(const OdDbHatch& hatch, Canvas& canvas);
void drawMline(const OdDbMline& line, Canvas& canvas);
void drawFcf(const OdDbFcf& frame, Canvas& canvas);
void drawImage(const OdDbRasterImage& image, Canvas& canvas);
void drawWipeout(const OdDbWipeout& wipeout, Canvas& canvas);
void drawUnderlay(const OdDbUnderlayReference& underlay, Canvas& canvas);
void drawOleFrame(const OdDbOle2Frame& frame, Canvas& canvas);

} // namespace drawing::gi

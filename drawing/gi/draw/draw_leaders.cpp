// Leaders: their lines, arrows and notes.
#include "DbAttribute.h"
#include "DbBlockTable.h"
#include "DbLeader.h"
#include "DbMLeader.h"
#include "DbSymbolRecords.h"
#include "Ge/GeUtil.h"
#include "drawing/annotations/multileader_parts.h"
#include "drawing/gi/draw/arrows.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/gi/draw/mtext_box.h"
#include "drawing/gi/text/text_style.h"
#include "drawing/model/object_store.h"
#include "drawing/records/raw_groups.h"

#include <algorithm>
#include <cmath>

namespace drawing::gi {

namespace {

struct LeaderTraits {
  double arrowSize = 0.18;
  OdDbObjectId arrow;
};

// The style, and what the leader itself says against it in its extended data.
LeaderTraits traitsOf(const OdDbLeader& leader) {
  double scale = 1;
  LeaderTraits traits;
  if (const auto* style = getIf<OdDbDimStyleTableRecord>(leader.dimensionStyle())) {
    traits = {style->dimasz(), style->dimldrblk()};
    scale = style->dimscale();
  }
  const GroupList none, *data = leader.xDataGroups();
  const GroupList& groups = data == nullptr ? none : *data;
  constexpr int kArrowSize = 41, kScale = 40, kArrow = 341;
  for (std::size_t i = groups.find(1070); i + 1 < groups.size(); i = groups.find(1070, i + 1)) {
    const Group& value = groups[i + 1];
    if (value.code == 1040 && groups[i].integer == kArrowSize)
      traits.arrowSize = value.real;
    else if (value.code == 1040 && groups[i].integer == kScale)
      scale = value.real;
    else if (value.code == 1005 && groups[i].integer == kArrow)
      traits.arrow = groups.idOf(value);
  }
  traits.arrowSize *= scale > 0 ? scale : 1;
  return traits;
}

} // namespace

void drawLeader(const OdDbLeader& leader, Canvas& canvas) {
  Path path;
  for (int i = 0; i < leader.numVertices(); ++i)
    path.push_back(leader.vertexAt(i));
  if (path.size() < 2)
    return;
  const LeaderTraits traits = traitsOf(leader);
  const OdGePoint3d tip = path.front();
  if (leader.isSplined())
    path = smoothThrough(path, false);
  if (leader.hasArrowHead())
    path.front() = drawArrow(tip, path[1], leader.normal(), traits.arrowSize, traits.arrow, canvas);
  canvas.stroke(path);
}

namespace {

void drawBranch(const OdDbMLeader& leader, const MLeaderBranch& branch, OdDbObjectId arrow, Canvas& canvas) {
  const OdGePoint3d end = branch.landing + branch.dogleg * branch.doglegLength;
  for (const std::vector<OdGePoint3d>& line : branch.lines) {
    Path path = line;
    path.push_back(branch.landing);
    if (path.size() > 1)
      path.front() = drawArrow(path[0], path[1], leader.normal(), leader.arrowSize(), arrow, canvas);
    canvas.stroke(path);
  }
  if (branch.doglegLength > 0)
    canvas.line(branch.landing, end);
}

void drawNote(const OdDbMLeader& leader, const GroupList& context, Canvas& canvas) {
  TextBox box;
  constexpr int kAttachments[] = {1, 1, 2, 3}; // left, centre, right: from the top
  box.attachment = kAttachments[std::clamp<std::int64_t>(rawInteger(context, 171, 1), 0, 3)];
  Frame frame;
  frame.width = rawReal(context, 43);
  frame.textHeight = leader.textHeight();
  frame.lineSpacing = std::max(rawReal(context, 45, 1), 0.25);
  frame.align = box.attachment == 1 ? Align::kLeft : box.attachment == 2 ? Align::kCenter : Align::kRight;
  const OdGeVector3d x = leader.textDirection().normal(), z = leader.normal().normal();
  box.toBlock = OdGeMatrix3d::coordSystem(leader.textLocation(), x, z.crossProduct(x), z);
  const OdDbObjectId style = rawReference(context, 340);
  CharFormat format{fontOfStyle(style), leader.textHeight(), widthFactorOfStyle(style), obliqueOfStyle(style), {}};
  if (const std::optional<OdCmColor> color = mleaderColor(rawInteger(context, 90)))
    format.color = color;
  box.block = layOut(readMText(leader.contents().visible(), format), frame, canvas.shaper());
  drawTextBox(box, canvas);
}

// The block of a note has its own matrix.
void drawBlockNote(const OdDbMLeader& leader, const GroupList& context, Canvas& canvas) {
  const auto* block = getIf<OdDbBlockTableRecord>(leader.blockContentId());
  if (!isAlive(block))
    return canvas.reportNotDrawn("no-block");
  OdGeMatrix3d transform = OdGeMatrix3d::translation(leader.blockPosition().asVector());
  const std::size_t i = context.find(47);
  for (std::size_t entry = 0; entry < 16 && i + entry < context.size() && context[i + entry].code == 47; ++entry)
    transform.entry[entry / 4][entry % 4] = context[i + entry].real;
  transform = transform * OdGeMatrix3d::translation(OdGePoint3d() - block->origin());
  canvas.show(leader.blockContentId(), transform);
  for (const auto& [definition, text] : mleaderAttributes(leader)) {
    const auto* attribute = getIf<OdDbAttributeDefinition>(definition);
    if (isAlive(attribute) && !attribute->isInvisible())
      drawStringAt(*attribute, text, transform, canvas);
  }
}

} // namespace

void drawMLeader(const OdDbMLeader& leader, Canvas& canvas) {
  const OdDbObjectId arrow = mleaderArrow(leader);
  for (const MLeaderBranch& branch : mleaderBranches(leader))
    drawBranch(leader, branch, arrow, canvas);
  const GroupList context = mleaderContext(leader);
  if (leader.contentType() == OdDbMLeader::kMTextContent)
    drawNote(leader, context, canvas);
  else if (leader.contentType() == OdDbMLeader::kBlockContent)
    drawBlockNote(leader, context, canvas);
  else if (leader.contentType() == OdDbMLeader::kToleranceContent)
    canvas.reportNotDrawn("tolerance-note");
}

} // namespace drawing::gi

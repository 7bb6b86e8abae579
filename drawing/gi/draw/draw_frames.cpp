// Pictures, blank areas, pages of other documents, frames of tolerances.
#include "DbDatabase.h"
#include "DbFcf.h"
#include "DbOle2Frame.h"
#include "DbRasterImage.h"
#include "DbSymbolRecords.h"
#include "DbUnderlayReference.h"
#include "drawing/gi/draw/entity_drawers.h"
#include "drawing/gi/draw/mtext_box.h"
#include "drawing/gi/text/text_style.h"
#include "drawing/model/object_store.h"

#include <algorithm>

namespace drawing::gi {

namespace {

// A picture's clip boundary in pixels from the upper left corner on; the frame when there is none.
Path pictureFrame(const OdDbImageBase& image) {
  OdGePoint3d origin;
  OdGeVector3d u, v;
  image.getOrientation(origin, u, v);
  const OdGePoint2d size = image.imageSize();
  std::vector<OdGePoint2d> corners;
  const GroupList* groups = image.unmodelledGroupsOrNull();
  for (std::size_t i = 0; groups != nullptr && i + 1 < groups->size(); ++i) {
    const Group &x = (*groups)[i], &y = (*groups)[i + 1];
    if (x.code == 14 && y.code == 24 && x.kind == GroupKind::kReal && y.kind == GroupKind::kReal)
      corners.emplace_back(x.real, y.real);
  }
  if (corners.size() == 2)
    corners = {corners[0], {corners[1].x, corners[0].y}, corners[1], {corners[0].x, corners[1].y}};
  if (corners.size() < 3)
    corners = {{-0.5, -0.5}, {size.x - 0.5, -0.5}, {size.x - 0.5, size.y - 0.5}, {-0.5, size.y - 0.5}};
  Path path;
  for (const OdGePoint2d& corner : corners)
    path.push_back(origin + u * (corner.x + 0.5) + v * (size.y - corner.y - 0.5));
  return path;
}

} // namespace

void drawImage(const OdDbRasterImage& image, Canvas& canvas) {
  canvas.stroke(pictureFrame(image), true);
  canvas.reportNotDrawn("picture-file");
}

void drawWipeout(const OdDbWipeout& wipeout, Canvas& canvas) {
  canvas.fill({pictureFrame(wipeout)}, canvas.resolver().background());
}

void drawUnderlay(const OdDbUnderlayReference&, Canvas& canvas) {
  canvas.reportNotDrawn("page");
}

void drawOleFrame(const OdDbOle2Frame& frame, Canvas& canvas) {
  const OdGePoint3d a = frame.upperLeft(), b = frame.lowerRight();
  canvas.stroke({a, {b.x, a.y, a.z}, b, {a.x, b.y, b.z}}, true);
  canvas.reportNotDrawn("document");
}

namespace {

struct Cell {
  TextBlock block;
  double width = 0;
};

// The cells of a frame, row by row; %%v parts cells and ^J rows.
class ToleranceFrame {
public:
  ToleranceFrame(const OdDbFcf& frame, Canvas& canvas) : canvas_(canvas) {
    height_ = 0.18;
    if (const auto* style = getIf<OdDbDimStyleTableRecord>(frame.dimensionStyle())) {
      font_ = fontOfStyle(style->dimtxsty());
      height_ = style->dimtxt() * (style->dimscale() > 0 ? style->dimscale() : 1);
    }
    const OdGeVector3d x = frame.direction().normal(), z = frame.normal().normal();
    toBlock_ = OdGeMatrix3d::coordSystem(frame.location(), x, z.crossProduct(x), z);
  }

  void draw(const OdString& text) {
    std::wstring_view rest = text.visible();
    double y = height_; // the location is the middle of the first row's left side
    while (!rest.empty()) {
      const std::size_t end = std::min(rest.find(L"^J"), rest.size());
      drawRow(rest.substr(0, end), y);
      y -= 2 * height_;
      rest.remove_prefix(std::min(end + 2, rest.size()));
    }
  }

private:
  void drawRow(std::wstring_view row, double top) {
    double x = 0;
    while (!row.empty()) {
      const std::size_t end = std::min(row.find(L"%%v"), row.size());
      const TextBlock block = shape(row.substr(0, end));
      if (block.width > 0)
        x = drawCell(block, x, top);
      row.remove_prefix(std::min(end + 3, row.size()));
    }
  }

  TextBlock shape(std::wstring_view cell) {
    Frame frame;
    frame.textHeight = height_;
    return layOut(readMText(cell, {font_, height_, 1, 0, {}}), frame, canvas_.shaper());
  }

  double drawCell(const TextBlock& block, double x, double top) {
    const double end = x + block.width + height_, bottom = top - 2 * height_;
    Path path;
    for (const auto& [px, py] : {std::pair(x, bottom), std::pair(end, bottom), std::pair(end, top), std::pair(x, top)})
      path.push_back(toBlock_ * OdGePoint3d(px, py, 0));
    canvas_.stroke(path, true);
    TextBox box;
    box.block = block;
    box.attachment = 5;
    box.toBlock = toBlock_ * OdGeMatrix3d::translation({(x + end) / 2, (top + bottom) / 2, 0});
    drawTextBox(box, canvas_);
    return end;
  }

  Canvas& canvas_;
  Font font_;
  double height_;
  OdGeMatrix3d toBlock_;
};

} // namespace

void drawFcf(const OdDbFcf& frame, Canvas& canvas) {
  ToleranceFrame(frame, canvas).draw(frame.text());
}

} // namespace drawing::gi

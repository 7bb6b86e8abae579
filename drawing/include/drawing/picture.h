// Pictures of a drawing: what a space or a block definition shows, as a bitmap, PNG or SVG.
//
// A picture is the view from above (against the z axis of the world, or of the block) of everything that shows: layers
// that are off or frozen do not, references show their definitions at any depth, external references those drawings
// that are loaded. Nothing of the drawing is changed. A drawing and its picture may be used by one thread at a time.
#pragma once

#include "DbDatabase.h"
#include "Ge/GeExtents3d.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace drawing {

struct PictureOptions {
  int width = 480, height = 320;                      // pixels; 1 to 30000 each, at most 100 million together
  std::optional<std::uint32_t> background = 0xFFFFFF; // 0xRRGGBB; none: transparent
  // What to show, in drawing units; z does not matter. Not valid: everything, with a small margin.
  OdGeExtents3d window;
  // Limits of the work: points that are drawn, and steps (entities, repetitions of a reference) that are taken.
  std::size_t points = 20'000'000;
  std::size_t steps = 5'000'000;
};

// What could not be drawn, or not all of it.
struct NotDrawn {
  std::string kind;   // as files name it: 3DSOLID, INSERT ...
  std::string reason; // a stable name: "body", "xref-not-loaded", "no-picture", "page", "limit" ...
  std::size_t count = 0;
  OdDbHandle first; // of the first one met
};

struct PictureReport {
  std::vector<NotDrawn> notDrawn; // in the order in which they were met
  bool isEmpty = false;           // nothing shows
  bool reachedLimit = false;      // the rest was not drawn
  OdGeExtents3d extents;          // of all that shows; not valid when nothing does
  std::size_t points = 0, steps = 0;
};

struct Bitmap {
  int width = 0, height = 0;
  // Rows from the top, four bytes a pixel: red, green, blue, alpha; colours are not multiplied by alpha.
  std::vector<std::uint8_t> rgba;
};

// The view is taken when the picture is made: later changes of the drawing do not show.
class MVDRAWING_API Picture {
public:
  // `block` is a space, a layout's block or a definition; anything else gives an empty picture. Sizes outside their
  // limits throw OdError(eInvalidInput).
  explicit Picture(OdDbObjectId block, const PictureOptions& options = {});
  ~Picture();
  Picture(Picture&&) noexcept;
  Picture& operator=(Picture&&) noexcept;

  const PictureReport& report() const;
  Bitmap bitmap() const;
  std::string png() const; // bytes of a file
  std::string svg() const;

private:
  struct Content;
  std::unique_ptr<Content> content_;
};

// The space that is current in the drawing: model space, or the sheet that was last active.
MVDRAWING_API OdDbObjectId currentSpaceOf(const OdDbDatabase& database);
// The block of the layout of that name, without regard to case; null when there is none.
MVDRAWING_API OdDbObjectId layoutBlock(const OdDbDatabase& database, const OdString& name);

} // namespace drawing

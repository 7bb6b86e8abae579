// Images of a drawing: a space or a block definition as a bitmap, PNG or SVG.
//
// An image is the view from above (against the z axis of the world, or of the block) of everything that is visible:
// layers that are off or frozen are not, references display their definitions at any depth, external references those
// drawings that are loaded. The drawing is not changed. A drawing and its images may be used by one thread at a time.
#pragma once

#include "DbDatabase.h"
#include "Ge/GeExtents3d.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace drawing {

// Options of an image.
struct PictureOptions {
  int width = 480, height = 320;                      // pixels; 1 to 30000 each, at most 100 million in total
  std::optional<std::uint32_t> background = 0xFFFFFF; // 0xRRGGBB; none: transparent
  // Area to display in drawing units; z does not matter. Not valid: everything, with a small margin.
  OdGeExtents3d window;
  // Limits of the work: points that are drawn, and steps (entities, repetitions of a reference).
  std::size_t points = 20'000'000;
  std::size_t steps = 5'000'000;
};

// Entities of a kind that were not drawn, or not completely.
struct NotDrawn {
  std::string kind;   // as in files: 3DSOLID, INSERT ...
  std::string reason; // a stable name: "body", "xref-not-loaded", "no-picture", "page", "limit" ...
  std::size_t count = 0;
  OdDbHandle first; // handle of the first one
};

// Result of drawing an image.
struct PictureReport {
  std::vector<NotDrawn> notDrawn; // in order of occurrence
  bool isEmpty = false;           // nothing is visible
  bool reachedLimit = false;      // the rest was not drawn
  OdGeExtents3d extents;          // of everything visible; not valid if nothing is
  std::size_t points = 0, steps = 0;
};

// An image in memory.
struct Bitmap {
  int width = 0, height = 0;
  // Rows from the top, four bytes per pixel: red, green, blue, alpha; colours are not premultiplied.
  std::vector<std::uint8_t> rgba;
};

// An image of a block at the time of its construction: later changes of the drawing have no effect.
class MVDRAWING_API Picture {
public:
  // `block`: a space, the block of a layout or a definition; anything else gives an empty image. Throws
  // OdError(eInvalidInput) for sizes outside their limits.
  explicit Picture(OdDbObjectId block, const PictureOptions& options = {});
  ~Picture();
  Picture(Picture&&) noexcept;
  Picture& operator=(Picture&&) noexcept;

  // The report, and the image in different forms; png and svg return the bytes of a file.
  const PictureReport& report() const;
  Bitmap bitmap() const;
  std::string png() const;
  std::string svg() const;

private:
  struct Content;
  std::unique_ptr<Content> content_;
};

// The current space of the drawing: model space, or the paper space layout that was active last (TILEMODE 0).
MVDRAWING_API OdDbObjectId currentSpaceOf(const OdDbDatabase& database);
// The block of the layout of that name, case does not matter; null if there is none.
MVDRAWING_API OdDbObjectId layoutBlock(const OdDbDatabase& database, const OdString& name);

} // namespace drawing

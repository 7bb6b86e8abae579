// External references: blocks whose contents are other drawings.
//
// For an external reference a drawing contains a block with the path of a file, and dependent records (layers
// NAME|LAYER
// ...). Loading opens the files and keeps their drawings in addition to the one that refers to them. It does not change
// that drawing: saving, dump and undo are the same.
#pragma once

#include "OdString.h"
#include "drawing/report.h"

#include <cstdint>
#include <functional>
#include <string>

class OdDbDatabase;

namespace drawing {

struct ReadResult;

// Status of a block as an external reference.
enum class XrefStatus : std::uint8_t {
  kNotAnXref,   // an ordinary block
  kNotLoaded,   // loading has not been attempted
  kLoaded,      // xrefDatabase() returns its drawing
  kUnloaded,    // unloaded by the user
  kNotFound,    // the file does not exist
  kRefused,     // the file is not a drawing that can be read, or there are too many
  kCycle,       // its drawing refers back to one that is being loaded
  kNotFollowed, // an overlay in a drawing that is an external reference itself
};

// Functions that find and open files.
struct XrefLoader {
  // The file for a path as the drawing `from` stores it; empty if there is none.
  std::function<std::string(const OdString& saved, const OdDbDatabase& from)> find;
  std::function<ReadResult(const std::string& path)> open; // empty: readDrawing
};

// Limits of loading.
struct XrefLimits {
  std::size_t drawings = 1000; // drawings that are opened
  std::size_t depth = 100;     // nesting of drawings
};

// Loads the drawings that `host` refers to and those that these refer to, in table order; drawings of an earlier call
// are released. A file is opened once, even if several paths name it. The report has notes ("xref.not-found",
// "xref.refused", "xref.cycle", "xref.unloaded", "xref.repaired", "xref.limit") for what could not be loaded as
// expected. Without `find` nothing is found.
MVDRAWING_API Report loadXrefs(OdDbDatabase& host, const XrefLoader& loader, const XrefLimits& limits = {});

} // namespace drawing

// External references: blocks that stand for other drawings.
//
// A drawing holds of an external reference a block with the path of a file, and names that came from there (layers
// NAME|LAYER and the like). Loading opens the files and keeps their drawings beside the one that refers to them. It
// changes nothing in it: it is saved, dumped and undone as before.
#pragma once

#include "OdString.h"
#include "drawing/report.h"

#include <cstdint>
#include <functional>
#include <string>

class OdDbDatabase;

namespace drawing {

struct ReadResult;

enum class XrefStatus : std::uint8_t {
  NotAnXref,   // an ordinary block
  NotLoaded,   // nobody tried yet
  Loaded,      // xrefDatabase() answers its drawing
  Unloaded,    // the user does not want it
  NotFound,    // there is no such file
  Refused,     // the file is no drawing that can be read, or there are too many
  Cycle,       // its drawing refers back to one that is being loaded
  NotFollowed, // an overlay in a drawing that is an external reference itself
};

struct XrefLoader {
  // The file for a path as the drawing `from` spells it; empty when there is none.
  std::function<std::string(const OdString& saved, const OdDbDatabase& from)> find;
  std::function<ReadResult(const std::string& path)> open; // empty: readDrawing
};

struct XrefLimits {
  std::size_t drawings = 1000; // that are opened
  std::size_t depth = 100;     // of drawings in drawings
};

// Loads the drawings that `host` refers to and those that these refer to, in table order; what an earlier call loaded
// is let go. A file is opened once, by whatever paths it is named. The report tells in notes ("xref.not-found",
// "xref.refused", "xref.cycle", "xref.unloaded", "xref.repaired", "xref.limit") what could not be loaded as it should;
// each such reference stays as it is. Without `find` nothing is found.
MVDRAWING_API Report loadXrefs(OdDbDatabase& host, const XrefLoader& loader, const XrefLimits& limits = {});

} // namespace drawing

// How matrices move text of several lines, as an entity and as the groups that attributes hold it in.
#pragma once

#include "Ge/GeMatrix3d.h"
#include "Ge/GeVector3d.h"
#include "drawing/detail/groups.h"

namespace drawing {

struct MTextFrame {
  OdGePoint3d location;
  OdGeVector3d direction{1, 0, 0};
  OdGeVector3d normal{0, 0, 1};
  // What the last transform made of lengths along the lines and across them.
  double alongScale = 1, acrossScale = 1;

  // False, and nothing changed, when the matrix would change the shape of letters. `nearest` takes such a matrix too:
  // the line is placed correctly, the glyphs stay upright on it.
  bool transform(const OdGeMatrix3d& matrix, bool nearest = false);
};

// The same for the groups of such a text from `first` to the list's end.
bool transformMTextGroups(GroupList& groups, std::size_t first, const OdGeMatrix3d& matrix, bool nearest);

// Columns, as groups behind the text's own.
void scaleColumns(GroupList& rest, const OdGeMatrix3d& matrix, double scale);

} // namespace drawing

// What an annotative entity looks like at its other scales: objects in its extension dictionary, with places and
// directions of their own.
#pragma once

#include "DbEntity.h"

#include <vector>

namespace drawing {

// Taken before an entity moves, because places may be in the frame of its plane.
class ContextData {
public:
  explicit ContextData(const OdDbEntity& entity);
  // Moves what is known of the kinds of representations; the entity has moved already.
  void move(const OdGeMatrix3d& matrix) const;

private:
  std::vector<OdDbObjectId> objects_;
  OdGeVector3d normal_{0, 0, 1};
};

} // namespace drawing

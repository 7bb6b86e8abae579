// What R12 can draw in place of entities that came after it.
#pragma once

#include "drawing/dxf/r12/writer.h"

#include <string>

namespace drawing::dxf {

struct Substitute {
  bool isWritten = false;              // whether anything was written
  Severity severity = Severity::kLost; // of the report
  std::string done;                    // what was written instead
};

// Writes what stands for the entity; `groups` are its sections.
Substitute writeSubstitute(const OdDbEntity& entity, const GroupList& groups, R12Writer& writer);

} // namespace drawing::dxf

// What versions of the format do not have.
#pragma once

#include "OdDb.h"

#include <string_view>

namespace drawing::dxf {

// Transparencies that say no more than their absence.
constexpr double kOpaque = 0x020000FF;  // one of its own that hides nothing
constexpr double kByBlock = 0x01000000; // the reference's, which is reported where it has one

// Groups of kinds that are older than the group itself.
struct GroupRule {
  std::string_view kind;   // "*": any
  std::string_view marker; // of the section
  int first, last;         // codes
  OdDb::DwgVersion since;
  const char* what;
  double neutral = kNoNeutral; // values that say no more than its absence
  double otherNeutral = kNoNeutral;
  static constexpr double kNoNeutral = -1e300;
  bool isNeutral(double value) const { return value == neutral || value == otherNeutral; }
};

// The rule by which a version does not have the group; null when it has it.
const GroupRule* missingGroup(std::string_view kind, std::string_view marker, int code, OdDb::DwgVersion version);

// Whether drawings of the version have that header variable (without $). Variables that are not listed are taken for
// those of every version, except that R12 has only those that it is known for.
bool hasHeaderVariable(std::string_view name, OdDb::DwgVersion version);

} // namespace drawing::dxf

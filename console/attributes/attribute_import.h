// Values of attributes from a table.
#pragma once

#include "console/session/session.h"

#include <string>
#include <vector>

namespace console {

struct ImportedAttributes {
  std::size_t changed = 0, same = 0;
  struct Misfit {
    std::size_t line = 0; // of the table
    Message reason;
  };
  std::vector<Misfit> misfits; // rows whose value went nowhere
};

// Takes the columns "handle", "tag" and "value", and "ordinal" and "block" where present, in any order; others are
// ignored. Rows that do not match the drawing are returned, all others are set. Throws, and changes nothing, for a file
// that cannot be read and for one that is not a table.
ImportedAttributes importAttributes(OdDbDatabase& database, const std::string& path);

} // namespace console

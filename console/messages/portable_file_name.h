// Names of files that are made from names of blocks.
#pragma once

#include "OdString.h"

#include <set>

namespace console {

// Names, without ending, that any common file system takes: no characters or device names that one of them keeps for
// itself, nothing that hides a file or reads as an option, at most 200 bytes, and no two that differ in case alone.
// Letters of all scripts stay. The same texts in the same order give the same names.
class PortableNames {
public:
  OdString add(const OdString& text);

private:
  std::set<OdString> taken_; // in lower case
};

} // namespace console

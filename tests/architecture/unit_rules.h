// Direction between the units of blockcommon.
//
// A unit is a public header with the sources that implement it. A source belongs to the unit whose name begins its own
// (block_names_extended.cpp to block_names), else to the unit of the first public header that it includes; a private
// header that includes no public one belongs with the first private header that it includes, or to nobody.
#pragma once

#include "tests/architecture/source_tree.h"

namespace architecture {

struct UnitRule {
  std::string unit;              // stem of the header in blockcommon/include/blockcommon
  std::vector<std::string> uses; // the only other units it may include
};

// The project's table. A unit or a pair that is not in it is refused; whoever needs one more adds it here.
const std::vector<UnitRule>& unitTable();

// Headers below all units (export marks, shared types): everyone includes them, they include each other.
const std::vector<std::string>& foundationHeaders();

// Pairs that the table allows and that together run in a circle, or that name no unit of the table.
std::vector<Finding> checkTable(const std::vector<UnitRule>& table);

std::vector<Finding> checkUnits(const SourceTree& tree, const std::vector<UnitRule>& table);

// The unit of that file; "" when it belongs to none.
std::string unitOf(const SourceTree& tree, const std::vector<UnitRule>& table, const std::string& path);

} // namespace architecture

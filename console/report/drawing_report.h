// The contents of a drawing, above all its blocks. Collects data; prints nothing.
#pragma once

#include "DbDatabase.h"
#include "Ge/GePoint3d.h"
#include "OdString.h"
#include "drawing/xref.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace console::report {

struct AttributeDefinition {
  OdString tag, prompt, text; // text: the default
  bool isConstant = false, isPreset = false, isVerifiable = false, isInvisible = false, isMultiline = false;
};

struct Xref {
  bool overlay = false, resolved = false, unloaded = false; // as the file flags it
  drawing::XrefStatus status = drawing::XrefStatus::kNotLoaded;
  OdString path;
};

// How often a block is shown. An array is one reference and counts its rows times its columns when it is shown.
struct Counts {
  std::uint64_t direct = 0; // references anywhere in the drawing
  std::uint64_t nested = 0; // places where model space shows it; at most kMaxInstances
  Counts& operator+=(const Counts& other);
};
inline constexpr std::uint64_t kMaxInstances = std::uint64_t{1}
                                               << 53; // every JSON reader can distinguish it from its neighbours

struct Block {
  OdDbObjectId id;
  OdString name;
  OdString trueName; // dynamic definitions and their shapes; empty for others
  bool isAnonymous = false, isSpace = false, isDependent = false;
  OdString layout; // of a space
  std::optional<Xref> xref;
  OdGePoint3d base;
  OdString description;
  bool isAnnotative = false;
  std::optional<bool> isExplodable, isUniform; // none: the drawing does not say
  std::optional<int> units;                    // OdDb::UnitsValue; none: the drawing does not say
  std::map<std::string, std::size_t> entities; // by DXF type; parts of entities are not counted
  std::vector<AttributeDefinition> attributes;
  Counts references;
  std::optional<Counts> withDynamicInstances; // of a dynamic definition: its own references and those of its shapes
  std::uint32_t depth = 1;                    // 1: it contains no references
};

struct Layer {
  OdString name, linetype;
  bool isLocked = false, isFrozen = false, isOff = false;
  int color = 7;
};

struct Header {
  std::string acadver;
  std::optional<OdString> codepage, clayer; // none: the drawing does not say
  std::optional<int> insunits, measurement;
  std::optional<OdGePoint3d> insbase;
};

struct DrawingReport {
  Header header;
  std::vector<Layer> layers; // in table order
  std::vector<Block> blocks; // in table order, spaces and anonymous ones included
};

// Takes time and memory in proportion to the drawing, however deep blocks are nested.
DrawingReport reportOf(OdDbDatabase& database);

// Blocks that people have named: neither spaces nor anonymous nor what came with an external reference.
bool isOrdinary(const Block& block);

} // namespace console::report

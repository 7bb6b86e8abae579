#include "drawing/dxf/r12/group_rules.h"

#include "drawing/io/version_rules.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

namespace drawing::dxf {

namespace {

// Codes as ranges, so that points are one.
struct Range {
  int first, last;
};
struct Kind {
  std::string_view name;
  bool isEntity;
  std::initializer_list<Range> codes;
};

const Kind kKinds[] = {
    {"3DFACE", true, {{10, 13}, {20, 23}, {30, 33}, {70, 70}}},
    {"APPID", false, {{2, 2}, {70, 70}}},
    {"ARC", true, {{10, 10}, {20, 20}, {30, 30}, {40, 40}, {50, 51}}},
    {"ATTDEF", true, {{1, 3}, {7, 7}, {10, 11}, {20, 21}, {30, 31}, {40, 41}, {50, 51}, {70, 74}}},
    {"ATTRIB", true, {{1, 2}, {7, 7}, {10, 11}, {20, 21}, {30, 31}, {40, 41}, {50, 51}, {70, 74}}},
    {"BLOCK", true, {{1, 4}, {10, 10}, {20, 20}, {30, 30}, {70, 70}}},
    {"CIRCLE", true, {{10, 10}, {20, 20}, {30, 30}, {40, 40}}},
    {"DIMENSION", true, {{1, 3}, {10, 16}, {20, 26}, {30, 36}, {40, 40}, {50, 53}, {70, 70}}},
    {"DIMSTYLE", false, {{2, 7}, {40, 48}, {70, 78}, {140, 147}, {170, 178}}},
    {"ENDBLK", true, {}},
    {"INSERT", true, {{2, 2}, {10, 10}, {20, 20}, {30, 30}, {41, 45}, {50, 50}, {66, 66}, {70, 71}}},
    {"LAYER", false, {{2, 2}, {6, 6}, {62, 62}, {70, 70}}},
    {"LINE", true, {{10, 11}, {20, 21}, {30, 31}}},
    {"LTYPE", false, {{2, 3}, {40, 40}, {49, 49}, {70, 70}, {72, 73}}},
    {"POINT", true, {{10, 10}, {20, 20}, {30, 30}, {50, 50}}},
    {"POLYLINE", true, {{10, 10}, {20, 20}, {30, 30}, {40, 41}, {66, 66}, {70, 75}}},
    {"SEQEND", true, {}},
    {"SHAPE", true, {{2, 2}, {10, 10}, {20, 20}, {30, 30}, {40, 41}, {50, 51}}},
    {"SOLID", true, {{10, 13}, {20, 23}, {30, 33}}},
    {"STYLE", false, {{2, 4}, {40, 42}, {50, 50}, {70, 71}}},
    {"TEXT", true, {{1, 1}, {7, 7}, {10, 11}, {20, 21}, {30, 31}, {40, 41}, {50, 51}, {71, 73}}},
    {"TRACE", true, {{10, 13}, {20, 23}, {30, 33}}},
    {"UCS", false, {{2, 2}, {10, 12}, {20, 22}, {30, 32}, {70, 70}}},
    {"VERTEX", true, {{10, 10}, {20, 20}, {30, 30}, {40, 42}, {50, 50}, {70, 74}}},
    {"VIEW", false, {{2, 2}, {10, 12}, {20, 22}, {31, 32}, {40, 44}, {50, 50}, {70, 71}}},
    {"VIEWPORT", true, {{10, 10}, {20, 20}, {30, 30}, {40, 41}, {68, 69}}},
    {"VPORT", false, {{2, 2}, {10, 17}, {20, 27}, {36, 37}, {40, 44}, {50, 51}, {70, 78}}},
};

// Of every entity: handle, linetype, layer, thickness, colour, paper space, normal.
constexpr Range kCommon[] = {{5, 6}, {8, 8}, {39, 39}, {62, 62}, {67, 67}, {210, 210}, {220, 220}, {230, 230}};

const Kind* find(std::string_view kind) {
  const auto* at = std::lower_bound(std::begin(kKinds), std::end(kKinds), kind,
                                    [](const Kind& k, std::string_view name) { return k.name < name; });
  return at != std::end(kKinds) && at->name == kind ? at : nullptr;
}

struct Name {
  std::string_view kind; // "*": any entity
  int code;
  OdDb::SymbolTableKind table;
};

constexpr Name kNames[] = {
    {"DIMSTYLE", 5, OdDb::kBlockTable},
    {"DIMSTYLE", 6, OdDb::kBlockTable},
    {"DIMSTYLE", 7, OdDb::kBlockTable},
    {"*", 6, OdDb::kLinetypeTable},
    {"*", 8, OdDb::kLayerTable},
    {"*", 7, OdDb::kTextStyleTable},
    {"INSERT", 2, OdDb::kBlockTable},
    {"BLOCK", 2, OdDb::kBlockTable},
    {"BLOCK", 3, OdDb::kBlockTable},
    {"DIMENSION", 2, OdDb::kBlockTable},
    {"DIMENSION", 3, OdDb::kDimStyleTable},
    {"LAYER", 2, OdDb::kLayerTable},
    {"LTYPE", 2, OdDb::kLinetypeTable},
    {"STYLE", 2, OdDb::kTextStyleTable},
    {"DIMSTYLE", 2, OdDb::kDimStyleTable},
    {"APPID", 2, OdDb::kRegAppTable},
    {"UCS", 2, OdDb::kUcsTable},
    {"VIEW", 2, OdDb::kViewTable},
    {"*", 1003, OdDb::kLayerTable},
    {"*", 1001, OdDb::kRegAppTable},
};

// Groups of later versions. The first row that fits counts.
struct Loss {
  std::string_view kind; // "*": any
  int first, last;
  std::string_view what; // "": nothing
  double neutral = -1e300;
};

constexpr Loss kLosses[] = {
    {"*", 0, 0, ""},
    {"*", 5, 5, ""}, // R12 numbers entities alone
    {"*", 100, 105, ""},
    {"*", 160, 160, ""},
    {"*", 310, 319, ""}, // pictures
    {"*", 320, 369, ""}, // records by handle, reported where their meaning is lost
    {"*", 380, 399, ""},
    {"*", 410, 410, ""},
    {"*", 420, 439, "the true color"},
    {"*", 440, 440, "the transparency", 0},
    {"*", 284, 284, ""},
    {"LAYER", 290, 290, "the plot setting of the layer", 1},
    {"LAYER", 370, 370, "the lineweight", -3},
    {"*", 370, 370, "the lineweight", -1},
    {"VPORT", 0, 999, ""}, // settings of the screen
    {"VIEW", 0, 999, "view settings", 0},
    {"UCS", 0, 999, ""},
    {"VIEWPORT", 0, 999, ""}, // R12 stores it in extended data
    {"DIMSTYLE", 0, 999, "settings of later versions", 0},
    {"STYLE", 0, 999, ""},
    {"LTYPE", 74, 74, "shapes and texts in the linetype", 0},
    {"LTYPE", 0, 999, ""},
    {"DIMENSION", 71, 71, "the text position", 5},
    {"DIMENSION", 41, 41, "the text line spacing", 1},
    {"DIMENSION", 72, 72, "the text line spacing", 1},
    {"DIMENSION", 42, 42, ""}, // what was measured
    {"DIMENSION", 73, 75, "flipped arrows", 0},
    {"DIMENSION", 280, 280, ""},
    {"ATTDEF", 280, 280, "the locked position", 0},
    {"ATTRIB", 280, 280, "the locked position", 0},
    {"VERTEX", 91, 91, ""},
    {"*", 48, 48, "the linetype scale", 1},
    {"*", 60, 60, "the visibility", 0},
    {"BLOCK", 0, 999, ""},
    {"ENDBLK", 0, 999, ""},
};

} // namespace

bool isR12Kind(std::string_view kind) {
  return find(kind) != nullptr;
}

bool hasR12Code(std::string_view kind, int code) {
  const auto contains = [code](const Range& range) { return code >= range.first && code <= range.last; };
  const Kind* known = find(kind);
  return known != nullptr && (std::any_of(known->codes.begin(), known->codes.end(), contains) ||
                              (known->isEntity && std::any_of(std::begin(kCommon), std::end(kCommon), contains)));
}

OdDb::SymbolTableKind r12NameTable(std::string_view kind, int code) {
  const auto* found = std::find_if(std::begin(kNames), std::end(kNames), [&](const Name& name) {
    return name.code == code && (name.kind == "*" || name.kind == kind);
  });
  return found == std::end(kNames) ? OdDb::kNoTable : found->table;
}

std::string_view r12Loss(std::string_view kind, int code, double value) {
  const auto* found = std::find_if(std::begin(kLosses), std::end(kLosses), [&](const Loss& loss) {
    return code >= loss.first && code <= loss.last && (loss.kind == "*" || loss.kind == kind);
  });
  if (code == 440 && (value == kOpaque || value == kByBlock))
    return {};
  if (found == std::end(kLosses))
    return "a value of later versions";
  return value == found->neutral ? std::string_view() : found->what;
}

} // namespace drawing::dxf

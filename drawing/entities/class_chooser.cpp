#include "entities/class_chooser.h"

#include "DbBlockReference.h"

#include <charconv>
#include <utility>

namespace drawing {

namespace {

using Groups = std::span<const Pair>;

constexpr int kFirstXData = 1000, kEmbedded = 101, kMarker = 100;

// The record's own groups: without embedded objects and extended data.
Groups ownGroups(Groups groups) {
  for (std::size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code >= kFirstXData || groups[i].code == kEmbedded)
      return groups.first(i);
  }
  return groups;
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The first value under that code.
std::int64_t integerOf(Groups groups, int code, std::int64_t absent) {
  for (const Pair& pair : groups) {
    if (pair.code != code)
      continue;
    std::int64_t value = absent;
    if (pair.form == Pair::Form::Integer)
      return pair.integer;
    const std::string_view text = trimmed(pair.text);
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
  }
  return absent;
}

bool hasMarker(Groups groups, std::string_view marker) {
  for (const Pair& pair : groups) {
    if (pair.code == kMarker && trimmed(pair.text) == marker)
      return true;
  }
  return false;
}

OdRxClass* chooseInsert(Groups groups) {
  const bool multiple =
      hasMarker(groups, "AcDbMInsertBlock") || integerOf(groups, 70, 1) > 1 || integerOf(groups, 71, 1) > 1;
  return multiple ? OdDbMInsertBlock::desc() : OdDbBlockReference::desc();
}

struct Chooser {
  std::string_view dxfName;
  OdRxClass* (*choose)(Groups);
};

constexpr Chooser kChoosers[] = {
    {"INSERT", chooseInsert},
};

} // namespace

OdRxClass* chooseClass(std::string_view dxfName, std::span<const Pair> groups) {
  for (const Chooser& chooser : kChoosers) {
    if (chooser.dxfName == dxfName)
      return chooser.choose(ownGroups(groups));
  }
  return odrxClassDictionary().findByDxfName(dxfName);
}

} // namespace drawing

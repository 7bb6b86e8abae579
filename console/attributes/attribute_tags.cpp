#include "console/attributes/attribute_tags.h"

#include <charconv>

namespace console {
namespace {

// The number behind the last '#'; nothing when there is none.
std::optional<int> ordinalOf(const OdString& entered, int sharp) {
  const std::string digits = entered.mid(sharp + 1).toUtf8();
  int ordinal = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), ordinal);
  const bool whole = error == std::errc() && end == digits.data() + digits.size();
  return whole ? std::optional(ordinal) : std::nullopt;
}

} // namespace

std::wstring foldedTag(const OdString& tag) {
  OdString capitals = tag;
  for (int i = 0; i < capitals.getLength(); ++i)
    capitals.setAt(i, foldCase(capitals.getAt(i)));
  return capitals.str();
}

int TagIndex::add(const OdString& tag) {
  std::vector<std::size_t>& ordinals = ordinals_[foldedTag(tag)];
  ordinals.push_back(size_++);
  return static_cast<int>(ordinals.size());
}

std::size_t TagIndex::count(const OdString& tag) const {
  const auto found = ordinals_.find(foldedTag(tag));
  return found == ordinals_.end() ? 0 : found->second.size();
}

std::optional<std::size_t> TagIndex::find(const OdString& tag, int ordinal) const {
  const auto found = ordinals_.find(foldedTag(tag));
  if (found == ordinals_.end() || ordinal < 1 || static_cast<std::size_t>(ordinal) > found->second.size())
    return std::nullopt;
  return found->second[static_cast<std::size_t>(ordinal) - 1];
}

std::optional<std::size_t> TagIndex::findEntered(const OdString& entered) const {
  if (const auto whole = find(entered, 1))
    return whole;
  const int sharp = entered.reverseFind(L'#');
  const std::optional<int> ordinal = sharp < 0 ? std::nullopt : ordinalOf(entered, sharp);
  if (!ordinal)
    return std::nullopt;
  if (sharp > 0)
    return find(entered.left(sharp), *ordinal);
  const bool there = *ordinal >= 1 && static_cast<std::size_t>(*ordinal) <= size_;
  return there ? std::optional(static_cast<std::size_t>(*ordinal) - 1) : std::nullopt;
}

} // namespace console

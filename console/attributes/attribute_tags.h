// Attributes, or their definitions, as people name them: by tag, and by ordinal where a tag occurs more than once.
#pragma once

#include "OdString.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace console {

// A tag as it is compared.
std::wstring foldedTag(const OdString& tag);

// Places in a row of tags. Tags are compared without regard to case.
class TagIndex {
public:
  int add(const OdString& tag); // behind the others; answers its ordinal among equal ones, from 1
  std::size_t count(const OdString& tag) const;
  std::optional<std::size_t> find(const OdString& tag, int ordinal) const;
  // TAG, TAG#2 for the second of that tag, or #3 for the third of all.
  std::optional<std::size_t> findEntered(const OdString& entered) const;

private:
  std::map<std::wstring, std::vector<std::size_t>> ordinals_; // by the folded tag
  std::size_t size_ = 0;
};

} // namespace console

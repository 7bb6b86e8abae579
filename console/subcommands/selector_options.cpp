#include "console/subcommands/selector_options.h"
#include "console/messages/catalog/usage.h"

#include "console/messages/number_text.h"
#include "console/subcommands/subcommand.h"

namespace console::subcommands {

void SelectorOptions::describe(OptionTable& subcommand) {
  subcommand.add("--select", select_, "all: all objects of model space").oneOf({"all"});
  subcommand.add("--layer", layers_, "Objects on this layer");
  subcommand.add("--type", types_, "Objects of this type, such as LINE");
  subcommand.add("--handle", handles_, "The object with this handle");
}

void SelectorOptions::check() const {
  for (const std::string& handle : handles_) {
    if (!parseHandle(handle))
      refuseUsage(msg::kBadHandle, "--handle", handle);
  }
}

bool SelectorOptions::areGiven() const {
  return !selectors().empty();
}

std::vector<Selector> SelectorOptions::selectors() const {
  std::vector<Selector> all;
  if (!select_.empty())
    all.push_back({Selector::Kind::kAll, {}});
  const auto add = [&all](Selector::Kind kind, const std::vector<std::string>& values) {
    for (const std::string& value : values)
      all.push_back({kind, OdString::fromUtf8(value)});
  };
  add(Selector::Kind::kLayer, layers_);
  add(Selector::Kind::kType, types_);
  add(Selector::Kind::kHandle, handles_);
  return all;
}

} // namespace console::subcommands

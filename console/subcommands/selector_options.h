// The options by which subcommands pick objects of model space.
#pragma once

#include "console/prompts/selection.h"
#include "console/subcommands/options.h"

#include <string>
#include <vector>

namespace console::subcommands {

class SelectorOptions {
public:
  void describe(OptionTable& subcommand);
  void check() const; // throws the usage Failure for an invalid handle
  bool areGiven() const;
  std::vector<Selector> selectors() const;

private:
  std::string select_;
  std::vector<std::string> layers_, types_, handles_;
};

} // namespace console::subcommands

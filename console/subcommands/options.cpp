#include "console/subcommands/options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <stdexcept>
#include <type_traits>

namespace console::subcommands {

OptionTable& OptionTable::addGroup(std::string name, std::string help, std::size_t minimum, std::size_t maximum) {
  OptionTable& group = groups_.emplace_back(std::move(name), std::move(help));
  group.minimum_ = minimum;
  group.maximum_ = maximum;
  return group;
}

OptionTable& OptionTable::addSubcommand(std::string name, std::string help) {
  return subcommands_.emplace_back(std::move(name), std::move(help));
}

bool OptionTable::isGiven(const std::string& name) const {
  return std::find(given_.begin(), given_.end(), name) != given_.end();
}

// The tables as the parser's own objects, for one parsing.
class CommandLine {
public:
  explicit CommandLine(OptionTable& program) : program_(program), app_(program.help_, program.name_) {
    describe(app_, program);
    if (!program.version_.empty())
      app_.set_version_flag("--version", program.version_);
    app_.require_subcommand(0, 1);
    for (OptionTable& subcommand : program.subcommands_) {
      CLI::App& parser = *app_.add_subcommand(subcommand.name_, subcommand.help_);
      describe(parser, subcommand);
      parser.fallthrough();
      parser.footer(program.subcommandFooter_);
    }
  }

  void parse(std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
    app_.parse(arguments);
    for (OptionTable& subcommand : program_.subcommands_)
      recordGiven(*app_.get_subcommand(subcommand.name_), subcommand);
    refuseWithoutSubcommand();
  }

  std::string helpText(const CLI::Success& success) const {
    std::ostringstream text;
    app_.exit(success, text, text);
    return text.str();
  }

private:
  static void describe(CLI::App& parser, OptionTable& table) {
    for (Option& option : table.options_)
      add(parser, option);
    for (OptionTable& group : table.groups_) {
      CLI::App& inner = *parser.add_option_group(group.name_, group.help_);
      describe(inner, group);
      inner.require_option(group.minimum_, group.maximum_);
    }
    for (const Option& option : table.options_)
      relate(parser, option);
  }

  static void add(CLI::App& parser, Option& option) {
    CLI::Option* added = std::visit([&](auto* value) { return addTyped(parser, option, *value); }, option.value);
    added->required(option.isRequired);
    if (!option.allowed.empty())
      added->check(CLI::IsMember(option.allowed));
  }

  template <class T>
  static CLI::Option* addTyped(CLI::App& parser, const Option& option, T& value) {
    if constexpr (std::is_same_v<T, bool>)
      return parser.add_flag(option.names, value, option.help);
    else
      return limit(parser.add_option(option.names, value, option.help), option, value);
  }

  template <class T>
  static CLI::Option* limit(CLI::Option* added, const Option& option, const T& value) {
    if constexpr (std::is_same_v<T, std::vector<std::string>>)
      added->allow_extra_args(false);
    if constexpr (std::is_integral_v<T>) {
      using Wide = decltype(+value); // unit of the limits in messages
      if (option.maximum != 0)
        added->check(CLI::Range(static_cast<Wide>(option.minimum), static_cast<Wide>(option.maximum)));
    }
    return added;
  }

  static void relate(CLI::App& parser, const Option& option) {
    CLI::Option* own = parser.get_option(firstName(option));
    for (const std::string& other : option.excluded)
      own->excludes(parser.get_option(other));
    for (const std::string& other : option.needed)
      own->needs(parser.get_option(other));
  }

  static std::string firstName(const Option& option) {
    const std::string name = option.names.substr(0, option.names.find(','));
    return name.substr(name.starts_with('!') ? 1 : 0);
  }

  static void recordGiven(const CLI::App& parser, OptionTable& subcommand) {
    subcommand.isChosen_ = parser.parsed();
    for (const Option& option : subcommand.options_) {
      if (parser.count(firstName(option)) > 0)
        subcommand.given_.push_back(firstName(option));
    }
  }

  // A verb names its own file; what is left over falls through to the program's own.
  void refuseWithoutSubcommand() const {
    if (app_.get_subcommands().empty())
      return;
    for (const Option& option : program_.options_) {
      if (option.isWithoutSubcommand && !std::get<std::string*>(option.value)->empty())
        throw CLI::ExtrasError({*std::get<std::string*>(option.value)});
    }
  }

  OptionTable& program_;
  CLI::App app_;
};

ParsedLine parseOptions(OptionTable& program, const std::vector<std::string>& arguments) {
  CommandLine line(program);
  try {
    line.parse(arguments);
  } catch (const CLI::Success& success) { // help or version
    return {ParsedLine::Kind::kHelp, line.helpText(success)};
  } catch (const CLI::Error& error) {
    return {ParsedLine::Kind::kWrong, error.what()};
  } catch (const std::out_of_range&) { // which the parser lets through for the number of a negated flag
    return {ParsedLine::Kind::kWrong, "The number given to a flag is too large"};
  }
  return {};
}

} // namespace console::subcommands

// Options of the program and of its subcommands, declared as data. Parsing a command line against them is one function.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace console::subcommands {

// One option, flag or operand. Names are written as in "-o,--output"; a name without dashes is an operand, and
// "!--no-x" is a flag that sets its value to false. A list takes one value each time that the option is given.
struct Option {
  using Value =
      std::variant<std::string*, std::vector<std::string>*, bool*, std::int16_t*, std::uint32_t*, std::uint64_t*>;

  Option& required() { return isRequired = true, *this; }
  Option& excludes(std::string other) { return excluded.push_back(std::move(other)), *this; }
  Option& needs(std::string other) { return needed.push_back(std::move(other)), *this; }
  Option& oneOf(std::vector<std::string> words) { return allowed = std::move(words), *this; }
  Option& between(std::uint64_t low, std::uint64_t high) {
    return minimum = low, maximum = high, *this;
  }                                                                         // numbers only
  Option& withoutSubcommand() { return isWithoutSubcommand = true, *this; } // texts only

  std::string names;
  Value value; // keeps what it has while the option is not given
  std::string help;
  bool isRequired = false;
  bool isWithoutSubcommand = false;                    // refused beside a verb
  std::vector<std::string> excluded = {}, needed = {}; // by one name each
  std::vector<std::string> allowed = {};               // empty: all
  std::uint64_t minimum = 0, maximum = 0;              // most 0: any
};

class OptionTable {
public:
  OptionTable(std::string name, std::string help) : name_(std::move(name)), help_(std::move(help)) {}

  // The value must live as long as the table is parsed with.
  template <class T>
  Option& add(std::string names, T& value, std::string help) {
    return options_.emplace_back(Option{std::move(names), &value, std::move(help)});
  }
  // Options of which so many are to be given.
  OptionTable& addGroup(std::string name, std::string help, std::size_t minimum, std::size_t maximum);
  OptionTable& addSubcommand(std::string name, std::string help);
  void setVersion(std::string text) { version_ = std::move(text); }                   // printed by --version
  void setSubcommandFooter(std::string text) { subcommandFooter_ = std::move(text); } // ends the help of every verb

  bool isChosen() const { return isChosen_; } // the verb was named
  bool isGiven(const std::string& name) const;

private:
  friend class CommandLine;

  std::string name_, help_, version_, subcommandFooter_;
  std::deque<Option> options_; // references to them stay valid
  std::deque<OptionTable> groups_, subcommands_;
  std::size_t minimum_ = 0, maximum_ = 0;
  std::vector<std::string> given_;
  bool isChosen_ = false;
};

struct ParsedLine {
  enum class Kind { kReady, kHelp, kWrong };
  Kind kind = Kind::kReady;
  std::string text; // the help or the version as it is printed; what is wrong, without a line end
};

// Fills in the values of the program's table and of the verb that the arguments name. Options of the program may come
// after the verb.
ParsedLine parseOptions(OptionTable& program, const std::vector<std::string>& arguments);

} // namespace console::subcommands

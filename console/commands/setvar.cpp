#include "console/commands/commands.h"
#include "console/messages/catalog/variables.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"

#include <charconv>

namespace console::commands {
namespace {

using morvane::VariableValue;

struct ValueText {
  OdString operator()(std::int16_t value) const { return OdString(std::to_wstring(value)); }
  OdString operator()(std::int32_t value) const { return OdString(std::to_wstring(value)); }
  OdString operator()(double value) const { return exactText(value); }
  OdString operator()(const OdString& value) const { return L"\"" + value + L"\""; }
  OdString operator()(const morvane::VariablePoint2d& value) const {
    return exactText(value[0]) + L"," + exactText(value[1]);
  }
  OdString operator()(const morvane::VariablePoint3d& value) const {
    return exactText(value[0]) + L"," + exactText(value[1]) + L"," + exactText(value[2]);
  }
};

// The typed text as a value of the kind that the variable has.
class Reader {
public:
  explicit Reader(const OdString& text) : text_(text), utf8_(text.toUtf8()) {}

  std::optional<VariableValue> operator()(std::int16_t) const { return whole<std::int16_t>(); }
  std::optional<VariableValue> operator()(std::int32_t) const { return whole<std::int32_t>(); }
  std::optional<VariableValue> operator()(double) const {
    const auto real = morvane::parseDistance(text_.str());
    return real ? std::optional<VariableValue>(*real) : std::nullopt;
  }
  std::optional<VariableValue> operator()(const OdString&) const { return text_ == L"." ? OdString() : text_; }
  std::optional<VariableValue> operator()(const morvane::VariablePoint2d&) const {
    const auto point = parsePoint(utf8_);
    return point ? std::optional<VariableValue>(morvane::VariablePoint2d{point->x, point->y}) : std::nullopt;
  }
  std::optional<VariableValue> operator()(const morvane::VariablePoint3d&) const {
    const auto point = parsePoint(utf8_);
    return point ? std::optional<VariableValue>(morvane::VariablePoint3d{point->x, point->y, point->z}) : std::nullopt;
  }

private:
  template <class Number>
  std::optional<VariableValue> whole() const {
    Number number = 0;
    const auto [end, error] = std::from_chars(utf8_.data(), utf8_.data() + utf8_.size(), number);
    const bool all = error == std::errc() && end == utf8_.data() + utf8_.size();
    return all ? std::optional<VariableValue>(number) : std::nullopt;
  }
  OdString text_;
  std::string utf8_;
};

} // namespace

void setvar(CommandContext& context) {
  Session& session = context.session;
  morvane::VariableStore& variables = session.host().variables();
  OdString name = promptText(session, msg::kPromptVariable).value_or(OdString());
  name.makeUpper();
  const auto before = variables.get(name.str());
  if (!before)
    refuse(msg::kNoSuchVariable, {name});
  const auto entered = promptText(session, msg::kPromptValue, {name, std::visit(ValueText(), *before)});
  if (entered) {
    const auto value = std::visit(Reader(*entered), *before);
    if (!value || variables.set(name.str(), *value) != RTNORM)
      refuse(msg::kVariableRefused, {name, *entered});
  }
  session.result(msg::kVariableLine, {name, std::visit(ValueText(), *variables.get(name.str()))});
}

} // namespace console::commands

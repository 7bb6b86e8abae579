#include "console/messages/json.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace console {

// Converts into the library's value, which knows how to write numbers and texts.
struct JsonPrinter {
  using Printed = nlohmann::ordered_json;

  static Printed of(const Json& json) {
    return std::visit([](const auto& value) { return of(value); }, json.value_);
  }
  static Printed of(const auto& value) { return value; }
  static Printed of(const Json::Array& values) {
    Printed printed = Printed::array();
    for (const Json& value : values)
      printed.push_back(of(value));
    return printed;
  }
  static Printed of(const Json::Object& object) {
    Printed printed = Printed::object();
    for (std::size_t at = 0; at < object.names.size(); ++at)
      printed[object.names[at]] = of(object.values[at]);
    return printed;
  }
};

namespace {

// The number of names when it is not there.
std::size_t positionOf(const std::vector<std::string>& names, const std::string& name) {
  return static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
}

} // namespace

Json::Json(std::initializer_list<Member> members) : value_(Object()) {
  for (const Member& member : members)
    (*this)[member.name] = member.value;
}

// Here and not in each source that builds a result.
Json::Json(const Json& other) = default;
Json::Json(Json&& other) noexcept = default;
Json& Json::operator=(const Json& other) = default;
Json& Json::operator=(Json&& other) noexcept = default;
Json::~Json() = default;

Json Json::array(std::initializer_list<Json> values) {
  Json json;
  json.value_ = Array(values);
  return json;
}

Json Json::object() {
  Json json;
  json.value_ = Object();
  return json;
}

Json& Json::operator[](const std::string& name) {
  if (std::holds_alternative<std::nullptr_t>(value_))
    value_ = Object();
  Object& object = std::get<Object>(value_);
  const std::size_t at = positionOf(object.names, name);
  if (at < object.names.size())
    return object.values[at];
  object.names.push_back(name);
  return object.values.emplace_back();
}

void Json::push_back(Json value) {
  if (std::holds_alternative<std::nullptr_t>(value_))
    value_ = Array();
  std::get<Array>(value_).push_back(std::move(value));
}

void Json::update(const Json& members) {
  const Object& added = std::get<Object>(members.value_);
  for (std::size_t at = 0; at < added.names.size(); ++at)
    (*this)[added.names[at]] = added.values[at];
}

const Json& Json::at(const std::string& name) const {
  const Object& object = std::get<Object>(value_);
  return object.values.at(positionOf(object.names, name));
}

std::string Json::dump() const {
  return JsonPrinter::of(*this).dump(2, ' ', false, JsonPrinter::Printed::error_handler_t::replace);
}

} // namespace console

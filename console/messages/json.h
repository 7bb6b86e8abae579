// A JSON value that results are built of. Members of an object keep the order in which they were added.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace console {

class Json {
public:
  struct Member;
  using Array = std::vector<Json>;

  Json(std::nullptr_t = nullptr) {}
  Json(bool value) : value_(value) {}
  Json(std::signed_integral auto value) : value_(static_cast<std::int64_t>(value)) {}
  Json(std::unsigned_integral auto value) : value_(static_cast<std::uint64_t>(value)) {}
  Json(double value) : value_(value) {}
  Json(const char* text) : value_(std::string(text)) {}
  Json(std::string text) : value_(std::move(text)) {} // UTF-8
  Json(std::initializer_list<Member> members);        // {{"name", value}, ...}
  template <class T>
  Json(const std::vector<T>& values) : value_(Array(values.begin(), values.end())) {}
  template <class T>
  Json(const std::map<std::string, T>& values);

  Json(const Json& other);
  Json(Json&& other) noexcept;
  Json& operator=(const Json& other);
  Json& operator=(Json&& other) noexcept;
  ~Json();

  static Json array(std::initializer_list<Json> values = {});
  static Json object();

  // A value that is null becomes an object or an array first. Anything else than these is a mistake of the caller.
  Json& operator[](const std::string& name); // the member, which is added when it is not there
  void push_back(Json value);
  void update(const Json& members); // adds those of another object, in place of those of the same names

  const Json& at(const std::string& name) const;
  const Array& items() const { return std::get<Array>(value_); }
  Json& back() { return std::get<Array>(value_).back(); }
  std::size_t size() const { return items().size(); }
  const std::string& text() const { return std::get<std::string>(value_); }

  // Indented by two, without a line end. Bytes that are not UTF-8 are shown as U+FFFD.
  std::string dump() const;

private:
  friend struct JsonPrinter;
  struct Object { // values under the names at the same places
    std::vector<std::string> names;
    Array values;
  };

  std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, std::string, Array, Object> value_;
};

struct Json::Member {
  std::string name;
  Json value;
};

template <class T>
Json::Json(const std::map<std::string, T>& values) : value_(Object()) {
  for (const auto& [name, value] : values)
    (*this)[name] = value;
}

} // namespace console

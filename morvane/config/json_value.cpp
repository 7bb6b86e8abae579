#include "morvane/config.h"
#include "morvane/config/json_document.h"

#include <charconv>
#include <limits>
#include <string_view>

namespace {

using nlohmann::json;

constexpr std::size_t kMaxPathDepth = 64;

std::vector<std::string> splitPath(const char* path) {
  std::vector<std::string> keys;
  std::string_view rest = path == nullptr ? "" : path;
  while (!rest.empty()) {
    const auto slash = std::min(rest.find('/'), rest.size());
    if (slash != 0)
      keys.emplace_back(rest.substr(0, slash));
    rest.remove_prefix(std::min(slash + 1, rest.size()));
  }
  return keys;
}

json* elementOf(json& list, const std::string& key) {
  std::size_t index = 0;
  const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), index);
  const bool isIndex = error == std::errc() && end == key.data() + key.size();
  return isIndex && index < list.size() ? &list[index] : nullptr;
}

json* childOf(json& parent, const std::string& key) {
  if (parent.is_array())
    return elementOf(parent, key);
  const auto found = parent.is_object() ? parent.find(key) : parent.end();
  return found == parent.end() ? nullptr : &*found;
}

json* follow(json& start, const std::vector<std::string>& keys) {
  json* at = &start;
  for (const std::string& key : keys) {
    at = childOf(*at, key);
    if (at == nullptr)
      return nullptr;
  }
  return at;
}

// The object that the last key lies in, made on the way; null when something else is there. Nothing is made in vain.
json* makeParent(json& start, const std::vector<std::string>& keys) {
  json* at = &start;
  for (std::size_t step = 0; step + 1 < keys.size(); ++step) {
    json* next = childOf(*at, keys[step]);
    if (next == nullptr && !at->is_object())
      return nullptr;
    at = next != nullptr ? next : &((*at)[keys[step]] = json::object());
  }
  return at->is_object() || (at->is_array() && elementOf(*at, keys.back()) != nullptr) ? at : nullptr;
}

bool setAt(morvane::JsonDocument& document, const std::vector<std::string>& base, const char* path, json value) {
  json* start = follow(document.root, base);
  const auto keys = splitPath(path);
  if (start == nullptr || keys.empty() || keys.size() > kMaxPathDepth)
    return false;
  json* parent = makeParent(*start, keys);
  if (parent == nullptr)
    return false;
  json* existing = childOf(*parent, keys.back());
  (existing != nullptr ? *existing : (*parent)[keys.back()]) = std::move(value);
  document.changed = true;
  return true;
}

const json* getAt(morvane::JsonDocument& document, const std::vector<std::string>& base, const char* path) {
  json* start = follow(document.root, base);
  const auto keys = splitPath(path);
  return start == nullptr || keys.empty() ? nullptr : follow(*start, keys);
}

} // namespace

IElementValueBase::IElementValueBase(std::shared_ptr<morvane::JsonDocument> document, std::vector<std::string> base)
    : document_(std::move(document)), base_(std::move(base)) {}

int IElementValueBase::kind() const {
  const json* value = follow(document_->root, base_);
  if (value == nullptr)
    return 0;
  return value->is_array() ? kMvJsonList : value->is_object() ? kMvJsonObject : 0;
}

bool IElementValueBase::SetDataS(const char* path, const char* utf8) {
  return setAt(*document_, base_, path, std::string(utf8 == nullptr ? "" : utf8));
}

bool IElementValueBase::SetDataSW(const char* path, const wchar_t* value) {
  return setAt(*document_, base_, path, OdString(value).toUtf8Lossless());
}

bool IElementValueBase::SetDataI(const char* path, int value) {
  return setAt(*document_, base_, path, value);
}

bool IElementValueBase::SetDataL(const char* path, std::int64_t value) {
  return setAt(*document_, base_, path, value);
}

bool IElementValueBase::SetDataB(const char* path, bool value) {
  return setAt(*document_, base_, path, value);
}

bool IElementValueBase::HasData(const char* path) const {
  return getAt(*document_, base_, path) != nullptr;
}

int IElementValueBase::GetDataI(const char* path, int missing) const {
  const std::int64_t value = GetDataL(path, missing);
  const bool fits = value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
  return fits ? static_cast<int>(value) : missing;
}

std::int64_t IElementValueBase::GetDataL(const char* path, std::int64_t missing) const {
  const json* value = getAt(*document_, base_, path);
  if (value == nullptr)
    return missing;
  if (value->is_boolean())
    return value->get<bool>() ? 1 : 0;
  if (value->is_number_unsigned() && value->get<std::uint64_t>() > std::numeric_limits<std::int64_t>::max())
    return missing;
  return value->is_number_integer() ? value->get<std::int64_t>() : missing;
}

bool IElementValueBase::GetDataB(const char* path, bool missing) const {
  const json* value = getAt(*document_, base_, path);
  if (value == nullptr)
    return missing;
  if (value->is_boolean())
    return value->get<bool>();
  return value->is_number_integer() ? *value != 0 : missing;
}

OdString IElementValueBase::GetDataSW(const char* path, const wchar_t* missing) const {
  const json* value = getAt(*document_, base_, path);
  return value != nullptr && value->is_string() ? OdString::fromUtf8(value->get_ref<const std::string&>())
                                                : OdString(missing);
}

bool IElementValueBase::AppendData(const MvJsonPtr& element) {
  json* list = follow(document_->root, base_);
  const json* source = element.isNull() ? nullptr : follow(element->document_->root, element->base_);
  if (list == nullptr || !list->is_array() || source == nullptr)
    return false;
  json copy = *source; // the element may lie in this very list
  list->push_back(std::move(copy));
  document_->changed = true;
  return true;
}

int IElementValueBase::GetDataCount() const {
  const json* value = follow(document_->root, base_);
  return value == nullptr ? 0 : static_cast<int>(value->size());
}

MvJsonPtr IElementValueBase::GetDataAt(int index) const {
  const json* list = follow(document_->root, base_);
  if (list == nullptr || !list->is_array() || index < 0 || static_cast<std::size_t>(index) >= list->size())
    return nullptr;
  std::vector<std::string> base = base_;
  base.push_back(std::to_string(index));
  return MvJsonPtr(new IElementValueBase(document_, std::move(base)));
}

std::string IElementValueBase::toText() const {
  const json* value = follow(document_->root, base_);
  return value == nullptr ? "" : value->dump(-1, ' ', false, json::error_handler_t::replace);
}

MvJsonPtr ElementValue::createObject(int kind) {
  if (kind != kMvJsonList && kind != kMvJsonObject)
    return nullptr;
  auto document = std::make_shared<morvane::JsonDocument>();
  document->root = kind == kMvJsonList ? json::array() : json::object();
  return MvJsonPtr(new IElementValueBase(std::move(document), {}));
}

#include "morvane/config.h"
#include "morvane/config/json_document.h"
#include "morvane/files/read_file.h"
#include "morvane/host.h"

#include <cstdlib>
#include <filesystem>

namespace morvane {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr int kMaxSettingDepth = 64;

// Nothing for text that is not a JSON object or is nested deeper than settings ever are.
json parseSettings(const std::string& text) {
  bool tooDeep = false;
  const auto watch = [&tooDeep](int depth, json::parse_event_t, json&) {
    tooDeep = tooDeep || depth > kMaxSettingDepth;
    return !tooDeep;
  };
  json root = json::parse(text, watch, false);
  return tooDeep || !root.is_object() ? json() : root;
}

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

} // namespace

UserConfig::UserConfig(std::string file, ReplaceFile replaceFile)
    : file_(std::move(file)), replaceFile_(std::move(replaceFile)), document_(std::make_shared<JsonDocument>()) {
  document_->root = json::object();
  load();
}

UserConfig::~UserConfig() = default;

void UserConfig::load() {
  std::error_code ignored;
  if (file_.empty() || !fs::exists(file_, ignored))
    return;
  const auto text = files::readWhole(file_);
  json root = text ? parseSettings(*text) : json();
  if (root.is_object())
    document_->root = std::move(root);
  else
    loadProblem_ = file_ + ": not a settings file";
}

MvJsonPtr UserConfig::section(const std::string& name) const {
  const auto found = document_->root.find(name);
  if (found == document_->root.end() || !found->is_object())
    return nullptr;
  return MvJsonPtr(new IElementValueBase(document_, {name}));
}

MvJsonPtr UserConfig::createSection(const std::string& name) {
  if (name.empty())
    return nullptr;
  if (section(name).isNull()) {
    document_->root[name] = json::object();
    document_->changed = true;
  }
  return section(name);
}

bool UserConfig::removeSection(const std::string& name) {
  const bool removed = document_->root.erase(name) != 0;
  document_->changed = document_->changed || removed;
  return removed;
}

bool UserConfig::isChanged() const {
  return document_->changed;
}

// What was not understood goes beside, before anything takes its place.
std::string UserConfig::keepDamaged() {
  std::error_code ignored;
  if (loadProblem_.empty() || !fs::exists(file_, ignored))
    return {};
  const auto text = files::readWhole(file_);
  return text ? replaceFile_(file_ + ".damaged", *text) : loadProblem_; // a folder, say, is not ours to move away
}

std::string UserConfig::save() {
  if (file_.empty())
    return {};
  std::error_code error;
  const fs::path folder = fs::path(file_).parent_path();
  if (!folder.empty())
    fs::create_directories(folder, error);
  if (error)
    return error.message();
  std::string reason = keepDamaged();
  if (reason.empty())
    reason = replaceFile_(file_, document_->root.dump(2, ' ', false, json::error_handler_t::replace) + "\n");
  if (reason.empty()) {
    loadProblem_.clear();
    document_->changed = false;
  }
  return reason;
}

std::string defaultConfigFile() {
  if (std::string named = environment("MORVANE_CONFIG"); !named.empty())
    return named;
  if (const std::string folder = environment("XDG_CONFIG_HOME"); folder.starts_with('/'))
    return folder + "/morvane/config.json";
  const std::string home = environment("HOME");
  return home.empty() ? "" : home + "/.config/morvane/config.json";
}

} // namespace morvane

MvJsonPtr mv_user_config(const char* section, int) {
  morvane::Host* host = morvane::admitCall("mv_user_config");
  return host == nullptr || section == nullptr ? MvJsonPtr() : host->config().section(section);
}

MvJsonPtr mv_user_config_create(const char* section, int) {
  morvane::Host* host = morvane::admitCall("mv_user_config_create");
  return host == nullptr || section == nullptr ? MvJsonPtr() : host->config().createSection(section);
}

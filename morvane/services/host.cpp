#include "morvane/host.h"
#include "morvane/services/own_services.h"

namespace morvane {
namespace {

Host* installedHost = nullptr;

std::string configFileOf(const HostOptions& options) {
  if (!options.keepsConfig)
    return {};
  return options.configFile.empty() ? defaultConfigFile() : options.configFile;
}

ReplaceFile replaceFileOf(const HostOptions& options) {
  return options.replaceFile ? options.replaceFile : ReplaceFile(replaceFileSafely);
}

} // namespace

struct Host::Parts {
  explicit Parts(const HostOptions& options) : config(configFileOf(options), replaceFileOf(options)) {}
  ServiceDictionary services;
  CallGate calls;
  Output output;
  Log log;
  InputEngine input{output};
  VariableStore variables;
  UserConfig config;
  PathMap paths;
  SearchPath searchPath;
};

Host::Host(HostOptions options) : parts_(std::make_unique<Parts>(options)) {
  services().add(kEditGetServer, services::makeEditGetServer(*this));
  services().add(kEditSystemServer, services::makeEditSystemServer(*this));
  services().add(kDbServer, services::makeDbServer(*this));
}

Host::~Host() {
  if (config().isChanged()) {
    const std::string reason = config().save();
    if (!reason.empty())
      log().write({kDefaultLogLevel, __LINE__, "~Host", config().file() + ": " + reason});
  }
  uninstall();
}

Host* Host::current() {
  return installedHost;
}

void Host::install() {
  if (installed_)
    return;
  before_ = std::exchange(installedHost, this);
  installed_ = true;
}

void Host::uninstall() {
  if (!installed_)
    return;
  installed_ = false;
  // Taken out of the chain wherever it is, so that hosts may end in any order.
  Host** link = &installedHost;
  while (*link != nullptr && *link != this)
    link = &(*link)->before_;
  if (*link == this)
    *link = before_;
  before_ = nullptr;
}

ServiceDictionary& Host::services() {
  return parts_->services;
}
CallGate& Host::calls() {
  return parts_->calls;
}
Output& Host::output() {
  return parts_->output;
}
Log& Host::log() {
  return parts_->log;
}
const Log& Host::log() const {
  return parts_->log;
}
InputEngine& Host::input() {
  return parts_->input;
}
VariableStore& Host::variables() {
  return parts_->variables;
}
UserConfig& Host::config() {
  return parts_->config;
}
PathMap& Host::paths() {
  return parts_->paths;
}
SearchPath& Host::searchPath() {
  return parts_->searchPath;
}

Host* admitCall(const char* operation) {
  Host* host = Host::current();
  return host != nullptr && host->calls().pass(operation) ? host : nullptr;
}

} // namespace morvane

#include "morvane/host.h"

MvEditGetServer::~MvEditGetServer() = default;
MvSelectorServer::~MvSelectorServer() = default;
MvEditSystemServer::~MvEditSystemServer() = default;
MvDbServer::~MvDbServer() = default;
MvDocManager::~MvDocManager() = default;

namespace morvane {

OdRxObjectPtr ServiceDictionary::find(const OdString& name) const {
  const auto found = services_.find(name);
  return found == services_.end() ? OdRxObjectPtr() : found->second;
}

bool ServiceDictionary::add(const OdString& name, OdRxObject* service) {
  const OdRxObjectPtr keepAlive(service);
  if (name.isEmpty() || service == nullptr)
    return false;
  services_[name] = keepAlive;
  return true;
}

bool ServiceDictionary::remove(const OdString& name) {
  return services_.erase(name) != 0;
}

} // namespace morvane

OdRxObjectPtr mv_arbitDict_getservice(const OdString& name) {
  morvane::Host* host = morvane::Host::current();
  return host == nullptr ? OdRxObjectPtr() : host->services().find(name);
}

bool mv_arbitDict_register(const OdString& name, OdRxObject* service) {
  const OdRxObjectPtr keepAlive(service);
  morvane::Host* host = morvane::Host::current();
  return host != nullptr && host->services().add(name, service);
}

bool mv_arbitDict_unregister(const OdString& name) {
  morvane::Host* host = morvane::Host::current();
  return host != nullptr && host->services().remove(name);
}

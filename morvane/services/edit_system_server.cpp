#include "morvane/services/own_services.h"

namespace morvane::services {
namespace {

class EditSystemServer : public MvEditSystemServer {
public:
  explicit EditSystemServer(Host& host) : host_(host) {}

  int mvsiedSetVar(const wchar_t* name, const mvsiresbuf* value) override {
    if (!host_.calls().pass("mvsiedSetVar") || name == nullptr || value == nullptr)
      return RTERROR;
    const auto typed = variableFromRecord(*value);
    return typed ? host_.variables().set(name, *typed) : RTREJ;
  }

  int mvsiedGetVar(const wchar_t* name, mvsiresbuf* value) override {
    if (!host_.calls().pass("mvsiedGetVar") || name == nullptr || value == nullptr)
      return RTERROR;
    const auto typed = host_.variables().get(name);
    if (!typed)
      return RTERROR;
    *value = recordFromVariable(*typed);
    return RTNORM;
  }

  int mvsiedGetUnitsFactor(int unitsCode, double* factor) override {
    const auto found = unitsFactor(unitsCode);
    if (!host_.calls().pass("mvsiedGetUnitsFactor") || factor == nullptr || !found)
      return RTERROR;
    *factor = *found;
    return RTNORM;
  }

  int mvsiedFindFile(const wchar_t* fileName, wchar_t* found) override {
    if (!host_.calls().pass("mvsiedFindFile") || fileName == nullptr || found == nullptr)
      return RTERROR;
    const auto path = host_.searchPath().find(host_.paths(), fileName);
    if (!path || path->getLength() > kMaxPathLength)
      return RTERROR;
    copyText(*path, found, kMaxPathLength + 1);
    return RTNORM;
  }

private:
  Host& host_;
};

} // namespace

OdRxObjectPtr makeEditSystemServer(Host& host) {
  return OdRxObjectPtr(new EditSystemServer(host));
}

} // namespace morvane::services

#include "morvane/services/own_services.h"

namespace morvane::services {
namespace {

class SelectorServer : public MvSelectorServer {
public:
  explicit SelectorServer(Host& host) : host_(host) {}

  int mvsiedSSSetFirst(const long* pickFirst, const long* grips) override {
    const int code = pass("mvsiedSSSetFirst") ? sets().setFirst(pickFirst, grips) : RTERROR;
    if (code == RTNORM)
      host_.documents().refresh(host_.documents().current());
    return code;
  }
  int mvsiedSSFree(const long* set) override { return pass("mvsiedSSFree") ? sets().free(set) : RTERROR; }
  int mvsiedSSLength(const long* set, int* length) override {
    return pass("mvsiedSSLength") ? sets().length(set, length) : RTERROR;
  }
  int mvsiedSSAdd(const long* entity, const long* set, long* result) override {
    return pass("mvsiedSSAdd") ? sets().add(entity, set, result) : RTERROR;
  }
  int mvsiedSSName(const long* set, int index, long* entity) override {
    return pass("mvsiedSSName") ? sets().memberAt(set, index, entity) : RTERROR;
  }

private:
  bool pass(const char* operation) { return host_.calls().pass(operation); }
  SelectionSets& sets() { return host_.selections(); }
  Host& host_;
};

} // namespace

OdRxObjectPtr makeSelectorServer(Host& host) {
  return OdRxObjectPtr(new SelectorServer(host));
}

} // namespace morvane::services

#include "morvane/services/own_services.h"

namespace morvane::services {
namespace {

class DocManager : public MvDocManager {
public:
  explicit DocManager(Host& host) : host_(host) {}

  mvsi::MvsiApDocument* currentDocument() override {
    return pass("currentDocument") ? host_.documents().current() : nullptr;
  }
  int documentCount() override { return pass("documentCount") ? static_cast<int>(host_.documents().all().size()) : 0; }
  mvsi::MvsiApDocument* documentAt(int index) override {
    const auto& all = host_.documents().all();
    const bool inside = index >= 0 && static_cast<std::size_t>(index) < all.size();
    return pass("documentAt") && inside ? all[static_cast<std::size_t>(index)].get() : nullptr;
  }
  int refreshViews(mvsi::MvsiApDocument* document) override {
    return pass("refreshViews") && host_.documents().refresh(document) ? RTNORM : RTERROR;
  }
  int drawOffScreen(mvsi::MvsiApDocument* document, const mvsi::MvsiDeviceRect& rectangle,
                    mvsi::MvsiImage& image) override {
    const bool drawn = pass("drawOffScreen") && host_.documents().drawOffScreen(document, rectangle, image);
    return drawn ? RTNORM : RTERROR;
  }

private:
  bool pass(const char* operation) { return host_.calls().pass(operation); }
  Host& host_;
};

} // namespace

OdRxObjectPtr makeDocManager(Host& host) {
  return OdRxObjectPtr(new DocManager(host));
}

} // namespace morvane::services

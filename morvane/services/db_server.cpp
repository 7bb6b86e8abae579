#include "morvane/services/own_services.h"

namespace morvane::services {
namespace {

constexpr int kCurrent = -1;

class DbServer : public MvDbServer {
public:
  explicit DbServer(Host& host) : host_(host) {}

  int mvsidbRToS(double value, int mode, int precision, wchar_t* result) override {
    if (!host_.calls().pass("mvsidbRToS") || result == nullptr)
      return RTERROR;
    const auto form = static_cast<LinearUnits>(mode == kCurrent ? current(L"LUNITS") : mode);
    const auto text = formatReal(value, form, precision == kCurrent ? current(L"LUPREC") : precision);
    if (!text)
      return RTERROR;
    copyText(OdString(*text), result, kMaxNumberLength + 1);
    return RTNORM;
  }

  int mvsidbDisToF(const wchar_t* text, int mode, double* value) override {
    const bool knownMode = mode == kCurrent || (mode >= 1 && mode <= 5);
    if (!host_.calls().pass("mvsidbDisToF") || text == nullptr || value == nullptr || !knownMode)
      return RTERROR;
    const auto distance = parseDistance(text);
    if (!distance)
      return RTERROR;
    *value = *distance;
    return RTNORM;
  }

private:
  int current(const wchar_t* variable) const {
    const auto value = host_.variables().get(variable);
    const auto* number = value ? std::get_if<std::int16_t>(&*value) : nullptr;
    return number == nullptr ? 0 : *number;
  }

  Host& host_;
};

} // namespace

OdRxObjectPtr makeDbServer(Host& host) {
  return OdRxObjectPtr(new DbServer(host));
}

} // namespace morvane::services

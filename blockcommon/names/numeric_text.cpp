#include "blockcommon/block_names.h"
#include "blockcommon/host/services.h"

#include "morvane/result_codes.h"

#include <algorithm>
#include <array>

namespace blockUtils {
namespace {

constexpr int kCurrentSetting = -1;

bool toReal(const OdString& text, double& value) {
  return hostAccess::mvsidbDisToF(text, kCurrentSetting, &value) == RTNORM;
}

} // namespace

OdString stringToNumeriString(OdString text) {
  constexpr int kMaxNumberLength = 100;
  double value = 0.0;
  if (text.isEmpty() || !toReal(text, value))
    return OdString();
  // A number in plain digits may go on for ever; one with an exponent must be kept whole.
  const int exponent = std::max(text.find(L'E'), text.find(L'e'));
  if (exponent < 1)
    text = text.left(kMaxNumberLength);
  std::array<wchar_t, 256> buffer{};
  if (!toReal(text, value) || hostAccess::mvsidbRToS(value, kCurrentSetting, kCurrentSetting, buffer.data()) != RTNORM)
    return OdString();
  return OdString(buffer.data());
}

OdString trimCoordinateSysValStrByLpcrecVar(OdString text) {
  return text;
}

} // namespace blockUtils

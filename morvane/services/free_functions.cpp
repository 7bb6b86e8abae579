#include "morvane/host.h"
#include "morvane/host_api.h"
#include "morvane/services/own_services.h"

#include <algorithm>

namespace mvsi {

int mvsiedGetInput(wchar_t* result, int capacity) {
  morvane::Host* host = morvane::admitCall("mvsiedGetInput");
  if (host == nullptr || result == nullptr || capacity <= 0)
    return RTERROR;
  morvane::services::copyText(host->input().lastKeyword(), result, capacity);
  return RTNORM;
}

} // namespace mvsi

namespace qzutads {

bool isCalledByScript() {
  morvane::Host* host = morvane::admitCall("isCalledByScript");
  return host != nullptr && host->input().isScript();
}

OdString getPathFileExtName(const OdString& path) {
  const int separator = std::max(path.reverseFind(L'\\'), path.reverseFind(L'/'));
  const int dot = path.reverseFind(L'.');
  const OdString extension = dot > separator ? path.mid(dot) : OdString();
  return extension.visible().size() > 1 ? extension : OdString();
}

} // namespace qzutads

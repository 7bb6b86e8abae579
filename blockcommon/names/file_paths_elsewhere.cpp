// Apart from its callers: command modules may put their own answer in place of this one.
#include "blockcommon/file_paths.h"

namespace commonFun {

bool isOpenedDoc(OdString) {
  return false;
}

} // namespace commonFun

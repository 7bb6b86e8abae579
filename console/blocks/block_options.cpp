#include "console/blocks/block_options.h"

#include "blockcommon/write_block.h"

namespace console {

BlockOptions rememberedBlockOptions() {
  BlockOptions options;
  int afterwards = 0, noValue = 0;
  registerFun::getRegistedOptions(options.basePointOnScreen, options.explodable, options.objectsOnScreen, afterwards,
                                  options.openInEditor, noValue, options.uniform);
  constexpr int kLast = static_cast<int>(Afterwards::Delete);
  if (afterwards >= 0 && afterwards <= kLast) // a file that somebody wrote may hold anything
    options.afterwards = static_cast<Afterwards>(afterwards);
  return options;
}

void rememberBlockOptions(const BlockOptions& options) {
  registerFun::setRegistedOptions(options.basePointOnScreen, options.explodable, options.objectsOnScreen,
                                  static_cast<int>(options.afterwards), options.openInEditor, options.uniform);
}

} // namespace console

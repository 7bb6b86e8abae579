#include "console/blocks/block_options.h"

#include "blockcommon/write_block.h"

namespace console {

BlockOptions rememberedBlockOptions() {
  BlockOptions options;
  int sourceObjects = 0, noValue = 0;
  registerFun::getRegistedOptions(options.basePointOnScreen, options.explodable, options.objectsOnScreen, sourceObjects,
                                  options.openInEditor, noValue, options.uniform);
  constexpr int kLast = static_cast<int>(SourceObjects::kDelete);
  if (sourceObjects >= 0 && sourceObjects <= kLast) // a file edited by hand may contain anything
    options.sourceObjects = static_cast<SourceObjects>(sourceObjects);
  return options;
}

void rememberBlockOptions(const BlockOptions& options) {
  registerFun::setRegistedOptions(options.basePointOnScreen, options.explodable, options.objectsOnScreen,
                                  static_cast<int>(options.sourceObjects), options.openInEditor, options.uniform);
}

} // namespace console

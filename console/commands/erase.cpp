#include "console/commands/commands.h"
#include "console/messages/catalog/selection.h"
#include "console/prompts/selection.h"

namespace console::commands {

void erase(CommandContext& context) {
  OdDbObjectIdArray ids = promptSelection(context.session);
  removeLocked(context.session, ids);
  for (const OdDbObjectId id : ids)
    id.safeOpenObject(OdDb::kForWrite)->erase();
  context.session.print(msg::kErased, {count(static_cast<std::size_t>(ids.length()))});
}

} // namespace console::commands

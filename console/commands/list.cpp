#include "console/blocks/make_block.h"
#include "console/commands/block_list.h"
#include "console/commands/commands.h"
#include "console/drawings/entity_summary.h"
#include "console/messages/catalog/lists.h"
#include "console/messages/number_text.h"
#include "console/prompts/selection.h"

#include "DbBlockTable.h"
#include "morvane/drawing_tools.h"

namespace console::commands {
namespace {

// What was selected before the command, else all.
OdDbObjectIdArray listed(Session& session) {
  OdDbObjectIdArray ids;
  for (const OdDbObjectId id : session.host().selections().pickFirst()) {
    if (id.database() == &session.database() && !id.isErased())
      ids.append(id);
  }
  return ids.isEmpty() ? objectsOf(qzutads::currentSpaceId()) : ids;
}

void listObject(Session& session, OdDbObjectId id) {
  const OdDbEntityPtr entity = OdDbEntity::cast(id.safeOpenObject());
  if (!entity.isNull())
    session.result(msg::kListObject, {typeText(*entity), handleText(id), entity->layer(), geometryText(*entity)});
}

} // namespace

std::size_t listBlocks(Session& session) {
  std::size_t blocks = 0;
  const OdDbSymbolTablePtr table = session.database().getBlockTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr record = iterator->getRecord();
    if (record->isLayout())
      continue;
    ++blocks;
    session.result(msg::kListBlock,
                   {record->getName(), count(static_cast<std::size_t>(objectsOf(record->objectId()).length())),
                    count(referencesTo(record->objectId()))});
  }
  return blocks;
}

void list(CommandContext& context) {
  const OdDbObjectIdArray ids = listed(context.session);
  for (const OdDbObjectId id : ids)
    listObject(context.session, id);
  const std::size_t blocks = listBlocks(context.session);
  context.session.result(msg::kListSummary, {count(static_cast<std::size_t>(ids.length())), count(blocks)});
}

} // namespace console::commands

#include "console/attributes/attribute_sync.h"
#include "console/blocks/make_block.h"
#include "console/commands/commands.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"

#include "DbBlockTable.h"

namespace console::commands {
namespace {

bool listBlocksWithAttributes(Session& session) {
  bool any = false;
  const OdDbSymbolTablePtr table = session.database().getBlockTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbBlockTableRecordPtr record = iterator->getRecord();
    if (record->isLayout() || record->isFromExternalReference() || !record->hasAttributeDefinitions())
      continue;
    any = true;
    session.result(msg::kSyncBlock, {record->getName(), count(referencesTo(record->objectId()))});
  }
  return any;
}

OdDbObjectId promptBlock(Session& session) {
  for (;;) {
    const auto entered = promptText(session, msg::kPromptBlockName);
    if (!entered)
      return {};
    if (*entered == L"?") {
      if (!listBlocksWithAttributes(session))
        session.result(msg::kNoSyncBlocks);
      continue;
    }
    const OdDbObjectId block = definitionOf(session, *entered);
    const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::cast(block.safeOpenObject());
    if (record.isNull() || record->isLayout() || record->isFromExternalReference())
      refuse(msg::kNoSuchBlock, {*entered});
    return block;
  }
}

} // namespace

void attsync(CommandContext& context) {
  Session& session = context.session;
  const OdDbObjectId block = promptBlock(session);
  if (block.isNull())
    return;
  const SyncedAttributes synced = syncAttributes(block);
  for (const SyncedAttributes::Surplus& surplus : synced.surplus)
    session.result(msg::kSyncSurplus, {handleText(surplus.reference), surplus.tag, surplus.value});
  for (const OdDbObjectId& id : synced.locked)
    session.result(msg::kSyncLocked, {handleText(id)});
  session.print(msg::kSynced, {count(synced.references)});
}

} // namespace console::commands

#include "console/commands/commands.h"
#include "console/messages/catalog/layers.h"
#include "console/prompts/prompt.h"

#include "DbSymbolRecords.h"
#include "blockcommon/block_names.h"
#include "morvane/drawing_tools.h"

namespace console::commands {
namespace {

OdString promptLayerName(CommandContext& context) {
  const OdDbLayerTableRecordPtr current = context.database.getCLAYER().safeOpenObject();
  return promptText(context.session, msg::kPromptLayerName, {current->getName()}).value_or(current->getName());
}

// Throws when there is no such layer.
OdDbLayerTableRecordPtr promptLayer(CommandContext& context) {
  const OdString name = promptLayerName(context);
  const OdDbObjectId id = context.database.symbol(OdDb::kLayerTable, name);
  if (id.isNull())
    refuse(msg::kNoSuchLayer, {name});
  return id.safeOpenObject();
}

void makeCurrent(CommandContext& context, const OdDbLayerTableRecordPtr& layer) {
  if (layer->isFrozen())
    refuse(msg::kLayerFrozen, {layer->getName()});
  context.database.setCLAYER(layer->objectId());
  context.session.print(msg::kLayerIsCurrent, {layer->getName()});
}

void make(CommandContext& context) {
  const OdString name = promptLayerName(context);
  OdDbObjectId id = context.database.symbol(OdDb::kLayerTable, name);
  if (id.isNull()) {
    bool notUtf8 = false;
    if (!blockUtils::isLigitimacyName(name, notUtf8))
      refuse(msg::kBadLayerName, {name});
    const OdDbSymbolTablePtr table = context.database.getLayerTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName(name);
    layer->setLinetypeObjectId(context.database.symbol(OdDb::kLinetypeTable, L"Continuous"));
    id = table->add(layer.get());
  }
  makeCurrent(context, id.safeOpenObject());
}

void set(CommandContext& context) {
  makeCurrent(context, promptLayer(context));
}

void lock(CommandContext& context, bool locked) {
  const OdDbLayerTableRecordPtr layer = promptLayer(context);
  if (!LayerTools::lockOrUnlockLayer(layer->objectId(), locked))
    throw OdError(eNotOpenForWrite);
  context.session.print(locked ? msg::kLayerLocked : msg::kLayerUnlocked, {layer->getName()});
}

void listLayers(CommandContext& context) {
  const OdDbObjectId current = context.database.getCLAYER();
  const OdDbSymbolTablePtr table = context.database.getLayerTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbLayerTableRecordPtr layer = iterator->getRecord();
    OdString flags;
    const auto flag = [&flags](bool on, MessageText format) { flags += on ? render(format) : OdString(); };
    flag(layer->objectId() == current, msg::kLayerFlagCurrent);
    flag(layer->isLocked(), msg::kLayerFlagLocked);
    flag(layer->isFrozen(), msg::kLayerFlagFrozen);
    flag(layer->isOff(), msg::kLayerFlagOff);
    context.session.result(msg::kLayerLine, {layer->getName(), flags});
  }
}

} // namespace

void layer(CommandContext& context) {
  while (const auto option = promptKeyword(context.session, msg::kKeywordsLayer, msg::kPromptLayerOption)) {
    if (*option == L"?")
      listLayers(context);
    else if (*option == L"Make")
      make(context);
    else if (*option == L"Set")
      set(context);
    else
      lock(context, *option == L"Lock");
  }
}

} // namespace console::commands

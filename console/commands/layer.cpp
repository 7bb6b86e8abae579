#include "console/commands/commands.h"
#include "console/prompts/prompt.h"

#include "DbSymbolRecords.h"
#include "blockcommon/block_names.h"
#include "morvane/drawing_tools.h"

namespace console::commands {
namespace {

OdString askLayerName(CommandContext& context) {
  const OdDbLayerTableRecordPtr current = context.database.getCLAYER().safeOpenObject();
  return askText(context.session, Text::kPromptLayerName, {current->getName()}).value_or(current->getName());
}

// Throws when there is no such layer.
OdDbLayerTableRecordPtr askLayer(CommandContext& context) {
  const OdString name = askLayerName(context);
  const OdDbObjectId id = context.database.symbol(OdDb::kLayerTable, name);
  if (id.isNull())
    refuse(Text::kNoSuchLayer, {name});
  return id.safeOpenObject();
}

void makeCurrent(CommandContext& context, const OdDbLayerTableRecordPtr& layer) {
  if (layer->isFrozen())
    refuse(Text::kLayerFrozen, {layer->getName()});
  context.database.setCLAYER(layer->objectId());
  context.session.print(Text::kLayerIsCurrent, {layer->getName()});
}

void make(CommandContext& context) {
  const OdString name = askLayerName(context);
  OdDbObjectId id = context.database.symbol(OdDb::kLayerTable, name);
  if (id.isNull()) {
    bool notUtf8 = false;
    if (!blockUtils::isLigitimacyName(name, notUtf8))
      refuse(Text::kBadLayerName, {name});
    const OdDbSymbolTablePtr table = context.database.getLayerTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName(name);
    layer->setLinetypeObjectId(context.database.symbol(OdDb::kLinetypeTable, L"Continuous"));
    id = table->add(layer.get());
  }
  makeCurrent(context, id.safeOpenObject());
}

void set(CommandContext& context) {
  makeCurrent(context, askLayer(context));
}

void lock(CommandContext& context, bool locked) {
  const OdDbLayerTableRecordPtr layer = askLayer(context);
  if (!LayerTools::lockOrUnlockLayer(layer->objectId(), locked))
    throw OdError(eNotOpenForWrite);
  context.session.print(locked ? Text::kLayerLocked : Text::kLayerUnlocked, {layer->getName()});
}

void listLayers(CommandContext& context) {
  const OdDbObjectId current = context.database.getCLAYER();
  const OdDbSymbolTablePtr table = context.database.getLayerTableId().safeOpenObject();
  for (const auto iterator = table->newIterator(); !iterator->done(); iterator->step()) {
    const OdDbLayerTableRecordPtr layer = iterator->getRecord();
    OdString flags;
    const auto flag = [&flags](bool on, Text text) { flags += on ? render(text) : OdString(); };
    flag(layer->objectId() == current, Text::kLayerFlagCurrent);
    flag(layer->isLocked(), Text::kLayerFlagLocked);
    flag(layer->isFrozen(), Text::kLayerFlagFrozen);
    flag(layer->isOff(), Text::kLayerFlagOff);
    context.session.result(Text::kLayerLine, {layer->getName(), flags});
  }
}

} // namespace

void layer(CommandContext& context) {
  while (const auto option = askKeyword(context.session, Text::kKeywordsLayer, Text::kPromptLayerOption)) {
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

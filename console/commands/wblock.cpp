#include "console/messages/catalog/wblock.h"
#include "console/blocks/block_objects.h"
#include "console/blocks/make_block.h"
#include "console/blocks/write_block_file.h"
#include "console/blocks/write_target.h"
#include "console/commands/block_questions.h"
#include "console/commands/commands.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/drawings.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"
#include "console/prompts/selection.h"

#include "DbBlockTable.h"
#include "morvane/drawing_tools.h"

#include <filesystem>

namespace console::commands {
namespace {

// What happens to the objects once they are written.
struct Plan {
  BlockFileRequest file;
  SourceObjects sourceObjects = SourceObjects::kKeep;
  BlockRequest block; // when a reference is to take their place
};

OdDb::DwgVersion promptVersion(Session& session) {
  const OdString usual = OdString::fromUtf8(drawing::versionYear(rememberedVersion(session)));
  const OdString entered = promptText(session, msg::kPromptVersion, {usual}).value_or(usual);
  const OdDb::DwgVersion version = drawing::versionFromYear(entered.toUtf8());
  if (version == OdDb::kVersionUnknown || drawing::writtenVersion(version) != version)
    refuse(msg::kNoSuchVersion, {entered});
  return version;
}

OdString ownName(const std::string& path) {
  return OdString::fromUtf8(std::filesystem::path(path).stem().string());
}

OdDbObjectId namedDefinition(Session& session, const OdString& name) {
  const OdDbObjectId block = definitionToWrite(session, name);
  if (block.isNull())
    refuse(msg::kNoSuchBlock, {name});
  return block;
}

// The block that takes the place of the objects is tested and asked for before anything is written.
void planBlock(Session& session, Plan& plan, OdDbObjectIdArray& ids) {
  plan.block.name = ownName(plan.file.path);
  checkBlockName(session, plan.block.name);
  plan.block.redefine = promptRedefine(session, plan.block.name);
  ids = objectsForBlock(session, plan.block.name, ids).ids;
  plan.block.ids = ids;
  plan.block.basePointUcs = *plan.file.basePoint;
  plan.block.space = qzutads::currentSpaceId();
  plan.block.sourceObjects = SourceObjects::kConvert;
}

void planObjects(Session& session, Plan& plan) {
  if (mvsi::mvsidbUcsMatrix(plan.file.ucs, &session.database()) != RTNORM)
    throw OdError(eInvalidInput);
  plan.file.basePoint = promptPoint(session, msg::kPromptBasePoint).value_or(OdGePoint3d());
  OdDbObjectIdArray ids = promptSelection(session);
  plan.sourceObjects = promptSourceObjects(session, SourceObjects::kKeep);
  if (plan.sourceObjects == SourceObjects::kConvert)
    planBlock(session, plan, ids);
  else if (plan.sourceObjects == SourceObjects::kDelete)
    removeLocked(session, ids);
  plan.file.source = ids;
}

std::optional<OdDb::UnitsValue> promptUnits(Session& session, const Plan& plan) {
  const auto* block = std::get_if<OdDbObjectId>(&plan.file.source);
  const OdDb::UnitsValue usual = block == nullptr
                                     ? session.database().getINSUNITS()
                                     : OdDbBlockTableRecordPtr(block->safeOpenObject())->blockInsertUnits();
  const auto entered = promptText(session, msg::kPromptUnits, {unitsText(usual)});
  const auto units = entered ? parseUnits(entered->toUtf8()) : usual;
  if (!units)
    refuse(msg::kNoSuchUnits, {*entered});
  return units;
}

void handleSourceObjects(Session& session, Plan& plan, const OdDbObjectIdArray& written) {
  if (plan.sourceObjects == SourceObjects::kConvert) {
    plan.block.units = plan.file.units;
    makeBlock(session, plan.block);
  } else if (plan.sourceObjects == SourceObjects::kDelete) {
    for (const OdDbObjectId id : written)
      id.safeOpenObject(OdDb::kForWrite)->erase();
  }
  reportSourceObjects(session, plan.sourceObjects);
}

} // namespace

void wblock(CommandContext& context) {
  Session& session = context.session;
  Plan plan;
  const OdString name = completeName(session, promptText(session, msg::kPromptWblockFile).value_or(OdString()));
  plan.file.path = promptedTarget(session, name);
  plan.file.mayReplace = true; // it is not there, or the user said yes
  plan.file.version = promptVersion(session);
  // A name, * for the whole drawing, = for the block named like the file; nothing typed: objects.
  const OdString source = promptNameOrList(session, msg::kPromptWblockSource);
  if (source.isEmpty())
    planObjects(session, plan);
  else if (source != L"*")
    plan.file.source = namedDefinition(session, source == L"=" ? ownName(plan.file.path) : source);
  plan.file.units = promptUnits(session, plan);
  const BlockFile written = writeBlockFile(session, plan.file);
  rememberTarget(session, written.path, written.version);
  reportBlockFile(session, written);
  if (std::holds_alternative<OdDbObjectIdArray>(plan.file.source))
    handleSourceObjects(session, plan, written.written);
}

} // namespace console::commands

#include "console/command.h"
#include "console/commands/commands.h"

#include "OdString.h"

#include <algorithm>

namespace console {

const std::vector<Command>& allCommands() {
  using enum Command::Kind;
  using enum Text;
  static const std::vector<Command> table = {
      {L"ATTDEF",
       {L"ATT"},
       kHelpAttdef,
       {kPromptTag, kPromptTagPrompt, kPromptTagDefault, kPromptAttdefPlace, kPromptModes, kPromptJustify,
        kPromptSecondPoint, kPromptAngle, kPromptStyle, kPromptHeight},
       Changes,
       commands::attdef},
      {L"ATTEDIT",
       {L"ATE"},
       kHelpAttedit,
       {kPromptSelect, kPromptAttributeTag, kPromptAttributeValue},
       Changes,
       commands::attedit},
      {L"ATTSYNC", {}, kHelpAttsync, {kPromptBlockName}, Changes, commands::attsync},
      {L"AUDIT", {}, kHelpAudit, {kPromptFix}, Changes, commands::audit},
      {L"BCLOSE", {L"BC"}, kHelpBclose, {}, Looks, commands::bclose},
      {L"BEDIT", {L"BE"}, kHelpBedit, {kPromptEditedBlock}, Looks, commands::bedit},
      {L"BLOCK",
       {L"B"},
       kHelpBlock,
       {kPromptBlockName, kPromptBlockBasePoint, kPromptBlockOptions, kPromptSelect, kPromptSelectLayer,
        kPromptSelectType, kPromptSelectHandle, kPromptAfterwards},
       Changes,
       commands::block},
      {L"CIRCLE", {L"C"}, kHelpCircle, {kPromptCenter, kPromptRadius}, Changes, commands::circle},
      {L"DOCS",
       {},
       kHelpDocs,
       {kPromptDocs, kPromptFileName, kPromptDocNumber, kDiscardQuestion},
       Looks,
       commands::docs},
      {L"ERASE",
       {L"E"},
       kHelpErase,
       {kPromptSelect, kPromptSelectLayer, kPromptSelectType, kPromptSelectHandle},
       Changes,
       commands::erase},
      {L"EXPLODE", {L"X"}, kHelpExplode, {kPromptSelect, kPromptAttributesAsText}, Changes, commands::explode},
      {L"HELP", {L"?"}, kHelpHelp, {}, Looks, commands::help},
      {L"INSERT",
       {L"I"},
       kHelpInsert,
       {kPromptInsertName, kPromptInsertPoint, kPromptRows, kPromptColumns, kPromptRowSpacing, kPromptColumnSpacing,
        kPromptScaleX, kPromptScaleY, kPromptInsertRotation},
       Changes,
       commands::insert},
      {L"LAYER", {L"LA"}, kHelpLayer, {kPromptLayerOption, kPromptLayerName}, Changes, commands::layer},
      {L"LINE", {L"L"}, kHelpLine, {kPromptFromPoint, kPromptToPointOrClose}, Changes, commands::line},
      {L"LIST", {L"LI"}, kHelpList, {}, Looks, commands::list},
      {L"NEW", {}, kHelpNew, {kDiscardQuestion}, Looks, commands::newDrawing},
      {L"OPEN", {}, kHelpOpen, {kPromptFileName, kDiscardQuestion}, Looks, commands::open},
      {L"PURGE", {L"PU"}, kHelpPurge, {kPromptPurge}, Changes, commands::purge},
      {L"QUIT", {L"EXIT"}, kHelpQuit, {kDiscardQuestion}, Looks, commands::quit},
      {L"REDO", {}, kHelpRedo, {}, Looks, commands::redo},
      {L"RENAME",
       {L"REN"},
       kHelpRename,
       {kPromptRenameKind, kPromptOldName, kPromptNewName},
       Changes,
       commands::rename},
      {L"SAVE", {}, kHelpSave, {kPromptFileName, kPromptVersion, kRepairedOwnQuestion}, Looks, commands::save},
      {L"SAVEAS", {}, kHelpSaveas, {kPromptFileNameOr, kPromptVersion, kReplaceQuestion}, Looks, commands::saveas},
      {L"SELECT",
       {L"SE"},
       kHelpSelect,
       {kPromptSelect, kPromptSelectLayer, kPromptSelectType, kPromptSelectHandle},
       Selects,
       commands::select},
      {L"SETVAR", {L"SET"}, kHelpSetvar, {kPromptVariable, kPromptValue}, Changes, commands::setvar},
      {L"TEXT",
       {L"DT"},
       kHelpText,
       {kPromptTextStart, kPromptHeight, kPromptAngle, kPromptText},
       Changes,
       commands::text},
      {L"UCS",
       {},
       kHelpUcs,
       {kPromptUcs, kPromptOrigin, kPromptXAxis, kPromptYAxis, kPromptRotation},
       Changes,
       commands::ucs},
      {L"UNDO", {L"U"}, kHelpUndo, {}, Looks, commands::undo},
      {L"WBLOCK",
       {L"W"},
       kHelpWblock,
       {kPromptWblockFile, kPromptVersion, kPromptWblockSource, kPromptBasePoint, kPromptSelect, kPromptAfterwards,
        kPromptUnits},
       Changes,
       commands::wblock},
      {L"XREF",
       {L"XR"},
       kHelpXref,
       {kPromptXref, kPromptXrefName, kPromptFileName, kPromptXrefNameOr, kPromptXrefPoint, kPromptScale, kPromptAngle},
       Changes,
       commands::xref},
  };
  return table;
}

const Command* findCommand(std::wstring_view typed) {
  const OdString wanted(typed);
  const auto& table = allCommands();
  const auto found = std::find_if(table.begin(), table.end(), [&](const Command& command) {
    const auto& others = command.aliases;
    return wanted.iCompare(command.name) == 0 ||
           std::any_of(others.begin(), others.end(),
                       [&](std::wstring_view alias) { return wanted.iCompare(OdString(alias)) == 0; });
  });
  return found == table.end() ? nullptr : &*found;
}

} // namespace console

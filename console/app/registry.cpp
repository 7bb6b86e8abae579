#include "console/app/registry.h"
#include "console/messages/catalog/attributes.h"
#include "console/messages/catalog/audit.h"
#include "console/messages/catalog/block_settings.h"
#include "console/messages/catalog/blocks.h"
#include "console/messages/catalog/documents.h"
#include "console/messages/catalog/drawings.h"
#include "console/messages/catalog/explode.h"
#include "console/messages/catalog/insert.h"
#include "console/messages/catalog/layers.h"
#include "console/messages/catalog/objects.h"
#include "console/messages/catalog/purge.h"
#include "console/messages/catalog/rename.h"
#include "console/messages/catalog/selection.h"
#include "console/messages/catalog/session.h"
#include "console/messages/catalog/ucs.h"
#include "console/messages/catalog/variables.h"
#include "console/messages/catalog/wblock.h"
#include "console/messages/catalog/xrefs.h"

#include "console/commands/commands.h"

namespace console {

namespace {

using enum Command::Kind;
using namespace msg;

const CommandTable kCommands = {
    {L"ATTDEF",
     {L"ATT"},
     kHelpAttdef,
     {kPromptTag, kPromptTagPrompt, kPromptTagDefault, kPromptAttdefPosition, kPromptModes, kPromptJustify,
      kPromptSecondPoint, kPromptAngle, kPromptStyle, kPromptHeight},
     kModifies,
     commands::attdef},
    {L"ATTEDIT",
     {L"ATE"},
     kHelpAttedit,
     {kPromptSelect, kPromptAttributeTag, kPromptAttributeValue},
     kModifies,
     commands::attedit},
    {L"ATTSYNC", {}, kHelpAttsync, {kPromptBlockName}, kModifies, commands::attsync},
    {L"AUDIT", {}, kHelpAudit, {kPromptFix}, kModifies, commands::audit},
    {L"BCLOSE", {L"BC"}, kHelpBclose, {}, kReadOnly, commands::bclose},
    {L"BEDIT", {L"BE"}, kHelpBedit, {kPromptEditedBlock}, kReadOnly, commands::bedit},
    {L"BLOCK",
     {L"B"},
     kHelpBlock,
     {kPromptBlockName, kPromptBlockBasePoint, kPromptBlockOptions, kPromptSelect, kPromptSelectLayer,
      kPromptSelectType, kPromptSelectHandle, kPromptSourceObjects},
     kModifies,
     commands::block},
    {L"CIRCLE", {L"C"}, kHelpCircle, {kPromptCenter, kPromptRadius}, kModifies, commands::circle},
    {L"DOCS",
     {},
     kHelpDocs,
     {kPromptDocs, kPromptFileName, kPromptDocNumber, kDiscardQuestion},
     kReadOnly,
     commands::docs},
    {L"ERASE",
     {L"E"},
     kHelpErase,
     {kPromptSelect, kPromptSelectLayer, kPromptSelectType, kPromptSelectHandle},
     kModifies,
     commands::erase},
    {L"EXPLODE", {L"X"}, kHelpExplode, {kPromptSelect, kPromptAttributesAsText}, kModifies, commands::explode},
    {L"HELP", {L"?"}, kHelpHelp, {}, kReadOnly, commands::help},
    {L"INSERT",
     {L"I"},
     kHelpInsert,
     {kPromptInsertName, kPromptInsertPoint, kPromptRows, kPromptColumns, kPromptRowSpacing, kPromptColumnSpacing,
      kPromptScaleX, kPromptScaleY, kPromptInsertRotation},
     kModifies,
     commands::insert},
    {L"LAYER", {L"LA"}, kHelpLayer, {kPromptLayerOption, kPromptLayerName}, kModifies, commands::layer},
    {L"LINE", {L"L"}, kHelpLine, {kPromptFromPoint, kPromptToPointOrClose}, kModifies, commands::line},
    {L"LIST", {L"LI"}, kHelpList, {}, kReadOnly, commands::list},
    {L"NEW", {}, kHelpNew, {kDiscardQuestion}, kReadOnly, commands::newDrawing},
    {L"OPEN", {}, kHelpOpen, {kPromptFileName, kDiscardQuestion}, kReadOnly, commands::open},
    {L"PURGE", {L"PU"}, kHelpPurge, {kPromptPurge}, kModifies, commands::purge},
    {L"QUIT", {L"EXIT"}, kHelpQuit, {kDiscardQuestion}, kReadOnly, commands::quit},
    {L"REDO", {}, kHelpRedo, {}, kReadOnly, commands::redo},
    {L"RENAME",
     {L"REN"},
     kHelpRename,
     {kPromptRenameKind, kPromptOldName, kPromptNewName},
     kModifies,
     commands::rename},
    {L"SAVE", {}, kHelpSave, {kPromptFileName, kPromptVersion, kRepairedOwnQuestion}, kReadOnly, commands::save},
    {L"SAVEAS", {}, kHelpSaveas, {kPromptFileNameOr, kPromptVersion, kReplaceQuestion}, kReadOnly, commands::saveas},
    {L"SELECT",
     {L"SE"},
     kHelpSelect,
     {kPromptSelect, kPromptSelectLayer, kPromptSelectType, kPromptSelectHandle},
     kSelects,
     commands::select},
    {L"SETVAR", {L"SET"}, kHelpSetvar, {kPromptVariable, kPromptValue}, kModifies, commands::setvar},
    {L"TEXT",
     {L"DT"},
     kHelpText,
     {kPromptTextStart, kPromptHeight, kPromptAngle, kPromptText},
     kModifies,
     commands::text},
    {L"UCS",
     {},
     kHelpUcs,
     {kPromptUcs, kPromptOrigin, kPromptXAxis, kPromptYAxis, kPromptRotation},
     kModifies,
     commands::ucs},
    {L"UNDO", {L"U"}, kHelpUndo, {}, kReadOnly, commands::undo},
    {L"WBLOCK",
     {L"W"},
     kHelpWblock,
     {kPromptWblockFile, kPromptVersion, kPromptWblockSource, kPromptBasePoint, kPromptSelect, kPromptSourceObjects,
      kPromptUnits},
     kModifies,
     commands::wblock},
    {L"XREF",
     {L"XR"},
     kHelpXref,
     {kPromptXref, kPromptXrefName, kPromptFileName, kPromptXrefNameOr, kPromptXrefPoint, kPromptScale, kPromptAngle},
     kModifies,
     commands::xref},
};

} // namespace

const CommandTable& allCommands() {
  return kCommands;
}

} // namespace console

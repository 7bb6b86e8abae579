#include "console/words.h"

#include <iterator>
#include <string_view>

namespace console {
namespace {

struct Word {
  Text text;
  const char* id;
  const wchar_t* english;
};

// In the order of the enumeration. Texts of keywords hold what is typed, then '_' and the names that commands know.
constexpr Word kWords[] = {
    Word{Text::kPromptCommand, "prompt.command", L"Command:"},
    Word{Text::kUnknownCommand, "command.unknown", L"There is no command \"{1}\". HELP lists the commands."},
    Word{Text::kCancelled, "command.cancelled", L"*Cancel*"},
    Word{Text::kFailed, "command.failed", L"The command failed: {1}"},
    Word{Text::kUnsavedAtEnd, "drawing.unsaved", L"The drawing has changes that were not saved."},
    Word{Text::kDiscardQuestion, "drawing.discard-question",
         L"The drawing has changes that were not saved. Discard them? [Yes/No] <No>:"},
    Word{Text::kQuestionRefused, "question.refused", L"Not answered: {1}"},
    Word{Text::kKeywordsYesNo, "keywords.yes-no", L"Yes No _Yes No"},
    Word{Text::kYesOrNo, "prompt.yes-or-no", L"Answer yes or no."},
    Word{Text::kHelpHead, "help.head",
         L"Commands (other names in brackets); HELP and a name tells what a command asks:"},
    Word{Text::kHelpRow, "help.row", L"  {1}  {2}"},
    Word{Text::kHelpOne, "help.command", L"{1}: {2}"},
    Word{Text::kHelpAsks, "help.asks", L"It asks, in this order and where there is need:"},
    Word{Text::kHelpQuestion, "help.question", L"  {1}"},
    Word{Text::kHelpAttdef, "help.attdef", L"Draw an attribute definition"},
    Word{Text::kHelpBlock, "help.block", L"Make a block of objects"},
    Word{Text::kHelpCircle, "help.circle", L"Draw a circle"},
    Word{Text::kHelpErase, "help.erase", L"Erase objects"},
    Word{Text::kHelpHelp, "help.help", L"List the commands, or tell about one"},
    Word{Text::kHelpLayer, "help.layer", L"Make, set, lock and unlock layers"},
    Word{Text::kHelpLine, "help.line", L"Draw lines"},
    Word{Text::kHelpList, "help.list", L"Show the selected or all objects, and the blocks"},
    Word{Text::kHelpNew, "help.new", L"Begin a new drawing"},
    Word{Text::kHelpOpen, "help.open", L"Open a drawing"},
    Word{Text::kHelpPurge, "help.purge", L"Remove what nothing uses"},
    Word{Text::kHelpQuit, "help.quit", L"End the program"},
    Word{Text::kHelpRedo, "help.redo", L"Do again what UNDO took back"},
    Word{Text::kHelpRename, "help.rename", L"Rename blocks, layers and styles"},
    Word{Text::kHelpSave, "help.save", L"Save the drawing in its file"},
    Word{Text::kHelpSaveas, "help.saveas", L"Save the drawing in another file or version"},
    Word{Text::kHelpSelect, "help.select", L"Select objects for the next command"},
    Word{Text::kHelpSetvar, "help.setvar", L"Show and set system variables"},
    Word{Text::kHelpText, "help.text", L"Draw a line of text"},
    Word{Text::kHelpUcs, "help.ucs", L"Set the user coordinate system"},
    Word{Text::kHelpUndo, "help.undo", L"Take back the last command"},

    Word{Text::kNewDrawing, "drawing.new", L"A new drawing."},
    Word{Text::kOpened, "drawing.opened", L"Opened {1}: {2} {2:object|objects}, version {3}."},
    Word{Text::kUnreadable, "drawing.unreadable", L"{1}"},
    Word{Text::kReadIssue, "drawing.issue", L"{1}: {2}"},
    Word{Text::kMoreIssues, "drawing.more-issues", L"{1}: {2} more {2:finding|findings} of this kind."},
    Word{Text::kRepaired, "drawing.repaired", L"{1} was damaged: {2} {2:thing was|things were} repaired or lost."},
    Word{Text::kPromptFileName, "prompt.file-name", L"File name:"},
    Word{Text::kPromptFileNameOr, "prompt.file-name-or", L"File name <{1}>:"},
    Word{Text::kPromptVersion, "prompt.version", L"Version [12/2000/2004/2007/2010/2013/2018] <{1}>:"},
    Word{Text::kNoSuchVersion, "version.unknown",
         L"\"{1}\" is no version; there are 12, 2000, 2004, 2007, 2010, 2013 and 2018."},
    Word{Text::kFileExists, "file.exists", L"{1} exists; --force replaces it."},
    Word{Text::kReplaceQuestion, "file.replace-question", L"{1} exists. Replace it? [Yes/No] <No>:"},
    Word{Text::kRepairedOwnFile, "file.repaired-own",
         L"{1} was damaged and is repaired in memory only; --force writes the repaired drawing over it."},
    Word{Text::kRepairedOwnQuestion, "file.repaired-own-question",
         L"{1} was damaged and is repaired in memory only. Write the repaired drawing over it? [Yes/No] <No>:"},
    Word{Text::kNotADrawingName, "file.dwg", L"{1}: DWG files cannot be written; name a .dxf file."},
    Word{Text::kSaved, "drawing.saved", L"Saved {1}, version {2}."},
    Word{Text::kSaveFailed, "drawing.save-failed", L"Not saved, the file on disk is unchanged: {1}"},
    Word{Text::kVersionLoss, "drawing.version-loss", L"{1}: {2}"},
    Word{Text::kNoFileName, "file.no-name", L"A file name is needed."},
    Word{Text::kXrefNote, "drawing.xref", L"{1}: {2}"},

    Word{Text::kUndone, "undo.undone", L"{1} taken back."},
    Word{Text::kRedone, "undo.redone", L"{1} done again."},
    Word{Text::kNothingToUndo, "undo.nothing", L"There is nothing to take back."},
    Word{Text::kNothingToRedo, "redo.nothing", L"There is nothing to do again."},

    Word{Text::kPromptVariable, "prompt.variable", L"Variable:"},
    Word{Text::kPromptValue, "prompt.value", L"New value for {1} <{2}>:"},
    Word{Text::kNoSuchVariable, "variable.unknown", L"There is no variable \"{1}\"."},
    Word{Text::kVariableRefused, "variable.refused", L"{1} cannot be set to \"{2}\"."},
    Word{Text::kVariableLine, "variable.value", L"{1} = {2}"},

    Word{Text::kPromptUcs, "prompt.ucs", L"User coordinate system [World/Origin/3point/Z/Previous/?] <World>:"},
    Word{Text::kKeywordsUcs, "keywords.ucs", L"World Origin 3point Z Previous ? _World Origin 3point Z Previous ?"},
    Word{Text::kPromptOrigin, "prompt.origin", L"New origin <0,0,0>:"},
    Word{Text::kPromptXAxis, "prompt.x-axis", L"Point on the positive X axis:"},
    Word{Text::kPromptYAxis, "prompt.y-axis", L"Point on the positive-Y side:"},
    Word{Text::kPromptRotation, "prompt.rotation-about-z", L"Rotation about the Z axis <90>:"},
    Word{Text::kUcsWorld, "ucs.world", L"The current coordinate system is the world."},
    Word{Text::kUcsLine, "ucs.current", L"Current coordinate system: origin {1}, X axis {2}, Y axis {3}."},
    Word{Text::kUcsRecord, "ucs.record", L"Coordinate system \"{1}\": origin {2}, X axis {3}, Y axis {4}."},
    Word{Text::kNoEarlierUcs, "ucs.no-previous", L"There is no earlier coordinate system."},
    Word{Text::kPointsInLine, "ucs.in-line", L"The three points lie on one line."},

    Word{Text::kPromptLayerOption, "prompt.layer-option", L"Layers [?/Make/Set/Lock/Unlock] <done>:"},
    Word{Text::kKeywordsLayer, "keywords.layer", L"? Make Set Lock Unlock _? Make Set Lock Unlock"},
    Word{Text::kPromptLayerName, "prompt.layer-name", L"Layer <{1}>:"},
    Word{Text::kNoSuchLayer, "layer.unknown", L"There is no layer \"{1}\"."},
    Word{Text::kLayerFrozen, "layer.frozen", L"The layer \"{1}\" is frozen and cannot be current."},
    Word{Text::kLayerLine, "layer.line", L"Layer \"{1}\"{2}"},
    Word{Text::kLayerMarkCurrent, "layer.mark-current", L", current"},
    Word{Text::kLayerMarkLocked, "layer.mark-locked", L", locked"},
    Word{Text::kLayerMarkFrozen, "layer.mark-frozen", L", frozen"},
    Word{Text::kLayerMarkOff, "layer.mark-off", L", off"},
    Word{Text::kLayerIsCurrent, "layer.current", L"The layer \"{1}\" is current."},
    Word{Text::kLayerLocked, "layer.locked", L"The layer \"{1}\" is locked."},
    Word{Text::kLayerUnlocked, "layer.unlocked", L"The layer \"{1}\" is unlocked."},
    Word{Text::kBadLayerName, "layer.bad-name", L"\"{1}\" cannot be the name of a layer."},

    Word{Text::kPromptFromPoint, "prompt.from-point", L"From point:"},
    Word{Text::kPromptToPoint, "prompt.to-point", L"To point <done>:"},
    Word{Text::kPromptToPointOrClose, "prompt.to-point-or-close", L"To point [Close] <done>:"},
    Word{Text::kKeywordsClose, "keywords.close", L"Close _Close"},
    Word{Text::kPromptCenter, "prompt.center", L"Center:"},
    Word{Text::kPromptRadius, "prompt.radius", L"Radius:"},
    Word{Text::kRadiusTooSmall, "circle.radius", L"A radius is greater than 0."},
    Word{Text::kPromptTextStart, "prompt.text-start", L"Start point of the text:"},
    Word{Text::kPromptHeight, "prompt.height", L"Height <{1}>:"},
    Word{Text::kHeightTooSmall, "text.height", L"A height is greater than 0."},
    Word{Text::kPromptAngle, "prompt.angle", L"Rotation <0>:"},
    Word{Text::kNotAnAngle, "prompt.not-an-angle", L"\"{1}\" is not an angle."},
    Word{Text::kPromptText, "prompt.text", L"Text:"},
    Word{Text::kPromptTag, "prompt.tag", L"Tag:"},
    Word{Text::kBadTag, "attribute.bad-tag",
         L"\"{1}\" cannot be a tag: a tag has no blanks and no !, and is not empty."},
    Word{Text::kPromptTagPrompt, "prompt.tag-prompt", L"What to ask for <{1}>:"},
    Word{Text::kPromptTagDefault, "prompt.tag-default", L"Default value:"},

    Word{Text::kPromptSelect, "prompt.select",
         L"Select objects [All/Window/Crossing/Fence/LAyer/Type/Handle/Last/Previous/Remove/ADd] <done>:"},
    Word{Text::kPromptRemove, "prompt.remove",
         L"Remove objects [All/Window/Crossing/Fence/LAyer/Type/Handle/Last/Previous/Remove/ADd] <done>:"},
    Word{Text::kKeywordsSelect, "keywords.select",
         L"All Window Crossing Fence LAyer Type Handle Last Previous Remove ADd "
         L"_All Window Crossing Fence Layer Type Handle Last Previous Remove Add"},
    Word{Text::kPromptCorner, "prompt.corner", L"First corner:"},
    Word{Text::kPromptOtherCorner, "prompt.other-corner", L"Other corner:"},
    Word{Text::kPromptFence, "prompt.fence", L"First point of the fence:"},
    Word{Text::kPromptFenceNext, "prompt.fence-next", L"Next point <done>:"},
    Word{Text::kPromptSelectLayer, "prompt.select-layer", L"Objects on which layer:"},
    Word{Text::kPromptSelectType, "prompt.select-type", L"Objects of which type:"},
    Word{Text::kPromptSelectHandle, "prompt.select-handle", L"Handle:"},
    Word{Text::kSelected, "select.count", L"{1} {1:object|objects} selected."},
    Word{Text::kSelectedBefore, "select.before", L"{1} {1:object|objects} selected before the command."},
    Word{Text::kNothingPrevious, "select.no-previous", L"Nothing was selected before."},
    Word{Text::kNothingSelected, "select.nothing", L"No objects are selected."},
    Word{Text::kNoSuchLayerAmong, "select.unknown-layer", L"There is no layer \"{1}\". Layers: {2}."},
    Word{Text::kNoSuchTypeAmong, "select.unknown-type", L"There is no object of type \"{1}\". Types: {2}."},
    Word{Text::kNoSuchHandle, "select.unknown-handle",
         L"No object to be selected has the handle \"{1}\". LIST shows the hexadecimal handles of all."},
    Word{Text::kSpaceEmpty, "select.empty-space", L"There is nothing in the drawing to select."},
    Word{Text::kLockedLeftOut, "select.locked", L"{1} {1:object is|objects are} on locked layers and left out."},
    Word{Text::kAllLocked, "select.all-locked", L"All selected objects are on locked layers."},
    Word{Text::kErased, "erase.count", L"{1} {1:object|objects} erased."},

    Word{Text::kListObject, "list.object", L"{1}  handle {2}  layer \"{3}\"  {4}"},
    Word{Text::kListBlock, "list.block", L"Block \"{1}\": {2} {2:object|objects}, {3} {3:reference|references}"},
    Word{Text::kListSummary, "list.summary", L"{1} {1:object|objects}, {2} {2:block|blocks}"},
    Word{Text::kNoBlocks, "list.no-blocks", L"There are no blocks."},
    Word{Text::kDescribeLine, "describe.line", L"from {1} to {2}"},
    Word{Text::kDescribeCircle, "describe.circle", L"center {1}, radius {2}"},
    Word{Text::kDescribeText, "describe.text", L"at {1}, height {2}, \"{3}\""},
    Word{Text::kDescribeAttribute, "describe.attribute", L"tag {4}, at {1}, height {2}, \"{3}\""},
    Word{Text::kDescribeReference, "describe.reference",
         L"block \"{1}\" at {2}, scale {3}, rotation {4}, {5} {5:attribute|attributes}"},
    Word{Text::kDescribeExtents, "describe.extents", L"between {1} and {2}"},

    Word{Text::kReportName, "report.name", L"Name"},
    Word{Text::kReportReferences, "report.references", L"References"},
    Word{Text::kReportNested, "report.nested", L"Nested"},
    Word{Text::kReportAttributes, "report.attributes", L"Attributes"},
    Word{Text::kReportDepth, "report.depth", L"Depth"},
    Word{Text::kReportUnits, "report.units", L"Units"},
    Word{Text::kReportNotes, "report.notes", L"Notes"},
    Word{Text::kReportMany, "report.many", L"very many"},
    Word{Text::kReportLayout, "report.layout", L"layout {1}"},
    Word{Text::kReportShapeOf, "report.shape-of", L"shape of {1}"},
    Word{Text::kReportXref, "report.xref", L"external: {1}"},
    Word{Text::kReportOverlay, "report.overlay", L"external, overlaid: {1}"},
    Word{Text::kReportDependent, "report.dependent", L"from an external drawing"},
    Word{Text::kReportDynamic, "report.dynamic", L"dynamic"},
    Word{Text::kReportAnnotative, "report.annotative", L"annotative"},
    Word{Text::kReportUniform, "report.uniform", L"scaled uniformly"},
    Word{Text::kReportNoExplode, "report.no-explode", L"not to be exploded"},

    Word{Text::kPromptBlockName, "prompt.block-name", L"Block name [?]:"},
    Word{Text::kBadBlockQuery, "block.bad-query", L"Type a name, or ? alone for the list of blocks."},
    Word{Text::kPromptBasePoint, "prompt.base-point", L"Base point <0,0,0>:"},
    Word{Text::kPromptAfterwards, "prompt.afterwards", L"The objects [Keep/Convert/Delete] <{1}>:"},
    Word{Text::kKeywordsAfterwards, "keywords.afterwards", L"Keep Convert Delete _Keep Convert Delete"},
    Word{Text::kNameNotUtf8, "block.name-not-utf8", L"The name \"{1}\" holds characters that no file can hold."},
    Word{Text::kNameEmpty, "block.name-empty", L"A block needs a name."},
    Word{Text::kNameTooLong, "block.name-too-long", L"The name of the block is too long."},
    Word{Text::kNameCharacter, "block.name-character",
         L"\"{1}\" is not allowed in the name of a block. Not allowed are {2}"},
    Word{Text::kNameOfSpace, "block.name-of-space", L"\"{1}\" is the name of a space, not of a block."},
    Word{Text::kNameAnonymous, "block.name-anonymous", L"\"{1}\" is the name of an anonymous block."},
    Word{Text::kNameExternal, "block.name-external", L"\"{1}\" is an external reference or belongs to one."},
    Word{Text::kNameBeingEdited, "block.name-edited", L"The block \"{1}\" is open in the block editor."},
    Word{Text::kNameInvalid, "block.name-invalid", L"\"{1}\" gives no name that a block can have."},
    Word{Text::kBlockExists, "block.exists",
         L"The block \"{1}\" is defined and has {2} {2:reference|references}; --redefine replaces it."},
    Word{Text::kContainsItself, "block.contains-itself", L"The block \"{1}\" would contain itself: {2}."},
    Word{Text::kChainStart, "block.chain-start", L"\"{1}\""},
    Word{Text::kChainLink, "block.chain-link", L" contains \"{1}\" (reference {2})"},
    Word{Text::kCamerasLeftOut, "block.cameras", L"{1} {1:camera is|cameras are} left out."},
    Word{Text::kDropped, "block.dropped",
         L"{1} {1:object|objects} of type {2} cannot be put into the block and {1:stays where it is|stay where they "
         L"are}."},
    Word{Text::kAllDropped, "block.all-dropped", L"None of the objects can be put into a block."},
    Word{Text::kBlockFailed, "block.failed", L"The block \"{1}\" could not be made."},
    Word{Text::kPropertyFailed, "block.property-failed", L"The block \"{1}\" does not take the option {2}."},
    Word{Text::kReferenceFailed, "block.reference-failed", L"The reference to \"{1}\" could not be placed."},
    Word{Text::kBlockMade, "block.made", L"Block \"{1}\" made of {2} {2:object|objects}."},
    Word{Text::kBlockRedefined, "block.redefined", L"Block \"{1}\" redefined with {2} {2:object|objects}."},
    Word{Text::kKept, "block.objects-kept", L"The objects are kept."},
    Word{Text::kConverted, "block.objects-converted", L"The objects are replaced by a reference."},
    Word{Text::kDeleted, "block.objects-deleted", L"The objects are deleted."},

    Word{Text::kBadPoint, "usage.point", L"{1} takes X,Y or X,Y,Z, not \"{2}\"."},
    Word{Text::kBadUcs, "usage.ucs",
         L"{1} takes an origin and two axes at right angles, OX,OY,OZ/XX,XY,XZ/YX,YY,YZ, not \"{2}\"."},
    Word{Text::kBadUnits, "usage.units",
         L"{1} takes a code from 0 to 24 or a name such as mm, cm, m, in, ft, not "
         L"\"{2}\"."},
    Word{Text::kBadVersion, "usage.version", L"{1} takes 12, 2000, 2004, 2007, 2010, 2013 or 2018, not \"{2}\"."},
    Word{Text::kBadHandle, "usage.handle", L"{1} takes a hexadecimal handle, not \"{2}\"."},
    Word{Text::kNoSelector, "usage.no-selector", L"Say which objects: --select all, --layer, --type or --handle."},
    Word{Text::kScriptUnreadable, "script.unreadable", L"The script {1} cannot be read."},

    Word{Text::kPromptPurge, "prompt.purge", L"Purge [All/Blocks/LAyers/LTypes/Textstyles/Dimstyles/Others/?] <All>:"},
    Word{Text::kKeywordsPurge, "keywords.purge",
         L"All Blocks LAyers LTypes Textstyles Dimstyles Others ? "
         L"_All Blocks Layers Linetypes Textstyles Dimstyles Others ?"},
    Word{Text::kPurged, "purge.purged", L"Purged {1} \"{2}\"."},
    Word{Text::kPurgeable, "purge.purgeable", L"Can be purged: {1} \"{2}\"."},
    Word{Text::kPurgeCount, "purge.count", L"{1} {1:thing|things} purged."},
    Word{Text::kNothingToPurge, "purge.nothing", L"There is nothing to purge."},
    Word{Text::kNotPurged, "purge.kept", L"Not purged: {1} \"{2}\": {3}."},
    Word{Text::kUseByBlock, "purge.use-by-block", L"referenced by block \"{1}\" ({2} {2:time|times})"},
    Word{Text::kUseBySpace, "purge.use-by-space", L"used in \"{1}\" ({2} {2:time|times})"},
    Word{Text::kUseByArrow, "purge.use-by-arrow", L"arrow of dimension style \"{1}\""},
    Word{Text::kUseByRecord, "purge.use-by-record", L"used by {3} \"{1}\" ({2} {2:time|times})"},
    Word{Text::kUseByVariable, "purge.use-by-variable", L"named by the variable {1}"},
    Word{Text::kUseNeeded, "purge.needed", L"every drawing has it"},
    Word{Text::kUseExternal, "purge.external", L"it belongs to an external reference"},
    Word{Text::kUseMore, "purge.more-uses", L"and {1} more"},
    Word{Text::kNoOutput, "usage.no-output", L"Name the drawing to write with -o, or ask for --dry-run."},

    Word{Text::kPromptRenameKind, "prompt.rename-kind", L"Rename [Block/LAyer/LType/Textstyle/Dimstyle] <Block>:"},
    Word{Text::kKeywordsRename, "keywords.rename",
         L"Block LAyer LType Textstyle Dimstyle _Block Layer Linetype Textstyle Dimstyle"},
    Word{Text::kPromptOldName, "prompt.old-name", L"Old name:"},
    Word{Text::kPromptNewName, "prompt.new-name", L"New name:"},
    Word{Text::kRenamed, "rename.renamed", L"The {1} \"{2}\" is \"{3}\" now."},
    Word{Text::kRenameUnknown, "rename.unknown", L"There is no {1} \"{2}\"."},
    Word{Text::kRenameTaken, "rename.taken", L"There is a {1} \"{2}\" already."},
    Word{Text::kRenameFixed, "rename.fixed", L"The {1} \"{2}\" keeps its name: every drawing has it."},
    Word{Text::kRenameIllegal, "rename.illegal", L"\"{2}\" cannot be the name of a {1} in this drawing."},
    Word{Text::kBadRename, "usage.rename", L"{1} takes OLD=NEW, not \"{2}\"."},
    Word{Text::kNoRename, "usage.no-rename",
         L"Say what to rename: --block, --layer, --linetype, --style or --dimstyle, each with OLD=NEW."},

    Word{Text::kAuditSeverity, "audit.severity", L"Severity"},
    Word{Text::kAuditPlace, "audit.place", L"Place"},
    Word{Text::kAuditFound, "audit.found", L"Found"},
    Word{Text::kAuditDone, "audit.done", L"Done"},
    Word{Text::kAuditRow, "audit.row", L"{1}  {2}  {3}  {4}"},
    Word{Text::kAuditSum, "audit.records",
         L"{1} {1:record|records} read, {2} kept as {2:it is|they are}, {3} kept unread, {4} dropped."},
    Word{Text::kAuditWhole, "audit.whole", L"The drawing is whole."},
    Word{Text::kAuditIssues, "audit.issues", L"{1} {1:thing|things} found."},
    Word{Text::kFixNeedsOutput, "usage.fix-output", L"--fix and -o go together."},
    Word{Text::kHelpAudit, "help.audit", L"Look for damage, and mend it"},
    Word{Text::kPromptFix, "prompt.fix", L"Mend what is found? [Yes/No] <No>:"},

    Word{Text::kBadEncoding, "usage.encoding",
         L"{1} takes a code page such as ANSI_1251, ANSI_936, DOS437, ISO8859-5 or UTF-8, not \"{2}\"."},
    Word{Text::kBadMemory, "usage.memory", L"{1} takes a number of bytes, or one with K, M or G, not \"{2}\"."},

    Word{Text::kHelpExplode, "help.explode", L"Take block references apart, one level"},
    Word{Text::kPromptAttributesAsText, "prompt.attributes-as-text", L"Attributes as texts? [Yes/No] <No>:"},
    Word{Text::kExploded, "explode.done", L"{1} {1:reference|references} exploded into {2} {2:object|objects}."},
    Word{Text::kNothingExploded, "explode.nothing", L"Nothing was exploded."},
    Word{Text::kExplodeNoReference, "explode.no-reference", L"{1} is no block reference and stays as it is."},
    Word{Text::kExplodeExternal, "explode.external",
         L"The reference {1} shows an external drawing and stays as it is."},
    Word{Text::kExplodeNotAllowed, "explode.not-allowed",
         L"The block of the reference {1} is marked as not to be exploded."},
    Word{Text::kExplodeCannotPlace, "explode.cannot-place",
         L"The reference {1} stays as it is: these objects of its block cannot stand as it shows them: {2}."},
    Word{Text::kExplodeTooMuch, "explode.too-much", L"The reference {1} stays as it is: it shows too many objects."},
    Word{Text::kExplodeClip, "explode.clip", L"The reference {1} was clipped; now all of its block is there."},
    Word{Text::kExplodeValues, "explode.values-lost",
         L"{1} {1:value of an attribute is|values of attributes are} gone."},
    Word{Text::kHelpAttedit, "help.attedit", L"Change the attributes of a reference"},
    Word{Text::kHelpAttsync, "help.attsync", L"Bring the attributes of references up to date with their block"},
    Word{Text::kPromptAttdefPlace, "prompt.attdef-place", L"Start point of the text [Justify/Modes/Rotation/Style]:"},
    Word{Text::kKeywordsAttdef, "keywords.attdef", L"Justify Modes Rotation Style _Justify Modes Rotation Style"},
    Word{Text::kPromptModes, "prompt.attribute-modes",
         L"Mode to change [Invisible/Constant/Verify/Preset/Lock/Multiple] <done>:"},
    Word{Text::kKeywordsModes, "keywords.attribute-modes",
         L"Invisible Constant Verify Preset Lock Multiple _Invisible Constant Verify Preset Lock Multiple"},
    Word{Text::kModesOn, "attribute.modes", L"Modes that are on: {1}."},
    Word{Text::kPromptJustify, "prompt.justify",
         L"Justify [Left/Center/Right/Align/Middle/Fit/TL/TC/TR/ML/MC/MR/BL/BC/BR] <Left>:"},
    Word{Text::kKeywordsJustify, "keywords.justify",
         L"Left Center Right Align Middle Fit TL TC TR ML MC MR BL BC BR _Left Center Right Align Middle Fit TL TC TR "
         L"ML MC MR BL BC BR"},
    Word{Text::kPromptSecondPoint, "prompt.base-line", L"End of the base line:"},
    Word{Text::kNoBaseLine, "text.base-line", L"The two ends of the base line are one point."},
    Word{Text::kPromptStyle, "prompt.text-style", L"Text style:"},
    Word{Text::kNoSuchStyle, "text.unknown-style", L"There is no text style \"{1}\"."},
    Word{Text::kPromptAttributeTag, "prompt.attribute", L"Attribute, as TAG or TAG#2 [?] <done>:"},
    Word{Text::kPromptAttributeValue, "prompt.attribute-value", L"New value, \"\" for none <{1}>:"},
    Word{Text::kOneReference, "attribute.one-reference", L"Select one reference only."},
    Word{Text::kNoAttributes, "attribute.no-reference", L"No reference with attributes is selected."},
    Word{Text::kAttributeLine, "attribute.line", L"{1} = \"{2}\""},
    Word{Text::kNoSuchAttribute, "attribute.unknown", L"The reference has no attribute \"{1}\". ? lists what it has."},
    Word{Text::kAttributeSet, "attribute.set", L"{1} is \"{2}\" now."},
    Word{Text::kAttributeSetWithoutField, "attribute.set-without-field",
         L"{1} is \"{2}\" now; the field that computed it is removed."},
    Word{Text::kAttributeSame, "attribute.same", L"{1} is \"{2}\" already."},
    Word{Text::kAttributeLocked, "attribute.locked", L"{1} is on a locked layer."},
    Word{Text::kAttributeConstant, "attribute.constant", L"{1} is constant."},
    Word{Text::kAttributeLines, "attribute.lines", L"{1} has one line and takes no line breaks."},
    Word{Text::kNoSuchBlock, "block.unknown", L"There is no block \"{1}\"."},
    Word{Text::kSyncBlock, "attsync.block", L"Block \"{1}\": {2} {2:reference|references}"},
    Word{Text::kNoSyncBlocks, "attsync.no-blocks", L"No block has attribute definitions."},
    Word{Text::kSyncSurplus, "attsync.surplus",
         L"Reference {1}: {2} = \"{3}\" is not in the block any more and removed."},
    Word{Text::kSyncLocked, "attsync.locked", L"Reference {1} is on a locked layer and stays as it was."},
    Word{Text::kSynced, "attsync.done", L"{1} {1:reference|references} brought up to date."},
    Word{Text::kAttributeRow, "attributes.row", L"{1}  \"{2}\"  {3} = \"{4}\""},
    Word{Text::kAttributeCount, "attributes.count", L"{1} {1:attribute|attributes}."},
    Word{Text::kImportNeedsOutput, "attributes.import-output", L"--import and -o OUT belong together."},
    Word{Text::kImported, "attributes.imported",
         L"{1} {1:value|values} changed, {2} as they were, {3} {3:row does|rows do} not fit."},
    Word{Text::kImportMisfit, "attributes.misfit", L"{1}, line {2}: {3}"},
    Word{Text::kMisfitHandle, "attributes.no-handle", L"there is no reference \"{1}\""},
    Word{Text::kMisfitBlock, "attributes.other-block", L"reference {1} shows \"{2}\", not \"{3}\""},
    Word{Text::kMisfitTag, "attributes.no-tag", L"reference {1} has no attribute \"{2}\""},
    Word{Text::kMisfitOrdinal, "attributes.no-ordinal",
         L"reference {1} has {2} {2:attribute|attributes} \"{3}\", and none with the number \"{4}\""},
    Word{Text::kMisfitTwice, "attributes.twice", L"line {1} has a value for the same attribute"},
    Word{Text::kCsvUnreadable, "csv.unreadable", L"{1}"},
    Word{Text::kCsvQuote, "csv.quote", L"{1}, line {2}: a quote stands inside a cell; nothing was changed."},
    Word{Text::kCsvOpen, "csv.open-quote", L"{1}, line {2}: a quote is not closed; nothing was changed."},
    Word{Text::kCsvCells, "csv.cells", L"{1}, line {2}: {3} {3:cell|cells} instead of {4}; nothing was changed."},
    Word{Text::kCsvColumn, "csv.column", L"{1}: the first line names no column \"{2}\"; nothing was changed."},
    Word{Text::kHelpXref, "help.xref", L"List, attach, detach, reload and bind external references"},
    Word{Text::kHelpBedit, "help.bedit", L"Open the contents of a block; commands work on them until BCLOSE"},
    Word{Text::kHelpBclose, "help.bclose", L"Close the block that BEDIT opened"},
    Word{Text::kPromptXref, "prompt.xref", L"External references [?/Attach/Overlay/Detach/Reload/Bind] <?>:"},
    Word{Text::kKeywordsXref, "keywords.xref",
         L"? Attach Overlay Detach Reload Bind _? Attach Overlay Detach Reload Bind"},
    Word{Text::kPromptXrefName, "prompt.xref-name", L"Name of the external reference, or * for all:"},
    Word{Text::kPromptXrefNameOr, "prompt.xref-name-or", L"Name <{1}>:"},
    Word{Text::kPromptXrefPoint, "prompt.xref-point", L"Insertion point:"},
    Word{Text::kNoXrefs, "xref.none", L"The drawing has no external references."},
    Word{Text::kNoSuchXref, "xref.unknown", L"There is no external reference \"{1}\"."},
    Word{Text::kXrefLine, "xref.line", L"\"{1}\": {2}, {3}"},
    Word{Text::kXrefLoaded, "xref.loaded", L"loaded"},
    Word{Text::kXrefUnloaded, "xref.unloaded", L"unloaded"},
    Word{Text::kXrefNotFound, "xref.not-found", L"not found"},
    Word{Text::kXrefRefused, "xref.refused", L"not readable"},
    Word{Text::kXrefInCycle, "xref.in-cycle", L"refers back to a drawing that refers to it"},
    Word{Text::kXrefNotFollowed, "xref.not-followed", L"an overlay that is not followed"},
    Word{Text::kXrefNotLoaded, "xref.not-loaded", L"not loaded"},
    Word{Text::kXrefNoFile, "xref.no-file", L"There is no file \"{1}\"."},
    Word{Text::kXrefItself, "xref.itself", L"{1} is this drawing, which cannot refer to itself."},
    Word{Text::kXrefUnreadable, "xref.unreadable", L"{1} cannot be attached: {2}"},
    Word{Text::kXrefNameTaken, "xref.name-taken", L"The name \"{1}\" is that of another block."},
    Word{Text::kUnsavedName, "drawing.unnamed", L"The drawing"},
    Word{Text::kXrefAttached, "xref.attached", L"External reference \"{1}\" to {2}, scaled by {3} for its units."},
    Word{Text::kXrefDetached, "xref.detached",
         L"External reference \"{1}\" detached; {2} {2:reference|references} erased."},
    Word{Text::kXrefCannotBind, "xref.cannot-bind", L"\"{1}\" cannot be bound: \"{2}\" is {3}."},
    Word{Text::kXrefLeftOut, "xref.left-out", L"The overlay \"{2}\" in \"{1}\" is left out."},
    Word{Text::kXrefBound, "xref.bound", L"\"{1}\" is an ordinary block now."},
    Word{Text::kPromptEditedBlock, "prompt.edited-block", L"Block to edit:"},
    Word{Text::kNoBlockToEdit, "editor.unknown", L"There is no block \"{1}\"."},
    Word{Text::kEditorOpen, "editor.open", L"The block \"{1}\" is open already; BCLOSE closes it."},
    Word{Text::kEditorOpened, "editor.opened", L"Commands work on the contents of \"{1}\" until BCLOSE."},
    Word{Text::kEditorClosed, "editor.closed", L"The block \"{1}\" is closed."},
    Word{Text::kEditorNotOpen, "editor.not-open", L"No block is open; BEDIT opens one."},
    Word{Text::kHelpDocs, "help.docs", L"List the open drawings; open more, switch between them, close one"},
    Word{Text::kPromptDocs, "prompt.docs", L"Open drawings [?/Open/Switch/Close] <?>:"},
    Word{Text::kKeywordsDocs, "keywords.docs", L"? Open Switch Close _? Open Switch Close"},
    Word{Text::kPromptDocNumber, "prompt.doc-number", L"Number of the drawing:"},
    Word{Text::kNoSuchDoc, "docs.unknown", L"There is no open drawing \"{1}\"."},
    Word{Text::kDocLine, "docs.line", L"{1}. {2}{3}"},
    Word{Text::kDocCurrent, "docs.is-current", L", current"},
    Word{Text::kDocModified, "docs.is-modified", L", not saved"},
    Word{Text::kDocIsCurrent, "docs.current", L"{1} is current."},
    Word{Text::kOnlyDoc, "docs.only", L"No other drawing is open; QUIT ends."},

    Word{Text::kHelpInsert, "help.insert", L"Insert a block, or a drawing file as a block"},
    Word{Text::kPromptInsertName, "prompt.insert-name", L"Block or drawing file, or NAME=FILE [?]:"},
    Word{Text::kPromptInsertPoint, "prompt.insert-point", L"Insertion point [Rows] <0,0,0>:"},
    Word{Text::kKeywordsInsert, "keywords.insert", L"Rows _Rows"},
    Word{Text::kPromptRows, "prompt.rows", L"Rows <1>:"},
    Word{Text::kPromptColumns, "prompt.columns", L"Columns <1>:"},
    Word{Text::kPromptRowSpacing, "prompt.row-spacing", L"From row to row:"},
    Word{Text::kPromptColumnSpacing, "prompt.column-spacing", L"From column to column:"},
    Word{Text::kPromptScale, "prompt.scale", L"Scale <1>:"},
    Word{Text::kPromptScaleX, "prompt.scale-x", L"Scale of X <1>:"},
    Word{Text::kPromptScaleY, "prompt.scale-y", L"Scale of Y <that of X>:"},
    Word{Text::kPromptInsertRotation, "prompt.insert-rotation", L"Rotation <0>:"},
    Word{Text::kBadRows, "insert.rows", L"Rows and columns are whole numbers from 1 to 32767, not {1}."},
    Word{Text::kNoBlockOrFile, "insert.unknown", L"There is no block and no drawing file \"{1}\"."},
    Word{Text::kUnitsFactor, "insert.factor", L"Factor of units: {1}."},
    Word{Text::kInserted, "insert.done", L"Block \"{1}\" inserted, handle {2}."},
    Word{Text::kScaleZero, "insert.scale-zero", L"A scale is not 0."},
    Word{Text::kScaleUniform, "insert.scale-uniform", L"The block \"{1}\" takes one scale for all directions."},
    Word{Text::kInsertsItself, "insert.itself", L"The block \"{1}\" cannot be inserted into itself."},
    Word{Text::kDefinesEdited, "insert.edited", L"{1} defines the block \"{2}\", which is open in the block editor."},
    Word{Text::kNotInserted, "insert.failed", L"{1} cannot be made a block \"{2}\"."},
    Word{Text::kInsertNote, "insert.note", L"{1}: {2}"},
    Word{Text::kClashSame, "insert.clash-same", L"{1}: the block \"{2}\" is defined, with the same contents."},
    Word{Text::kClashOther, "insert.clash-other", L"{1}: the block \"{2}\" is defined, with other contents."},
    Word{Text::kClashKept, "insert.clash-kept",
         L"{1}: the drawing's own block \"{2}\", which has other contents, is inserted."},
    Word{Text::kClashShared, "insert.clash-shared",
         L"{1}: the drawing's own block \"{2}\", which has the same contents, is inserted."},
    Word{Text::kClashReplaced, "insert.clash-replaced", L"{1}: the block \"{2}\" of the drawing is redefined."},
    Word{Text::kClashRenamed, "insert.clash-renamed", L"{1}: there is another block \"{2}\"; this one is \"{3}\"."},
    Word{Text::kNestedRenamed, "insert.nested-renamed",
         L"{1}: there is another block \"{2}\"; the one in the file is \"{3}\"."},
    Word{Text::kNestedKept, "insert.nested-kept",
         L"{1}: blocks in it that the drawing has with other contents show the drawing's: {2}."},
    Word{Text::kNoSuchTag, "insert.unknown-tag", L"The block has no attribute \"{1}\". It has: {2}."},
    Word{Text::kAttributesNeeded, "insert.values-needed", L"These values would have to be asked for: {1}."},
    Word{Text::kListUnreadable, "insert.list-unreadable", L"The list {1} cannot be read."},
    Word{Text::kListFailed, "insert.list-failed", L"Not inserted: {1}"},
    Word{Text::kListSum, "insert.list-sum", L"{1} {1:file|files} inserted, {2} not."},
    Word{Text::kPreviewFile, "preview.file", L"{1} as block \"{2}\":"},
    Word{Text::kPreviewSame, "preview.same", L"  The block \"{1}\" is there, with the same contents."},
    Word{Text::kPreviewOther, "preview.other", L"  The block \"{1}\" is there, with other contents."},
    Word{Text::kPreviewKept, "preview.kept", L"  Stays as the drawing has it: {1} {2}."},
    Word{Text::kPreviewQuestion, "preview.question", L"  It asks: {1}"},
    Word{Text::kBadNumber, "usage.number", L"{1} takes numbers, not \"{2}\"."},
    Word{Text::kBadScale, "usage.scale", L"{1} takes S or SX,SY,SZ, not \"{2}\"."},
    Word{Text::kBadGrid, "usage.grid", L"{1} takes COLUMNS,DX,DY, not \"{2}\"."},
    Word{Text::kBadAttribute, "usage.attribute", L"{1} takes TAG=VALUE, not \"{2}\"."},
    Word{Text::kNameNeedsFile, "usage.name-needs-file", L"--name goes with --file."},
    Word{Text::kGridNeedsList, "usage.grid-needs-list", L"--grid goes with --file-list."},

    Word{Text::kPictureMade, "preview.made", L"Picture {1}, {2} by {3} pixels."},
    Word{Text::kPictureEmpty, "preview.empty", L"Nothing shows; the picture is empty."},
    Word{Text::kPictureLimit, "preview.limit", L"There is more to draw than a picture takes; the rest is left out."},
    Word{Text::kNotDrawn, "preview.not-drawn", L"Not drawn, or not in full: {1} of type {2}, {3}; the first is {4}."},
    Word{Text::kNoSuchLayout, "layout.unknown", L"There is no layout \"{1}\"."},
    Word{Text::kBadPictureSize, "usage.picture-size", L"{1} takes WIDTHxHEIGHT in pixels, not \"{2}\"."},
    Word{Text::kBadBackground, "usage.background", L"{1} takes white, black, none or RRGGBB, not \"{2}\"."},
    Word{Text::kBadPictureName, "usage.picture-name",
         L"{1} takes the name of a .png or .svg file, not \"{2}\"; or say --png or --svg."},
    Word{Text::kNotDrawnBody, "preview.body", L"bodies of the modeler have no picture here"},
    Word{Text::kNotDrawnCycle, "preview.cycle", L"a block that shows itself"},
    Word{Text::kNotDrawnDepthClip, "preview.depth-clip", L"clipping in depth is not applied"},
    Word{Text::kNotDrawnDocument, "preview.document", L"only the frame of the document is drawn"},
    Word{Text::kNotDrawnFinePattern, "preview.fine-pattern", L"the pattern is too fine and drawn as a tint"},
    Word{Text::kNotDrawnKind, "preview.kind", L"nobody here knows the kind"},
    Word{Text::kNotDrawnLetters, "preview.letters", L"no font has some of the letters"},
    Word{Text::kNotDrawnNoBlock, "preview.no-block", L"the block that it shows is not there"},
    Word{Text::kNotDrawnNoPicture, "preview.no-picture",
         L"the drawing holds no picture of it; a plain one is drawn where its kind has one"},
    Word{Text::kNotDrawnPage, "preview.page", L"pages of other documents are not read"},
    Word{Text::kNotDrawnPerspective, "preview.perspective", L"the view is drawn without perspective"},
    Word{Text::kNotDrawnPictureFile, "preview.picture-file", L"only the frame of the picture is drawn"},
    Word{Text::kNotDrawnProxy, "preview.proxy", L"only the program that made it can draw it"},
    Word{Text::kNotDrawnShapeFile, "preview.shape-file", L"files of shapes are not read"},
    Word{Text::kNotDrawnSmoothing, "preview.smoothing", L"the mesh is drawn before smoothing"},
    Word{Text::kNotDrawnToleranceNote, "preview.tolerance-note", L"the tolerances in the note are left out"},
    Word{Text::kNotDrawnXref, "preview.xref-not-loaded", L"the external drawing is not loaded"},
    Word{Text::kNotDrawnXrefUnloaded, "preview.xref-unloaded", L"the external drawing is unloaded"},

    Word{Text::kGraphNode, "graph.node", L"{1}\"{2}\"  reference {3}  chain {4}"},
    Word{Text::kGraphExternal, "graph.external",
         L"{1}\"{2}\"  reference {3}  chain {4}  external: {5}, {6}, found at {7}"},
    Word{Text::kGraphLost, "graph.external-lost",
         L"{1}\"{2}\"  reference {3}  chain {4}  external: {5}, {6}, no file found"},
    Word{Text::kGraphNoReference, "graph.no-reference", L"The drawing has no block reference with the handle {1}."},
    Word{Text::kGraphEndless, "graph.endless",
         L"The tree below reference {1} has no end: a dynamic block is part of itself by one of its shapes."},
    Word{Text::kGraphTooLarge, "graph.too-large",
         L"The tree below reference {1} would hold {2} references, which is more than {3}; --max-nodes allows more."},
    Word{Text::kGraphTooDeep, "graph.too-deep",
         L"The chains below reference {1} would name {2} references, which is too much for {3} nodes; --max-nodes "
         L"allows "
         L"more."},
    Word{Text::kEditAllowed, "graph.edit-allowed", L"Reference {1} may be edited in place."},
    Word{Text::kEditXeditOff, "graph.edit-xedit-off",
         L"Reference {1} may not be edited in place: the external drawing {3} does not allow it (XEDIT is off there)."},
    Word{Text::kEditExternal, "graph.edit-external",
         L"Reference {1} may not be edited in place: reference {2} shows the external drawing {3}."},
};

constexpr bool inOrder() {
  for (std::size_t at = 0; at < std::size(kWords); ++at) {
    if (kWords[at].text != static_cast<Text>(at))
      return false;
  }
  return std::size(kWords) == static_cast<std::size_t>(Text::kCount);
}
static_assert(inOrder(), "every text has one row, in the order of the enumeration");

// Marks that turn the direction of writing can make a line read as another one.
bool isShownRaw(wchar_t ch) {
  const bool control = ch < 0x20 || (ch >= 0x7F && ch < 0xA0);
  const bool direction = (ch >= 0x200E && ch <= 0x200F) || (ch >= 0x2028 && ch <= 0x202E) ||
                         (ch >= 0x2066 && ch <= 0x2069) || ch == 0xFEFF;
  const bool none = (ch >= 0xD800 && ch <= 0xDFFF) || ch > 0x10FFFF;
  return !control && !direction && !none;
}

// What a place "{1}" or "{1:one|many}" stands for; `place` is what lies between the braces.
OdString filledPlace(std::wstring_view place, const std::vector<OdString>& arguments) {
  const auto index = static_cast<std::size_t>(place[0] - L'1');
  const OdString value = index < arguments.size() ? escaped(arguments[index]) : OdString();
  if (place.size() < 2)
    return value;
  const auto bar = place.find(L'|');
  return OdString(value == L"1" ? place.substr(2, bar - 2) : place.substr(bar + 1));
}

} // namespace

const char* idOf(Text text) {
  return kWords[static_cast<std::size_t>(text)].id;
}

OdString escaped(const OdString& text) {
  OdString shown;
  for (const wchar_t ch : text.str()) {
    if (isShownRaw(ch)) {
      shown += ch;
    } else {
      OdString code;
      shown += code.format(L"\\u%04X", static_cast<unsigned>(ch));
    }
  }
  return shown;
}

OdString render(Text text, const std::vector<OdString>& arguments) {
  std::wstring_view rest = kWords[static_cast<std::size_t>(text)].english;
  OdString shown;
  for (auto open = rest.find(L'{'); open != std::wstring_view::npos; open = rest.find(L'{')) {
    const auto close = rest.find(L'}', open);
    shown += OdString(rest.substr(0, open));
    shown += filledPlace(rest.substr(open + 1, close - open - 1), arguments);
    rest.remove_prefix(close + 1);
  }
  return shown += OdString(rest);
}

OdString count(std::size_t number) {
  return OdString(std::to_wstring(number));
}

OdString nameList(const std::vector<OdString>& names) {
  constexpr std::size_t kMost = 20;
  OdString list;
  for (std::size_t at = 0; at < names.size() && at < kMost; ++at)
    list += (at == 0 ? OdString() : OdString(L", ")) + L"\"" + names[at] + L"\"";
  return names.size() > kMost ? list + L" ..." : list;
}

} // namespace console

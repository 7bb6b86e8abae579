// What the console says. Every text has a stable id, which machines read, and an English form.
#pragma once

#include "OdString.h"

#include <cstddef>
#include <string>
#include <vector>

namespace console {

enum class Text : unsigned short {
  // Running commands
  kPromptCommand,
  kUnknownCommand,
  kCancelled,
  kFailed,
  kUnsavedAtEnd,
  kDiscardQuestion,
  kKeywordsYesNo,
  kYesOrNo,
  kHelpHead,
  kHelpRow,
  kHelpOne,
  kHelpAsks,
  kHelpQuestion,
  kHelpAttdef,
  kHelpBlock,
  kHelpCircle,
  kHelpErase,
  kHelpHelp,
  kHelpLayer,
  kHelpLine,
  kHelpList,
  kHelpNew,
  kHelpOpen,
  kHelpPurge,
  kHelpQuit,
  kHelpRedo,
  kHelpRename,
  kHelpSave,
  kHelpSaveas,
  kHelpSelect,
  kHelpSetvar,
  kHelpText,
  kHelpUcs,
  kHelpUndo,
  // Files
  kNewDrawing,
  kOpened,
  kUnreadable,
  kReadIssue,
  kMoreIssues,
  kRepaired,
  kPromptFileName,
  kPromptFileNameOr,
  kPromptVersion,
  kNoSuchVersion,
  kFileExists,
  kReplaceQuestion,
  kRepairedOwnFile,
  kRepairedOwnQuestion,
  kNotADrawingName,
  kSaved,
  kSaveFailed,
  kVersionLoss,
  kNoFileName,
  // Undo
  kUndone,
  kRedone,
  kNothingToUndo,
  kNothingToRedo,
  // Variables
  kPromptVariable,
  kPromptValue,
  kNoSuchVariable,
  kVariableRefused,
  kVariableLine,
  // User coordinate systems
  kPromptUcs,
  kKeywordsUcs,
  kPromptOrigin,
  kPromptXAxis,
  kPromptYAxis,
  kPromptRotation,
  kUcsWorld,
  kUcsLine,
  kUcsRecord,
  kNoEarlierUcs,
  kPointsInLine,
  // Layers
  kPromptLayerOption,
  kKeywordsLayer,
  kPromptLayerName,
  kNoSuchLayer,
  kLayerFrozen,
  kLayerLine,
  kLayerMarkCurrent,
  kLayerMarkLocked,
  kLayerMarkFrozen,
  kLayerMarkOff,
  kLayerIsCurrent,
  kLayerLocked,
  kLayerUnlocked,
  kBadLayerName,
  // Drawing objects
  kPromptFromPoint,
  kPromptToPoint,
  kPromptToPointOrClose,
  kKeywordsClose,
  kPromptCenter,
  kPromptRadius,
  kRadiusTooSmall,
  kPromptTextStart,
  kPromptHeight,
  kHeightTooSmall,
  kPromptAngle,
  kNotAnAngle,
  kPromptText,
  kPromptTag,
  kBadTag,
  kPromptTagPrompt,
  kPromptTagDefault,
  // Selecting
  kPromptSelect,
  kKeywordsSelect,
  kPromptSelectLayer,
  kPromptSelectType,
  kPromptSelectHandle,
  kSelected,
  kNothingPrevious,
  kNothingSelected,
  kNoSuchLayerAmong,
  kNoSuchTypeAmong,
  kNoSuchHandle,
  kSpaceEmpty,
  kLockedLeftOut,
  kAllLocked,
  kErased,
  // Lists
  kListObject,
  kListBlock,
  kListSummary,
  kNoBlocks,
  kDescribeLine,
  kDescribeCircle,
  kDescribeText,
  kDescribeAttribute,
  kDescribeReference,
  kDescribeExtents,
  // Blocks
  kPromptBlockName,
  kBadBlockQuery,
  kPromptBasePoint,
  kPromptAfterwards,
  kKeywordsAfterwards,
  kNameNotUtf8,
  kNameEmpty,
  kNameTooLong,
  kNameCharacter,
  kNameOfSpace,
  kNameAnonymous,
  kNameExternal,
  kNameBeingEdited,
  kRedefineQuestion,
  kBlockExists,
  kContainsItself,
  kDropped,
  kAllDropped,
  kBlockFailed,
  kPropertyFailed,
  kReferenceFailed,
  kBlockMade,
  kBlockRedefined,
  kKept,
  kConverted,
  kDeleted,
  // Sub-verbs and options
  kBadPoint,
  kBadUcs,
  kBadUnits,
  kBadVersion,
  kBadHandle,
  kNoSelector,
  kScriptUnreadable,
  // Purging
  kPromptPurge,
  kKeywordsPurge,
  kPurged,
  kPurgeable,
  kPurgeCount,
  kNothingToPurge,
  kNotPurged,
  kUseByBlock,
  kUseBySpace,
  kUseByArrow,
  kUseByRecord,
  kUseByVariable,
  kUseNeeded,
  kUseExternal,
  kUseMore,
  kNoOutput,
  // Renaming
  kPromptRenameKind,
  kKeywordsRename,
  kPromptOldName,
  kPromptNewName,
  kRenamed,
  kRenameUnknown,
  kRenameTaken,
  kRenameFixed,
  kRenameIllegal,
  kBadRename,
  kNoRename,
  // Auditing
  kAuditSeverity,
  kAuditPlace,
  kAuditFound,
  kAuditDone,
  kAuditRow,
  kAuditSum,
  kAuditWhole,
  kAuditIssues,
  kFixNeedsOutput,
  kHelpAudit,
  kPromptFix,
  kCount
};

// "block.made": what scripts compare.
const char* idOf(Text text);

// Control characters, and what is no character at all, as \u000A: nothing from a drawing reaches a terminal raw.
OdString escaped(const OdString& text);

// The English text with {1}, {2} ... replaced by the arguments, escaped; {1:one|many} chooses by whether it is "1".
OdString render(Text text, const std::vector<OdString>& arguments = {});

// A number as an argument.
OdString count(std::size_t number);

// At most twenty of the names, in quotes, with commas between them.
OdString nameList(const std::vector<OdString>& names);

struct Message {
  Text text;
  std::vector<OdString> arguments;
  OdString shown() const { return render(text, arguments); }
};

} // namespace console

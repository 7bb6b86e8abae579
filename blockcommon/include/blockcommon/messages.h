// Message boxes of the block commands, one function for each.
//
// A function displays its box through the host and, if the box is a question, returns the pressed button: 0 the first,
// 1 the second. Arguments are not checked: names, paths and numbers appear in the text as given. Exceptions of the host
// pass through.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

namespace dlgTips {

// The axis in the message about a base point; every other value means X.
enum _CoordType : int { kCoordX = 0, kCoordY = 1, kCoordZ = 2 };

// -- Questions. --

// Whether to redefine a definition that has `count` references; below 1 the text is that for a definition that was
// changed elsewhere. 0: redefine; 1: keep, also for a box that was closed without a choice.
BLOCKCOMMON_API int showBlockRedefineTips(const OdString& name, int count);
// How to proceed with a block without objects. 0: select objects; 1: continue; -1: closed without a choice.
BLOCKCOMMON_API int showSelectEntityTips();

// -- Names of blocks. --

// Reasons why a name is refused.
BLOCKCOMMON_API void showExternalReferenceTips(); // the name is that of an external reference
BLOCKCOMMON_API void showBlockNameEmptyTips();
BLOCKCOMMON_API void showBlockNameBeyondLenTips(); // longer than 255 characters
BLOCKCOMMON_API void showBlockNameUnLegalTips();   // characters that are not allowed; the same text as ...Tips2
BLOCKCOMMON_API void showBlockNameUnLegalTips2();
BLOCKCOMMON_API void showBlockNameUnValidTips(); // neither a block nor a file

// -- Definitions. --

// Reasons why a definition is refused or not changed.
BLOCKCOMMON_API void showBlockExtRefErrorTips();                  // the block is attached as an external reference
BLOCKCOMMON_API void showBasePointInValidTips(_CoordType axis);   // a coordinate is not a number
BLOCKCOMMON_API void showBlockRefSelfTips(const OdString& name);  // the block would contain itself
BLOCKCOMMON_API void showBlockUnModifyTips(const OdString& name); // there is nothing to save
BLOCKCOMMON_API void showBlockLockLayerTips(int count);           // number of objects on locked layers that are omitted

// -- Files. --

// Reasons why a file is refused.
BLOCKCOMMON_API void showUnLegalCharInFilePathTips();
BLOCKCOMMON_API void showFilePathErrorTips();            // no file name, or no full path
BLOCKCOMMON_API void showFilePathDirectoryInvalidTips(); // no such folder
BLOCKCOMMON_API void showFileDocUsingTips(const OdString& path);
BLOCKCOMMON_API void showFileNotFindTips();

} // namespace dlgTips

// The message boxes of the block commands: one function each, nothing tested, nothing kept.
//
// A function shows its box in the host and, when the box is a question, answers the pressed button: 0 for the first
// one, 1 for the second. Names, paths and numbers stand in the body as they are given; an empty text leaves its place
// empty. What the host throws passes through.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

namespace dlgTips {

// The axis that the message about a base point names; every other value names X.
enum _CoordType : int { kCoordX = 0, kCoordY = 1, kCoordZ = 2 };

// -- Questions. --

// Whether the definition is to be replaced. `count` references to it are told; below 1 the question is that of a
// definition that was changed elsewhere. 0: redefine; 1: leave it, also the answer of a box closed without a choice.
BLOCKCOMMON_API int showBlockRedefineTips(const OdString& name, int count);
// What to do about a block without objects. 0: select some; 1: go on without; -1: closed without a choice.
BLOCKCOMMON_API int showSelectEntityTips();

// -- Names of blocks. --

BLOCKCOMMON_API void showExternalReferenceTips(); // the name is that of an external reference
BLOCKCOMMON_API void showBlockNameEmptyTips();
BLOCKCOMMON_API void showBlockNameBeyondLenTips(); // longer than 255 characters
BLOCKCOMMON_API void showBlockNameUnLegalTips();   // characters that a name may not hold; the same as ...Tips2
BLOCKCOMMON_API void showBlockNameUnLegalTips2();
BLOCKCOMMON_API void showBlockNameUnValidTips(); // neither a block nor a file

// -- Definitions. --

BLOCKCOMMON_API void showBlockExtRefErrorTips();                  // the block is attached as an external reference
BLOCKCOMMON_API void showBasePointInValidTips(_CoordType axis);   // a coordinate that is no number
BLOCKCOMMON_API void showBlockRefSelfTips(const OdString& name);  // the block would contain itself
BLOCKCOMMON_API void showBlockUnModifyTips(const OdString& name); // there is nothing to save
BLOCKCOMMON_API void showBlockLockLayerTips(int count);           // so many objects on locked layers are left out

// -- Files. --

BLOCKCOMMON_API void showUnLegalCharInFilePathTips();
BLOCKCOMMON_API void showFilePathErrorTips();            // no file name, or no full path
BLOCKCOMMON_API void showFilePathDirectoryInvalidTips(); // no such folder
BLOCKCOMMON_API void showFileDocUsingTips(const OdString& path);
BLOCKCOMMON_API void showFileNotFindTips();

} // namespace dlgTips

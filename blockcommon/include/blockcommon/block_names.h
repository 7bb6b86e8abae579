// Block names: which texts may be one, and what kind of block a name stands for. Nothing here shows a message.
//
// Two sets of rules stand side by side: isLigitimacyName follows the system variable EXTNAMES and counts UTF-8 bytes,
// the rules of insertCommon have a fixed set of characters and 255 characters.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

namespace blockUtils {

// The name is legal: under EXTNAMES 0 at most 32 bytes, else at most 1023. `flag` is set only when the name has no
// UTF-8 form, and is otherwise left alone.
BLOCKCOMMON_API bool isLigitimacyName(const OdString& name, bool& flag);

// These look the name up in the working database; false for an empty or unknown name.
BLOCKCOMMON_API bool isAnonymous(OdString name); // true at once for a name with '*'
BLOCKCOMMON_API bool isExternalDependent(OdString name);
BLOCKCOMMON_API bool isFromExternalReference(OdString name);

// The number that the text stands for, written in the current units; empty when it is none.
BLOCKCOMMON_API OdString stringToNumeriString(OdString text);
// A copy of the text.
BLOCKCOMMON_API OdString trimCoordinateSysValStrByLpcrecVar(OdString text);

} // namespace blockUtils

namespace commonFun {

// One more than the position of the last `character`, 0 when there is none. Callers rely on this arithmetic.
BLOCKCOMMON_API int GetCntsByeChar(OdString text, wchar_t character);

// 0 a request for the list of names ('?' alone, or with a blank and one character behind it), 1 a name (no '?' at all),
// 2 invalid.
BLOCKCOMMON_API int GetInputType(OdString text);

// False for dependent and anonymous blocks, model space and paper space. True for unknown names.
BLOCKCOMMON_API bool isBlockRenameAble(OdString name);

} // namespace commonFun

namespace insertCommon {

// At most 255 characters and none of `*<>,;:"\|/=? in it. Not empty.
BLOCKCOMMON_API bool isBlockNameValid(const OdString& name);
// The same for a name typed at the insert prompt, which may be empty; its first blank must not begin or end the name.
BLOCKCOMMON_API bool isInsertBlockNameValid(const OdString& name);

// The empty text for false. Must not be called with true: the search for a free name then never ends.
BLOCKCOMMON_API OdString generateBlockName(bool generate);

// The system variable INSNAME; empty when it cannot be read.
BLOCKCOMMON_API OdString getLastInsertBlockName();
// Writes INSNAME, with '*' in front for an anonymous marker. Answers the host's result code.
BLOCKCOMMON_API int setLastInsertBlockName(OdString name, bool anonymous);

} // namespace insertCommon

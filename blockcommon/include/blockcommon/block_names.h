// Block names: validity, and the kind of the block that has a name. No function displays a message.
//
// There are two sets of rules: isLigitimacyName follows the system variable EXTNAMES and counts UTF-8 bytes, the rules
// of insertCommon have a fixed set of characters and at most 255 characters.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

namespace blockUtils {

// Whether the name is valid: with EXTNAMES 0 at most 32 bytes, else at most 1023. `flag` is set to true only if the
// name has no UTF-8 form, and is unchanged otherwise.
BLOCKCOMMON_API bool isLigitimacyName(const OdString& name, bool& flag);

// Kind of the block of that name in the working database; false for an empty or unknown name, but isAnonymous is true
// for every name with '*'.
BLOCKCOMMON_API bool isAnonymous(OdString name);
BLOCKCOMMON_API bool isExternalDependent(OdString name);
BLOCKCOMMON_API bool isFromExternalReference(OdString name);

// The number in the text, formatted in the current units; empty if the text is not a number.
BLOCKCOMMON_API OdString stringToNumeriString(OdString text);
// A copy of the text.
BLOCKCOMMON_API OdString trimCoordinateSysValStrByLpcrecVar(OdString text);

} // namespace blockUtils

namespace commonFun {

// Position of the last `character` plus 1; 0 if there is none. Callers depend on this arithmetic.
BLOCKCOMMON_API int GetCntsByeChar(OdString text, wchar_t character);

// Kind of input: 0 a request for the list of names ('?' alone, or followed by a space and one character), 1 a name
// (without
// '?'), 2 invalid.
BLOCKCOMMON_API int GetInputType(OdString text);

// Whether a block of the working database may be renamed: false for dependent and anonymous blocks, model space and
// paper space; true for unknown names.
BLOCKCOMMON_API bool isBlockRenameAble(OdString name);

} // namespace commonFun

namespace insertCommon {

// Whether the name is not empty, has at most 255 characters and none of `*<>,;:"\|/=? in it.
BLOCKCOMMON_API bool isBlockNameValid(const OdString& name);
// The same for a name that is entered at the insert prompt, which may be empty; its first space must not be its first
// or last character.
BLOCKCOMMON_API bool isInsertBlockNameValid(const OdString& name);

// Returns an empty text for false. Must not be called with true: the search for a free name does not terminate then.
BLOCKCOMMON_API OdString generateBlockName(bool generate);

// The system variable INSNAME; empty if it cannot be read.
BLOCKCOMMON_API OdString getLastInsertBlockName();
// Sets INSNAME, with '*' before the name if `anonymous` is true. Returns the result code of the host.
BLOCKCOMMON_API int setLastInsertBlockName(OdString name, bool anonymous);

} // namespace insertCommon

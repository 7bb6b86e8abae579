// The command line: prompts, output, lines of listings.
//
// Results are the result codes of the host (5100 done, 5000 empty answer, -5001 error or no service, -5002 cancelled)
// unless stated otherwise.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

namespace commonFun {

// Sets keywords and input flags, then prompts for text. allowSpaces: not 0: only Enter ends the answer; -1: the same
// unless input is read from a script. `result` must have room for morvane::kMaxAnswerLength characters and a zero.
BLOCKCOMMON_API int inPutString(int flags, OdString keywords, int allowSpaces, OdString prompt, wchar_t* result);

// Sets keywords and input flags, then prompts for a point in the current UCS (3 numbers). basePoint may be null.
BLOCKCOMMON_API int inPutPoint(int flags, OdString keywords, const double* basePoint, OdString prompt, double* result);

// Prints the message as a format without arguments: '%' in it begins a directive, so text of users must not be passed.
BLOCKCOMMON_API int mvedPromptEx(OdString message);

// Prints the message unchanged.
BLOCKCOMMON_API int acedPromptString(OdString message);

// Sets `line` to a line of a listing and returns a copy: the quoted name padded to 36 characters, the middle text, the
// tail. A line break is inserted before the middle for a name over 74 characters, or after it for a line over 80.
BLOCKCOMMON_API OdString createPromptString(OdString& line, OdString name, OdString tail, OdString middle);

} // namespace commonFun

namespace blockUtils {

// Asks a yes-or-no question once: 1 yes, 0 no, 2 empty answer, 3 cancelled, 4 anything else, for which a hint is
// printed.
BLOCKCOMMON_API int KwordYesNO_Control(OdString& prompt);

// Prints the separator before the next echoed item: a space for the first one if it is on the same line, else a line
// break. Clears `first`.
BLOCKCOMMON_API void CheckFirstTime(bool& first, bool sameLine);

} // namespace blockUtils

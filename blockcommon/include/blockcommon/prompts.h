// Talking to the user on the command line: asking, printing, lines of option lists.
//
// Results are the host's result codes (5100 done, 5000 empty answer, -5001 error or no service, -5002 cancelled),
// passed on unchanged, unless said otherwise.
#pragma once

#include "OdString.h"
#include "blockcommon/export.h"

namespace commonFun {

// Arms keywords and input flags, then asks for text. allowSpaces: not 0, only Enter ends the answer; -1, that is so
// unless the answers come from a script. `result` must hold the host's longest answer.
BLOCKCOMMON_API int inPutString(int flags, OdString keywords, int allowSpaces, OdString prompt, wchar_t* result);

// Arms keywords and input flags, then asks for a point in the current UCS (3 doubles). basePoint may be null.
BLOCKCOMMON_API int inPutPoint(int flags, OdString keywords, const double* basePoint, OdString prompt, double* result);

// Prints the message as a format without arguments: a '%' in it is read as a directive, so user text that may hold one
// must not be passed. Answers what the host's print answers.
BLOCKCOMMON_API int mvedPromptEx(OdString message);

// Prints the message as it is.
BLOCKCOMMON_API int acedPromptString(OdString message);

// Builds one line of a listing into `line` and answers a copy: the quoted name filled up to 36 characters, the middle
// text, the tail. A line that grows too long is broken before the middle (name over 74) or after it (over 80).
BLOCKCOMMON_API OdString createPromptString(OdString& line, OdString name, OdString tail, OdString middle);

} // namespace commonFun

namespace blockUtils {

// Asks a yes-or-no question once: 1 yes, 0 no, 2 empty answer, 3 cancelled, 4 anything else (the user has then been
// told how to answer).
BLOCKCOMMON_API int KwordYesNO_Control(OdString& prompt);

// Prints what goes before the next echoed item: a blank for the first one when it stays on the line, else a line break.
// Clears `first`.
BLOCKCOMMON_API void CheckFirstTime(bool& first, bool sameLine);

} // namespace blockUtils

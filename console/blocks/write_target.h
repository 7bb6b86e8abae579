// Where a block is written: the name that was typed, settled and tested, and what is remembered from one time to the
// next in the user's configuration.
#pragma once

#include "console/session/session.h"

#include <string>

namespace console {

// Completes the extension of the entered name: if missing or another one, .dxf is appended; .DXF becomes .dxf; a
// changed name is reported. Throws for an empty name and for the name of a DWG file, which cannot be written yet.
OdString completeName(Session& session, const OdString& entered);

// The version that was used last, as it can be written; the newest where none that is known is remembered. A stored DWG
// becomes DXF of the same version, which is reported.
OdDb::DwgVersion rememberedVersion(Session& session);

// The file in full, as this system spells it, once it may be written. A name alone is below the folder of the file that
// was written last, if that is still there, a relative path below that of the drawing. Throws when it cannot be a
// target or the user does not want it replaced. `promptedTarget` asks that, and refuses open drawings; `givenTarget`,
// which needs no drawing yet, goes by `mayReplace` and starts at the working folder. Both take what completeName
// answers.
std::string promptedTarget(Session& session, const OdString& name);
std::string givenTarget(Session& session, const OdString& name, bool mayReplace);

// Throws for the file of an open drawing: the console and the file would disagree from then on.
void refuseOpenDrawing(Session& session, const std::string& path);

// After writing.
void rememberTarget(Session& session, const std::string& path, OdDb::DwgVersion version);

} // namespace console

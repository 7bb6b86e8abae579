// Questions that commands on blocks share.
#pragma once

#include "console/session/session.h"

#include "DbObjectId.h"

namespace console::commands {

// What was typed; question marks are answered with the list of blocks until something else comes. May be empty.
OdString promptNameOrList(Session& session, MessageText prompt);
// Whether there is a definition of that name and the user wants it replaced; a no cancels the command.
bool promptRedefine(Session& session, const OdString& name);
SourceObjects promptSourceObjects(Session& session, SourceObjects usual);
// Opens the contents of the block until BCLOSE.
void openEditor(CommandContext& context, OdDbObjectId block);

} // namespace console::commands

// What each command does; a file each. Called through the table of allCommands().
#pragma once

#include "console/session/command.h"

namespace console::commands {

void attdef(CommandContext& context);
void attedit(CommandContext& context);
void attsync(CommandContext& context);
void audit(CommandContext& context);
void bclose(CommandContext& context);
void bedit(CommandContext& context);
void block(CommandContext& context);
void circle(CommandContext& context);
void docs(CommandContext& context);
void erase(CommandContext& context);
void explode(CommandContext& context);
void help(CommandContext& context);
void insert(CommandContext& context);
void layer(CommandContext& context);
void line(CommandContext& context);
void list(CommandContext& context);
void newDrawing(CommandContext& context);
void open(CommandContext& context);
void purge(CommandContext& context);
void quit(CommandContext& context);
void redo(CommandContext& context);
void rename(CommandContext& context);
void save(CommandContext& context);
void saveas(CommandContext& context);
void select(CommandContext& context);
void setvar(CommandContext& context);
void text(CommandContext& context);
void ucs(CommandContext& context);
void undo(CommandContext& context);
void wblock(CommandContext& context);
void xref(CommandContext& context);

} // namespace console::commands

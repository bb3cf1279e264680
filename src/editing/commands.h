#pragma once
// The editing library's commands: the dictionary file, moving between words, changing the
// word on show, its direction, picture and transliteration, the history and the zoom. The
// rows of the other windows' commands that belong with them (printing, the settings, About,
// Help) are declared here too; the windows provide their code.
#include "core/command_registry.h"
#include "editing/command_layout.h"
#include "editing/help_page.h"

namespace nebkaro {

void registerEditingCommands(CommandRegistry& commands);

} // namespace nebkaro

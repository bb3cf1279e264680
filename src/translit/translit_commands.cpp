#include "translit/translit_commands.h"

#include "core/command_registry.h"
#include "translit/guess.h"

namespace nebkaro {

void registerTranslitCommands(CommandRegistry& commands) {
    using C = CommandId;
    commands.add({.id = C::Typewriter,
                  .name = "Typewriter",
                  .help = "Type transliteration letters by clicking",
                  .tool = ToolSlot{15, "Show Typewriter", "input-keyboard", "Typewriter"}});
    commands.add({.id = C::TransTable,
                  .name = "TransTable",
                  .help = "Show the transliteration letters and their codes",
                  .tool = ToolSlot{16, "Show Transliteration Table", "accessories-character-map",
                                   "ShowTable"}});
    commands.add({.id = C::TransGuess,
                  .name = "TransGuess",
                  .help = "Guess the transliteration from the signs",
                  .run = transGuess});
}

} // namespace nebkaro

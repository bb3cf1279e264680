#include "translit/translit_commands.h"

#include "core/command_registry.h"
#include "translit/guess.h"

namespace nebkaro {

void registerTranslitCommands(CommandRegistry& commands) {
    using C = CommandId;
    commands.add({C::Typewriter,
                  "Typewriter",
                  "Type transliteration letters by clicking",
                  {},
                  ToolSlot{15, "Show Typewriter", "input-keyboard", "Typewriter"}});
    commands.add(
        {C::TransTable,
         "TransTable",
         "Show the transliteration letters and their codes",
         {},
         ToolSlot{16, "Show Transliteration Table", "accessories-character-map", "ShowTable"}});
    commands.add({C::TransGuess,
                  "TransGuess",
                  "Guess the transliteration from the signs",
                  {},
                  {},
                  TransGuess});
}

} // namespace nebkaro

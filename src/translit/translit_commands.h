#pragma once
// The transliteration commands of the main window: Guess, and the rows of the typewriter and
// the transliteration table, whose windows provide their code.
namespace nebkaro {

class CommandRegistry;

void registerTranslitCommands(CommandRegistry& commands);

} // namespace nebkaro

#pragma once
// A first guess at a word's transliteration from the phonetic values of its signs.
#include <string>

namespace nebkaro {

struct App;
struct GlyphTable;
struct SignLists;

// The phonetic values of the used slots in slot order, each looked up as the first Phonetic
// row whose code equals the slot's code exactly, joined without separator. Signs without a
// row add nothing, and a value that already occurs anywhere in the text built so far is left
// out ('m' then 'mn' gives "mmn", 'mn' then 'm' gives "mn").
std::string guessTransliteration(const GlyphTable& glyphs, const SignLists& lists);

// The Guess button: replaces the main window's transliteration with the guess. The box's text
// changes as if typed (textChanged), and since the focus is on the Guess button, that box has
// been left: a changed text marks the word as edited (editPending), so moving on asks about it.
void transGuess(App& app);

} // namespace nebkaro

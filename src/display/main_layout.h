#pragma once
// How the main window lays itself out for a width (twips): never narrower than 6960; the
// display area and the text boxes follow the width.
#include "core/word_view.h"

namespace nebkaro {

struct MainLayout {
    int dispAreaWidth = 0;
    int textWidth = 0;       // meaning, gardiner, comment, richGardiner
    int translitWidth = 0;   // transliteration
    int guessLeftOffset = 0; // cmdTransGuess left, relative to transliteration's left
};

MainLayout mainLayoutFor(int windowWidth);
// Sets the window width (at least 6960) and the display area's width that follows it.
void resizeMainWindow(WordView& view, int windowWidth);

} // namespace nebkaro

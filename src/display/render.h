#pragma once
// Drawing the current word: the placed sign pictures of the main window, the word view's
// fields, the progress bar and the off-screen picture; and changing a word's direction.
#include "core/library_direction.h"

#include <string>

namespace nebkaro {

struct App;
struct WordView;

// Draws the current word (nothing when currentIndex is negative) and fills the word view.
void renderWord(App& app);

// Computes rightEdge and bottomEdge of the used slots of app.glyphs from the sizes of the
// pictures now in app.view.mainGlyphPic, applies the window-width rules and places every used
// image centred in displayArea. Used by renderWord and by New/Edit for a composed word.
void placeGlyphGroup(App& app);

// The progress bar's width for the current word: (container - 400) * current / last; 0 when
// lastIndex is 0 or below (one word or none: the bar is empty).
int progressWidth(int containerWidth, int currentIndex, int lastIndex);

// The off-screen picture of the word: 32-twip margin, signs in slot order.
void drawWordImage(App& app);

// Turns the current word as mode asks (nothing when it faces that way already). Mirrors the X
// positions, writes the layout (mirroring form) into richGardiner and runs Store.
void setDirection(App& app, FlipMode mode);

} // namespace nebkaro

#pragma once
// Zoom of the word view and the composer canvas: the signs grow about the centre of their
// area, where a word is centred, and the layout (in twips) stays what it is at 100 %.
#include "core/word_view.h"

namespace nebkaro {

struct App;

inline constexpr int MinZoom = 100;
inline constexpr int MaxZoom = 400;
// The steps of Zoom In and Zoom Out, in per cent.
inline constexpr int ZoomSteps[] = {100, 125, 150, 200, 250, 300, 400};

// The next step up (down) from percent, kept within 100..400.
int zoomedIn(int percent);
int zoomedOut(int percent);
int clampZoom(int percent);

// A box (twips) of the area as it is drawn at this zoom: scaled about the area's centre.
Rect zoomedBox(const Rect& box, const Rect& area, int percent);

// The word view's zoom commands: one step in or out, back to 100 %. The zoom is a setting
// and is kept in the settings file.
void zoomIn(App& app);
void zoomOut(App& app);
void zoomReset(App& app);

// The scale (1 to 8) Copy Glyph Image and Save Image draw the word at.
inline constexpr int MaxPictureScaleSetting = 8;

} // namespace nebkaro

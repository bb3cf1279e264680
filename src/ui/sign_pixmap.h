#pragma once
// Sign pictures as the composer and the browser draw them.
#include "core/ports.h"
#include "core/twips.h"

#include <QPixmap>
#include <QRect>

class QWidget;

namespace nebkaro::ui {

// The sign at scale times its natural size (in logical pixels) for a screen of this device
// pixel ratio: the picture's file itself at its natural size on a plain screen, otherwise the
// sign drawn sharp for the screen's pixels. A picture that is missing or cannot be read is an
// empty framed square of the size the picture port gave it, so the rest of the word still
// draws.
QPixmap signPixmap(const SignPicture& picture, double scale = 1.0, double devicePixelRatio = 1.0);

// A sign's picture placed at `at`; while the word is zoomed it is cut at the inside of the
// frame it is drawn in, so a large word never covers the controls around its area.
void placeSignCut(QWidget* picture, const QRect& at, const QRect& frame, bool zoomed);

// Twips to whole pixels, rounded half away from zero, and back.
inline int px(double twips) {
    const double pixels = toPixels(twips);
    return static_cast<int>(pixels >= 0 ? pixels + 0.5 : pixels - 0.5);
}
inline int twips(int pixels) {
    return pixels * TwipsPerPixel;
}

} // namespace nebkaro::ui

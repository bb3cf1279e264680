#pragma once
// Sign pictures as the composer and the browser draw them.
#include "core/ports.h"

#include <QPixmap>

namespace nebkaro::ui {

// The picture's file at its natural size; a picture that is missing or cannot be read is an
// empty framed square of the size the picture port gave it, so the rest of the word still
// draws.
QPixmap signPixmap(const SignPicture& picture);

// Twips to pixels and back (15 twips to the pixel).
inline int px(double twips) {
    return static_cast<int>(twips >= 0 ? twips / 15 + 0.5 : twips / 15 - 0.5);
}
inline int twips(int pixels) {
    return pixels * 15;
}

} // namespace nebkaro::ui

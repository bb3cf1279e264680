#pragma once
// Signs drawn sharp at any size. The shipped sign pictures were drawn from the Aegyptus font
// at 40 pixels to the em; the program ships that font (Fonts/Aegyptus.ttf) and a table from
// sign code to glyph (Lists/SignGlyphs.csv), and draws a sign from its outline wherever it is
// shown larger than its picture or on paper. The outline is placed in the picture's natural
// box, so the layout, which is measured from the pictures, does not change. A picture the
// font did not make (a code without a glyph, or a picture of the user's own that replaced a
// shipped one) is drawn from the picture itself.
#include "core/ports.h"

#include <QImage>
#include <QPainterPath>
#include <QRectF>
#include <QString>

class QPainter;

namespace nebkaro {

// The font's pixels to the em that the pictures were drawn at.
inline constexpr double PicturePixelsPerEm = 40.0;

// The outline of the picture's sign in the picture's own pixels (its natural box, top left
// at 0,0), facing as the picture does; empty when the sign has none. The font and the table
// are found from the picture's file: <program folder>/<library>/<direction>/<letter>/<code>.GIF.
QPainterPath signOutline(const SignPicture& picture);

// Paints the sign's outline into box (see paintSign), over white; false, painting nothing,
// when the sign has no outline.
bool paintSignOutline(QPainter& painter, const SignPicture& picture, const QRectF& box);

// The outline as the "d" of an SVG path, in the picture's pixels.
QString svgPathData(const QPainterPath& outline);
// The stroke drawn around an outline, in the picture's pixels.
double signInkStroke();

// Paints the sign into box, the picture's natural box as the painter places it: from the
// outline when the sign has one and it is drawn larger than the picture or onto paper or
// into a drawing (PDF, SVG, printer); otherwise from the picture, smoothly scaled; a picture
// that cannot be read is an empty framed square.
void paintSign(QPainter& painter, const SignPicture& picture, const QRectF& box);

// The sign `scale` times its natural size, in device pixels, transparent around the ink
// (white where a picture is drawn as it is). At scale 1 it is the picture itself.
QImage signImage(const SignPicture& picture, double scale);

} // namespace nebkaro

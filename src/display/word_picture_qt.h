#pragma once
// The picture of a word (WordPicture: signs placed in twips) drawn with Qt, 15 twips to the
// pixel: as an image for the clipboard and bitmap files, and as an SVG drawing.
#include "core/word_view.h"
#include "display/image_export.h"

#include <QByteArray>
#include <QImage>
#include <QString>

class QPainter;

namespace nebkaro {

// Pixels for a length in twips, rounded to the nearest pixel.
int twipsToPixels(double twips);

// Paints the signs in slot order (a later sign covers an earlier one) at their natural size,
// the picture's top left at the painter's origin; a painter that scales up draws them from
// their outlines (sign_outlines_qt.h). A picture that cannot be read is an empty framed square
// of its slot's size.
void paintWordPicture(QPainter& painter, const WordPicture& picture);

// The largest scale a word picture is exported at.
inline constexpr double MaxPictureScale = 8.0;

// White background, the word with its margin, scale (1 to 8) times its natural size; the
// layout is the same at every scale.
QImage wordPictureImage(const WordPicture& picture, double scale = 1.0);
QByteArray wordPicturePng(const WordPicture& picture, double scale = 1.0);
// In the picture's pixels, scale times as large on the page; signs are vector paths.
QByteArray wordPictureSvg(const WordPicture& picture, double scale = 1.0);
// False when the file cannot be written.
bool saveWordPicture(const WordPicture& picture, const QString& file, ImageFormat format,
                     double scale = 1.0);

} // namespace nebkaro

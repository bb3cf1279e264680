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
// the picture's top left at the painter's origin. A picture that cannot be read is an empty
// framed square of its slot's size.
void PaintWordPicture(QPainter& painter, const WordPicture& picture);

// White background, the word with its margin.
QImage WordPictureImage(const WordPicture& picture);
QByteArray WordPicturePng(const WordPicture& picture);
QByteArray WordPictureSvg(const WordPicture& picture);
// False when the file cannot be written.
bool SaveWordPicture(const WordPicture& picture, const QString& file, ImageFormat format);

} // namespace nebkaro

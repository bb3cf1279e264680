#include "ui/letter_column.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace nebkaro {

LetterColumn::LetterColumn(QWidget* parent) : QLabel(parent) {}

QFont LetterColumn::transliterationFont(int pointSize) {
    QFont f(QStringLiteral("Transliteration"));
    f.setPointSize(pointSize);
    return f;
}

QStringList LetterColumn::letters() const {
    return text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

void LetterColumn::setCellHeight(int h) {
    cellHeight_ = h;
    updateGeometry();
    update();
}

int LetterColumn::naturalCellHeight() const {
    return QFontMetrics(font()).height() + 4;
}

QSize LetterColumn::sizeHint() const {
    const QFontMetrics fm(font());
    int w = 0;
    for (const QString& l : letters()) w = std::max(w, fm.horizontalAdvance(l));
    return {w + 4 * fm.averageCharWidth(), static_cast<int>(letters().size()) * cellHeight_};
}

void LetterColumn::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setFont(font());
    p.setPen(palette().color(foregroundRole()));
    const QStringList ls = letters();
    for (int i = 0; i < ls.size(); ++i)
        p.drawText(QRect(0, i * cellHeight_, width(), cellHeight_), Qt::AlignCenter, ls[i]);
}

void showKeptText(QLineEdit* box, const QString& typed, const QString& kept) {
    if (kept == typed) return;
    const qsizetype fromEnd = typed.size() - box->cursorPosition();
    box->setText(kept);
    box->setCursorPosition(static_cast<int>(std::max<qsizetype>(0, kept.size() - fromEnd)));
}

} // namespace nebkaro

#pragma once
// A column of transliteration letters, one per cell of a fixed height, so that two columns in
// different fonts line up letter by letter. The label's text stays the plain letter string
// (letters separated by single blanks).
#include <QFont>
#include <QLabel>
#include <QLineEdit>

namespace nebkaro {

class LetterColumn : public QLabel {
    Q_OBJECT
public:
    explicit LetterColumn(QWidget* parent = nullptr);
    // The shared height of one cell, in pixels.
    void setCellHeight(int h);
    int cellHeight() const { return cellHeight_; }
    // The tallest line of this label's font, plus a little air.
    int naturalCellHeight() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    // The font that draws plain letters as their scholarly forms, shipped with the program.
    static QFont transliterationFont(int pointSize);

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QStringList letters() const;
    int cellHeight_ = 20;
};

// A box whose text the program kept otherwise than typed (scholarly letters read as plain
// ones) shows the kept text, with the cursor as far from the end as it was.
void showKeptText(QLineEdit* box, const QString& typed, const QString& kept);

} // namespace nebkaro

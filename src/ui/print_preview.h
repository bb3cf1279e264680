#pragma once
// The print options dialog's live preview: one page of the document at a time, drawn the way
// it prints, scaled to fit the widget. Only the page on show is drawn, so a preview of a
// whole dictionary costs no more than one of a single word.
#include "print/print_document_qt.h"

#include <QImage>
#include <QWidget>

namespace nebkaro {

class PrintPreview : public QWidget {
    Q_OBJECT
public:
    explicit PrintPreview(QWidget* parent = nullptr);

    // Shows pages first..last (0-based) of doc; none when doc is null or first > last.
    // The page on show stays where it was when it is still among them.
    void setDocument(const print::PrintDocument* doc, int first, int last);
    // The page on show as a page index of the document, -1 when none.
    int currentPage() const { return page_; }
    int firstPage() const { return first_; }
    int lastPage() const { return last_; }
    void showPage(int page);
    void nextPage() { showPage(page_ + 1); }
    void previousPage() { showPage(page_ - 1); }

    QSize sizeHint() const override { return {420, 560}; }
    QSize minimumSizeHint() const override { return {200, 260}; }

signals:
    void pageChanged(int page);

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QRect pageRect() const;

    const print::PrintDocument* doc_ = nullptr;
    int first_ = 0;
    int last_ = -1;
    int page_ = -1;
    QImage image_;
    int imagePage_ = -1;
    QSize imageSize_;
};

} // namespace nebkaro

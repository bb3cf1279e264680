#pragma once
// Printed pages of dictionary words, drawn with QPainter on any paged device (a printer, a PDF
// writer) or into a picture for the preview. Each word is its sign picture at true size
// followed by the chosen fields. All layout is in twips: fonts are sized in twips too, so a
// page breaks in the same places on every device and the preview shows exactly what prints;
// the painter scales twips to the device's pixels when drawing.
#include "print/print_layout.h"
#include "print/word_picture.h"

#include <QImage>
#include <QPageSize>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QPainter;
class QPagedPaintDevice;

namespace nebkaro::print {

class PrintDocument {
public:
    PrintDocument(std::vector<PrintWord> words, PrintOptions options, std::string title);
    // The same words laid out again with other options need not be collected again.
    PrintDocument(std::shared_ptr<const std::vector<PrintWord>> words, PrintOptions options,
                  std::string title);
    ~PrintDocument();
    PrintDocument(const PrintDocument&) = delete;
    PrintDocument& operator=(const PrintDocument&) = delete;

    const PrintOptions& options() const;
    const std::string& title() const;
    const std::vector<PrintWord>& words() const;
    const std::shared_ptr<const std::vector<PrintWord>>& sharedWords() const;
    const PageFrame& frame() const;
    // The margins leave room for words (at least an inch each way in every column).
    bool fits() const;
    const std::vector<Page>& pages() const;
    int pageCount() const;
    // Height of each word as laid out, in the order of words(), and the space between two.
    const std::vector<int>& blockHeights() const;
    int wordGap() const;

    // Footers read "Page N of M" from 1 unless told otherwise: the collected page's sheets
    // carry their own running number and no total.
    void numberPages(int firstNumber, bool showTotal);

    // Draws page `page` (0-based) with a painter on a device whose resolution gives the scale.
    // The painter's origin is the paper's top-left corner.
    void drawPage(QPainter& painter, int page) const;
    // The page as a white picture at dpi dots per inch.
    QImage pageImage(int page, double dpi) const;

    enum class Outcome { Printed, Cancelled, Failed };
    // Sets the device's paper and orientation (no margins of its own: the page's margins are
    // drawn here), then prints pages first..last (0-based, inclusive), one sheet each, at the
    // device's resolution. progress(done, total) is called after each page; returning false
    // stops the job. Failed when the device cannot be painted on.
    Outcome print(QPagedPaintDevice& device, int first, int last,
                  const std::function<bool(int, int)>& progress = {}) const;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

// The Qt page size for one of the offered paper names.
QPageSize::PageSizeId qtPageSizeId(const std::string& paper);
// Whether the "Transliteration" font is installed; without it transliteration prints in the
// body font.
bool hasTransliterationFont();

} // namespace nebkaro::print

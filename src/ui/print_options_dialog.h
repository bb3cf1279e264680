#pragma once
// frmPrintOptions: where to print (an installed printer or a PDF file), which words or pages,
// which fields, one or two columns, paper, margins, line spacing and quality, with a live
// preview of the pages as they will print.
#include "print/print_document_qt.h"
#include "print/print_layout.h"

#include <QDialog>

#include <filesystem>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QTimer;

namespace nebkaro {

struct App;
class PrintPreview;

class PrintOptionsDialog : public QDialog {
    Q_OBJECT
public:
    // Opens with the given choices (the last ones used); the quality comes from Preferences.
    PrintOptionsDialog(App& app, const print::PrintOptions& initial, QWidget* parent = nullptr);
    ~PrintOptionsDialog() override;

    // The choices as the controls stand.
    print::PrintOptions options() const;
    // Print quality as Preferences keeps it: draft 0, low -2, medium -3, high -4.
    int quality() const;
    // The words laid out for the choices (rebuilt a moment after a change; refresh() does it
    // at once) and the pages of it that print, 0-based and inclusive.
    const print::PrintDocument* document() const { return document_.get(); }
    std::pair<int, int> pagesToPrint() const;
    // Why nothing can be printed with these choices; empty when they can.
    QString problem() const;
    // The file chosen when Print was pressed with "PDF file" as the printer.
    const std::optional<std::filesystem::path>& pdfFile() const { return pdfFile_; }

    // Brings the preview and the page count up to date now.
    void refresh();

public slots:
    void accept() override;

private:
    void build();
    QGroupBox* buildPrinterBox();
    QGroupBox* buildRangeBox();
    QGroupBox* buildFieldsBox();
    QGroupBox* buildLayoutBox();
    QGroupBox* buildQualityBox();
    QLayout* buildPreview();
    QLayout* buildButtons();
    void connectControls();
    void load(const print::PrintOptions& o);
    void scheduleRefresh();
    void syncEnabled();
    void showPreviewPage(int page);
    std::vector<int> wordsToLayOut() const;

    App& app_;
    std::unique_ptr<print::PrintDocument> document_;
    std::vector<int> laidOutWords_;
    print::PrintOptions laidOutOptions_;
    bool pagesKnown_ = false;
    std::optional<std::filesystem::path> pdfFile_;

    QTimer* timer_ = nullptr;
    QComboBox* printerCombo_ = nullptr;
    QComboBox* paperCombo_ = nullptr;
    QComboBox* orientationCombo_ = nullptr;
    QSpinBox* copiesBox_ = nullptr;
    QRadioButton* allOption_ = nullptr;
    QRadioButton* currentWordOption_ = nullptr;
    QRadioButton* wordsOption_ = nullptr;
    QRadioButton* pagesOption_ = nullptr;
    QSpinBox* wordFromBox_ = nullptr;
    QSpinBox* wordToBox_ = nullptr;
    QSpinBox* pageFromBox_ = nullptr;
    QSpinBox* pageToBox_ = nullptr;
    QLabel* pageCountLabel_ = nullptr;
    QCheckBox* signsCheck_ = nullptr;
    QCheckBox* gardinerCheck_ = nullptr;
    QCheckBox* transliterationCheck_ = nullptr;
    QCheckBox* meaningCheck_ = nullptr;
    QCheckBox* commentCheck_ = nullptr;
    QCheckBox* numberCheck_ = nullptr;
    QRadioButton* oneColumnOption_ = nullptr;
    QRadioButton* twoColumnsOption_ = nullptr;
    QDoubleSpinBox* marginTopBox_ = nullptr;
    QDoubleSpinBox* marginBottomBox_ = nullptr;
    QDoubleSpinBox* marginLeftBox_ = nullptr;
    QDoubleSpinBox* marginRightBox_ = nullptr;
    QComboBox* lineSpacingCombo_ = nullptr;
    QButtonGroup* quality_ = nullptr;
    PrintPreview* preview_ = nullptr;
    QPushButton* previousPageButton_ = nullptr;
    QPushButton* nextPageButton_ = nullptr;
    QLabel* previewPageLabel_ = nullptr;
    QLabel* statusLabel_ = nullptr;
    QPushButton* printButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
};

// The PDF file proposed for a print: the Documents folder (the home folder when there is
// none) and the name given, ".pdf" added.
std::filesystem::path proposedPdfFile(const std::string& name);

} // namespace nebkaro

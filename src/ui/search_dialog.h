#pragma once
// The Search dialog: the text to look for, the field, and the match options (the model is
// App::search). OK hides it and Find goes on; Cancel closes it. "Find All" lists every word
// that Find would stop at, and a double click shows one.
#include "bulk/search_state.h"
#include "core/dictionary_store.h"

#include <QAbstractTableModel>
#include <QDialog>

#include <vector>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;

namespace nebkaro {

struct App;

// The words found by Find All: index, Gardiner's notation, transliteration, meaning, read
// from the dictionary as the rows are shown.
class FoundWordsModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit FoundWordsModel(App& app, QObject* parent = nullptr);
    void setWords(std::vector<int> indices);
    int wordAt(int row) const { return words_.at(static_cast<std::size_t>(row)); }
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation o, int role) const override;

private:
    App& app_;
    std::vector<int> words_;
};

class SearchDialog : public QDialog {
    Q_OBJECT
public:
    SearchDialog(App& app, QWidget* parent = nullptr);
    // Shows the model's entries again (after the typewriter typed into the search box).
    void refresh();

Q_SIGNALS:
    // The dialog was hidden (OK) or cancelled: a waiting Find may go on.
    void left();
    void typewriterRequested();

public Q_SLOTS:
    void reject() override;

protected:
    void resizeEvent(QResizeEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    void hideEvent(QHideEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void choose(int field);
    void ok();
    void cancel();
    void findAll();
    void showFound(const QModelIndex& index);

    App& app_;
    bool refreshing_ = false;
    QLineEdit* txtSearch_;
    QGroupBox* Frame1_;
    QRadioButton* optMeaning_;
    QRadioButton* optTranslit_;
    QRadioButton* optGardiner_;
    QRadioButton* optComment_;
    QCheckBox* ChkExact_;
    QCheckBox* chkExactWord_;
    QCheckBox* chkCase_;
    QCheckBox* chkIgnoreVariants_;
    QPushButton* cmdTypewriter_;
    QPushButton* cmdOk_;
    QPushButton* cmdCancel_;
    QPushButton* cmdFindAll_;
    QLabel* lblFound_;
    QTableView* lstFound_;
    FoundWordsModel* found_;
    SearchCriteria foundCriteria_;
    int foundField_ = FieldMeaning;
};

} // namespace nebkaro

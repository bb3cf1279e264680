#pragma once
// The Search dialog: the text to look for, the field, and the match options (the model is
// App::search). OK hides it and Find goes on; Cancel closes it. The Find All list shows every
// word that Find would stop at, following the search text as it is typed; "Find All" fills it
// at once, and a double click shows a word. "Signs" finds the words written with all the
// signs named, in any order.
#include "core/dictionary_store.h"
#include "core/search_state.h"

#include <QAbstractTableModel>
#include <QDialog>
#include <QPixmap>

#include <map>
#include <string>

#include <vector>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;
class QTimer;

namespace nebkaro {

struct App;

// The words found by Find All: index, the word's picture drawn small, Gardiner's notation,
// transliteration, meaning, read from the dictionary as the rows are shown.
class FoundWordsModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit FoundWordsModel(App& app, QObject* parent = nullptr);
    void setWords(std::vector<int> indices);
    int wordAt(int row) const { return words_.at(static_cast<std::size_t>(row)); }
    const std::vector<int>& words() const { return words_; }
    // The height of the pictures in the list, in pixels.
    static constexpr int PictureHeight = 32;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation o, int role) const override;

private:
    QPixmap picture(int word) const;

    App& app_;
    std::vector<int> words_;
    // Pictures already drawn, with the layout they were drawn from: a word edited since is
    // drawn again.
    mutable std::map<int, std::pair<std::string, QPixmap>> pictures_;
};

class SearchDialog : public QDialog {
    Q_OBJECT
public:
    SearchDialog(App& app, QWidget* parent = nullptr);
    // Shows the model's entries again (after the typewriter typed into the search box).
    void refresh();
    // The words the Find All list shows now (empty when it is hidden).
    std::vector<int> foundWords() const;

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
    QLayout* buildOptions();
    QLayout* buildButtons();
    void buildFoundList();
    void connectEntries();
    void choose(int field);
    void ok();
    void cancel();
    // Fills the list for the entries as they stand. Typing (live) says nothing in message
    // boxes: an empty text empties the list, and a problem is shown above it.
    void updateFound(bool live);
    void entriesChanged();
    // The sign list's browser: the sign chosen there is added to the signs searched for.
    void pickSign();
    void showFound(const QModelIndex& index);

    App& app_;
    bool refreshing_ = false;
    bool columnsFitted_ = false;
    QLineEdit* searchBox_;
    QGroupBox* optionsFrame_;
    QRadioButton* meaningOption_;
    QRadioButton* translitOption_;
    QRadioButton* gardinerOption_;
    QRadioButton* commentOption_;
    QRadioButton* signsOption_;
    QCheckBox* exactCheck_;
    QCheckBox* exactWordCheck_;
    QCheckBox* caseCheck_;
    QCheckBox* ignoreVariantsCheck_;
    QPushButton* typewriterButton_;
    QPushButton* okButton_;
    QPushButton* cancelButton_;
    QPushButton* findAllButton_;
    QPushButton* pickSignButton_;
    QLabel* foundLabel_;
    QTableView* foundList_;
    FoundWordsModel* found_;
    QTimer* liveTimer_;
    SearchCriteria foundCriteria_;
    int foundField_ = FieldMeaning;
};

} // namespace nebkaro

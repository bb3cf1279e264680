#pragma once
// frmHeader: the seven header values of the dictionary, free text; value 0 may not be "L" or
// "R", which would make the header line read as a word.
#include "core/dictionary_store.h"

#include <QDialog>

#include <array>

class QLineEdit;

namespace nebkaro {

struct App;

class HeaderDialog : public QDialog {
    Q_OBJECT
public:
    // boxes: what the seven boxes show on opening (the header, or a new dictionary's values).
    HeaderDialog(App& app, const DictionaryHeader& boxes, QWidget* parent = nullptr);

private:
    void confirm();
    App& app_;
    std::array<QLineEdit*, FieldCount> boxes_{};
};

} // namespace nebkaro

#pragma once
// frmTransTable: each transliteration letter in the Transliteration font above its plain
// letter, in the Egyptological or the alphabetical order.
#include "translit/trans_table.h"

#include <QWidget>

class QAction;

namespace nebkaro {

class LetterColumn;

class TransTableWindow : public QWidget {
    Q_OBJECT
public:
    explicit TransTableWindow(QWidget* parent = nullptr);
    const TransTableState& state() const { return state_; }

private:
    void refresh();

    TransTableState state_;
    LetterColumn* plainColumn_ = nullptr;
    LetterColumn* fontColumn_ = nullptr;
    QAction* egyptAction_ = nullptr;
    QAction* latinAction_ = nullptr;
};

} // namespace nebkaro

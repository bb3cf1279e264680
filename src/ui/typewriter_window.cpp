#include "core/app.h"
#include "core/guarded.h"

#include "ui/typewriter_window.h"

#include "ui/letter_column.h"
#include "ui/order_menu.h"

#include <QAction>
#include <QGridLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace nebkaro {

TypewriterWindow::TypewriterWindow(App& app, QWidget* parent)
    : QWidget(parent, Qt::Tool), app_(app) {
    setObjectName(QStringLiteral("frmTypewriter"));
    setAttribute(Qt::WA_DeleteOnClose);

    const OrderMenu orderMenu = addOrderMenu(this);
    egyptAction_ = orderMenu.egyptAction;
    latinAction_ = orderMenu.latinAction;
    connect(egyptAction_, &QAction::triggered, this, [this] { applyOrder(false); });
    connect(latinAction_, &QAction::triggered, this, [this] { applyOrder(true); });

    // Keys never take the focus: the caret stays in the box being typed into.
    auto makeButton = [this](const QString& name, const QString& caption) {
        auto* b = new QPushButton(caption, this);
        b->setObjectName(name);
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoDefault(false);
        return b;
    };

    // Digits, then the five signs, then the letters nine to a row.
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    const QFont keyFont = LetterColumn::transliterationFont(14);
    for (int k = 0; k < TypewriterKeyCount; ++k) {
        QPushButton* b = makeButton(QStringLiteral("btnKey%1").arg(k), QString());
        b->setProperty("index", k);
        b->setFont(keyFont);
        b->setMinimumSize(30, 30);
        b->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
        int row, col;
        if (k < 10) {
            row = 0;
            col = k;
        } else if (k < 15) {
            row = 1;
            col = k - 10;
        } else {
            row = 2 + (k - 15) / 9;
            col = (k - 15) % 9;
        }
        grid->addWidget(b, row, col);
        connect(b, &QPushButton::clicked, this, [this, k] {
            const std::string caption = state_.keys.at(static_cast<std::size_t>(k));
            press([caption](App& a) { return typewriterKey(a, caption); });
        });
        keys_.push_back(b);
    }
    QPushButton* space = makeButton(QStringLiteral("btnSpace"), QStringLiteral("Space"));
    QPushButton* bksp = makeButton(QStringLiteral("btnBksp"), QStringLiteral("<- BackSpace"));
    grid->addWidget(space, 5, 0, 1, 6);
    grid->addWidget(bksp, 5, 6, 1, 4);
    connect(space, &QPushButton::clicked, this, [this] { press(typewriterSpace); });
    connect(bksp, &QPushButton::clicked, this, [this] { press(typewriterBackspace); });

    auto* box = new QVBoxLayout(this);
    box->setMenuBar(orderMenu.bar);
    box->addLayout(grid);

    typewriterLoad(app_, state_);
    refresh();
}

void TypewriterWindow::applyOrder(bool alphabetical) {
    setTypewriterLayout(state_, alphabetical);
    refresh();
}

void TypewriterWindow::refresh() {
    for (std::size_t k = 0; k < keys_.size() && k < state_.keys.size(); ++k) {
        // "&" would turn into a shortcut marker; no key has one, but keep captions literal.
        keys_[k]->setText(
            QString::fromStdString(state_.keys[k]).replace('&', QStringLiteral("&&")));
    }
    egyptAction_->setChecked(state_.egyptChecked);
    latinAction_->setChecked(state_.latinChecked);
    setWindowTitle(QString::fromStdString(state_.caption));
}

void TypewriterWindow::press(const std::function<bool(App&)>& key) {
    const TypewriterTarget target = app_.typewriterTarget;
    runGuarded(app_, [&] {
        if (key(app_)) Q_EMIT typed(target);
    });
}

} // namespace nebkaro

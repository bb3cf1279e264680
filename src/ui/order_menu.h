#pragma once
// The "&Order" menu that the typewriter and the transliteration table share: Egyptological
// and Alphabetical, one of them checked.
#include <QAction>
#include <QMenuBar>
#include <QWidget>

namespace nebkaro {

struct OrderMenu {
    QMenuBar* bar = nullptr; // for the window's layout
    QAction* egyptAction = nullptr;
    QAction* latinAction = nullptr;
};

// Makes a menu bar holding the menu, for the window to give its layout.
OrderMenu addOrderMenu(QWidget* window);

} // namespace nebkaro

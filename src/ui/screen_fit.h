#pragma once
// Every window of the program opens wholly on the screen that shows the main window: a
// placement beside another window, a window taller than the screen, a dialog centred on a
// main window near the edge are all brought inside the room the desktop leaves free (its
// panels excluded).
#include <QRect>

class QObject;

class QWidget;

namespace nebkaro {

// The free room of the screen showing the main window (the window named "Main"); without
// one, of the screen showing `window`, else of the primary screen.
QRect screenRoom(const QWidget* window);

// Moves `window` so that it lies inside screenRoom(), its frame included, shrinking it first
// where it is wider or taller than the room (as far as its minimum size lets it; a window
// that cannot shrink enough keeps its top left corner, with the title bar, on the screen).
void fitOnScreen(QWidget* window);

// Whether windows of this kind are placed by fitOnScreen when they are shown: ordinary
// windows, dialogs and tool windows, not menus, tips or pop-up lists.
bool fitsOnShow(const QWidget* window);

// From now on every such window of the application is fitted each time it is shown, once the
// code that shows it has placed it. The watch ends with `owner`.
void keepWindowsOnScreen(QObject* owner);

} // namespace nebkaro

#include "display/main_layout.h"

#include <algorithm>

namespace nebkaro {

MainLayout mainLayoutFor(int windowWidth) {
    const int w = std::max(windowWidth, MainGeometry::MinWidth);
    MainLayout l;
    l.dispAreaWidth = w - 500;
    l.textWidth = w - 800;
    l.translitWidth = w - 1400;
    l.guessLeftOffset = l.translitWidth + 100;
    return l;
}

void resizeMainWindow(WordView& view, int windowWidth) {
    view.windowWidth = std::max(windowWidth, MainGeometry::MinWidth);
    const MainLayout l = mainLayoutFor(view.windowWidth);
    view.geometry.displayArea.width = l.dispAreaWidth;
    view.geometry.progressContainerWidth = l.dispAreaWidth;
}

} // namespace nebkaro

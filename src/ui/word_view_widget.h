#pragma once
// The word view, the main window's client area: the display area with the word's signs, the
// text boxes with their captions and hide switches, the navigation row, the progress bar and
// the command buttons. Everything is placed by the design in twips; the boxes follow the
// window's width and a taller window gives the display area the extra height. The widget
// shows App::view and hands every edit straight to the logic; commands go to the window.
#include "core/app.h"
#include "editing/commands.h"

#include <QHash>
#include <QPixmap>
#include <QWidget>

#include <array>
#include <utility>
#include <vector>

class QAbstractButton;
class QCheckBox;
class QFrame;
class QLabel;
class QLineEdit;

namespace nebkaro {

class WordViewWidget : public QWidget {
    Q_OBJECT
public:
    WordViewWidget(App& app, QWidget* parent);

    // The design's height in twips, from the tool bar to the last row of buttons.
    static constexpr int DesignHeight = 8580;

    // The window's tool bar, laid across the top of the view.
    void setToolBar(QWidget* toolBar) { toolBar_ = toolBar; }
    // Shows the texts, hide switches and progress of App::view (the layout is separate).
    void showView();
    void layoutControls();
    void setProgress(float fraction);
    void showCounter(int value);
    QFrame* displayArea() const { return dispArea_; }
    // The buttons of the view with the command each runs, for their availability.
    const std::vector<std::pair<QAbstractButton*, CommandId>>& commandButtons() const {
        return buttons_;
    }

Q_SIGNALS:
    void commandRequested(CommandId id);
    // A hide switch changed what the view shows.
    void viewChanged();
    // A right click asked for the pop-up menu of the display area, at this screen point.
    void fieldMenuRequested(QPoint global);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildDisplayArea();
    void buildFields();
    void buildHideSwitches();
    void buildNavigation();
    void buildButtons();
    void layoutFields();
    void showGlyphs();
    QPixmap glyphPixmap(const GlyphImage& image, int zoom, double devicePixelRatio);
    bool isWordPicture(QObject* object) const;
    // The height the display area gained over its design height in a taller window.
    int extraHeight() const;
    void boxFocusChanged(int index, bool focusIn, Qt::FocusReason reason);

    App& app_;
    QWidget* toolBar_ = nullptr;
    QFrame* dispArea_ = nullptr;
    std::array<QLabel*, GlyphTable::Slots> glyphs_{};
    QLabel* richGardiner_ = nullptr;
    std::array<QLineEdit*, 4> boxes_{}; // gardiner, transliteration, meaning, comment
    std::array<QCheckBox*, 5> hide_{};  // in HideBox order
    QLineEdit* number_ = nullptr;
    QLabel* counter_ = nullptr;
    QFrame* progressTrack_ = nullptr;
    QFrame* progress_ = nullptr;
    int progressPixels_ = -1; // the bar's length while a search runs
    std::vector<std::pair<QAbstractButton*, CommandId>> buttons_;
    std::vector<std::pair<QWidget*, QRect>> fixed_; // controls placed by the design, in twips
    QHash<QString, QPixmap> pixmaps_;
    // The text box that has the focus within the window (0..3 as boxes_), -1 for none.
    int focusedBox_ = -1;
};

} // namespace nebkaro

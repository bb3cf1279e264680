#pragma once
// The composer window, "Compose". The main window builds it for New and Edit (after setting
// app.store.newWordPending or editPending) and calls run(), which returns once OK or Cancel
// has hidden it; the results are then in app.store.composeAccepted, app.layoutText,
// app.composedGardiner, app.glyphs (normalised, in reading order) and app.view's rightEdge,
// bottomEdge and windowWidth. The program's WindowHost::runComposer() is that: build, run().
#include "composer/composer.h"

#include <QMainWindow>

#include <array>

class QAction;
class QFrame;
class QLabel;
class QLineEdit;
class QRadioButton;
class QPushButton;
class QGroupBox;
class QScrollArea;

namespace nebkaro::ui {

class GlyphPicture;

class ComposeWindow : public QMainWindow {
    Q_OBJECT
public:
    // Builds the window and runs Load. For the sign browser the composer goes through
    // app.windows->chooseSignFromBrowser() (SignBrowserHost::chooseSign in the program).
    explicit ComposeWindow(App& app, QWidget* parent = nullptr);
    ~ComposeWindow() override;

    // Shows the window and waits, with the rest of the program's events still running, until
    // OK or Cancel hides it. True when the composition was accepted.
    bool run();
    // Load again: the main window decides when the composer starts afresh.
    void load();

    Composer& model() { return model_; }

signals:
    void hidden();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    // Ctrl and the wheel zoom the canvas.
    void wheelEvent(QWheelEvent* event) override;

private:
    void buildMenu();
    void buildCanvas();
    void buildEntry();
    void buildLibraryChoice();
    void buildSignPictures();
    void buildFooter();
    // A sign let go at `at` on the canvas; `moved` says whether it was dragged at all.
    void dropSign(int i, QPoint at, bool moved);
    template <typename F> void command(F&& f);
    void refresh();
    void placeControls();
    void readText();
    // The canvas is as large as the room the window gives it, or as the signs need.
    void sizeCanvas();
    // Signs laid out past the frame's edges widen (or heighten) the canvas, and stand centred
    // on the larger frame; the window grows with it as far as the screen lets it.
    void growForSigns();
    bool eventFilter(QObject* watched, QEvent* event) override;
    // The canvas at the zoom the word view has: one step in (+1) or out (-1), or 100 % (0).
    void zoom(int step);

    App& app_;
    Composer model_;
    bool choosing_ = false;
    QScrollArea* scroll_;
    QWidget* canvas_;
    QSize canvasNeed_; // pixels the signs need, beyond the window's own room
    QLabel* codeLineLabel_;
    QLineEdit* codeLineBox_;
    QPushButton* getButton_;
    QPushButton* arrangeButton_;
    QPushButton* delLastButton_;
    QGroupBox* frame1_;
    QRadioButton* basicOption_;
    QRadioButton* extendedOption_;
    QFrame* composeShp_;
    QLabel* gardinerLbl_;
    QLabel* richGardinerLbl_;
    QLabel* debugLbl_;
    QLabel* status_;
    QPushButton* okCmd_;
    QPushButton* cancelButton_;
    QAction* basicAction_;
    QAction* extendedAction_;
    std::array<GlyphPicture*, Composer::Slots> glyphPic_{};
};

} // namespace nebkaro::ui

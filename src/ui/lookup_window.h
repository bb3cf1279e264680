#pragma once
// The sign-list browser window, "Lookup", and the holder that builds it when needed, drops it
// when the library changes and lets the composer wait for a choice.
#include "browser/sign_browser.h"

#include <QPointer>
#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace nebkaro::ui {

class LookupWindow : public QWidget {
    Q_OBJECT
public:
    // Builds the window and runs the browser's Load (the first page).
    explicit LookupWindow(App& app, QWidget* parent = nullptr);

    SignBrowser& model() { return model_; }
    // Whether a sign was chosen since the window was last shown.
    bool choseSign() const { return chose_; }

signals:
    void hidden();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void buildCategoryRow();
    void buildNavigation();
    void buildSearchRow();
    void buildOptionsRow();
    // The page of signs: each picture with its code and transliteration under it.
    void buildPage();
    template <typename F> void command(F&& f);
    void refresh();
    void choose(int i);

    App& app_;
    SignBrowser model_;
    bool chose_ = false;
    QComboBox* cmbCategory_;
    QLineEdit* txtGlyph_;
    QLineEdit* txtTrans_;
    QCheckBox* chkShowTrans_;
    QLabel* lblLibrary_;
    QLabel* lblCategory_;
    std::array<QLabel*, SignBrowser::PageSize> picGlyph_{};
    std::array<QLabel*, SignBrowser::PageSize> lblGlyph_{};
    std::array<QLabel*, SignBrowser::PageSize> lblTranslit_{};
};

// The one Lookup window of the program.
class LookupHost {
public:
    explicit LookupHost(App& app) : app_(app) {}
    ~LookupHost();
    LookupHost(const LookupHost&) = delete;
    LookupHost& operator=(const LookupHost&) = delete;

    // The window, built (and loaded) when first asked for.
    LookupWindow* window();
    bool isLoaded() const { return !window_.isNull(); }
    // Shown on its own, without waiting (the main window's sign list).
    void show();
    // Shown without blocking; returns once it has been hidden. True when the user chose a
    // sign (App::chosenSign holds it). The rest of the program stays usable meanwhile.
    bool chooseSign();
    // Drops the window, so that the next use builds it for the library now chosen.
    void unload();

private:
    App& app_;
    QPointer<LookupWindow> window_;
    bool waiting_ = false;
};

} // namespace nebkaro::ui

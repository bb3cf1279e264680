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

class SignBrowserWindow : public QWidget {
    Q_OBJECT
public:
    // Builds the window and runs the browser's Load (the first page).
    explicit SignBrowserWindow(App& app, QWidget* parent = nullptr);

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
    QComboBox* categoryCombo_;
    QLineEdit* glyphBox_;
    QLineEdit* transBox_;
    QCheckBox* showTransCheck_;
    QLabel* libraryLabel_;
    QLabel* categoryLabel_;
    std::array<QLabel*, SignBrowser::PageSize> glyphPictures_{};
    std::array<QLabel*, SignBrowser::PageSize> glyphLabel_{};
    std::array<QLabel*, SignBrowser::PageSize> translitLabel_{};
};

// The one Lookup window of the program.
class SignBrowserHost {
public:
    explicit SignBrowserHost(App& app) : app_(app) {}
    ~SignBrowserHost();
    SignBrowserHost(const SignBrowserHost&) = delete;
    SignBrowserHost& operator=(const SignBrowserHost&) = delete;

    // The window, built (and loaded) when first asked for.
    SignBrowserWindow* window();
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
    QPointer<SignBrowserWindow> window_;
    bool waiting_ = false;
};

} // namespace nebkaro::ui

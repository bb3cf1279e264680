#pragma once
// The Search dialog, the typewriter and the transliteration table as the main window uses them:
// each is created on first use and placed as the program has always placed it, then brought
// wholly onto the screen (fitOnScreen) where that placement would leave part of it off.
//
// The main window's WindowHost port hands these on:
//   showSearchDialogAndWait()      -> SearchWindows::showSearchDialogAndWait()
//   typewriterTextChanged(target)  -> SearchWindows::typewriterTextChanged(target)
// Its commands call findCommand / findNextCommand / findPreviousCommand (bulk/search.h),
// transGuess (translit/guess.h), showTypewriterBesideMain() and showTransTable(); the sign
// browser's typewriter button calls showTypewriterBeside(browser window). A window whose box
// the typewriter may type into listens to typed() and shows the box's text again.
#include <QObject>
#include <QPointer>

class QWidget;

namespace nebkaro {

struct App;
enum class TypewriterTarget;
class SearchDialog;
class TypewriterWindow;
class TransTableWindow;

class SearchWindows : public QObject {
    Q_OBJECT
public:
    SearchWindows(App& app, QWidget* mainWindow);
    ~SearchWindows() override;

    // Find: shows the Search dialog (creating it if Cancel closed it) and returns once it is
    // hidden or closed, the events of every window going on meanwhile.
    void showSearchDialogAndWait();
    void typewriterTextChanged(TypewriterTarget target);

    // The typewriter beside the main window: to its left, or to its right when there is no
    // room. A position beyond 16-bit twips is reported as an Overflow error.
    void showTypewriterBesideMain();
    // The typewriter beside another window: to its right, or to its left at the screen's edge.
    void showTypewriterBeside(QWidget* caller);
    // The transliteration table above the main window, or below it.
    void showTransTable();

    // The windows now open (nullptr when closed or not yet opened).
    SearchDialog* searchDialog() const;
    TypewriterWindow* typewriter() const;
    TransTableWindow* transTable() const;

Q_SIGNALS:
    // The typewriter changed the text of this box.
    void typed(nebkaro::TypewriterTarget target);

private:
    SearchDialog* ensureSearchDialog();
    TypewriterWindow* ensureTypewriter();

    App& app_;
    QWidget* main_;
    QPointer<SearchDialog> search_;
    QPointer<TypewriterWindow> typewriter_;
    QPointer<TransTableWindow> table_;
};

} // namespace nebkaro

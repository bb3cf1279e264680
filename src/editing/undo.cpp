#include "editing/undo.h"

#include "core/app.h"

namespace nebkaro {

namespace {

void takeStep(App& app, bool back) {
    UndoHistory& history = app.history;
    const std::uint64_t before = history.state();
    app.leaveWord(app);
    // Storing the word on show made a new step (and dropped those that Redo had).
    if (history.state() != before) return;
    if (!(back ? history.undo(app.store) : history.redo(app.store))) return;
    app.renderWord(app);
}

} // namespace

void undoCommand(App& app) {
    takeStep(app, true);
}

void redoCommand(App& app) {
    takeStep(app, false);
}

} // namespace nebkaro

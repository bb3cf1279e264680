#pragma once
// The Undo and Redo commands over the history the store keeps (core/undo_history.h).
#include "core/undo_history.h"

namespace nebkaro {

struct App;

// Edit > Undo and Redo. Unstored edits of the word on show are offered for storing first;
// stored, they are the last step, and Undo stops there so that the step it named is not taken
// back unseen. The word on show afterwards is the one on show before the step (after it, for
// Redo).
void undoCommand(App& app);
void redoCommand(App& app);

} // namespace nebkaro

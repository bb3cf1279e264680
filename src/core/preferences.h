#pragma once
// The Preferences dialog's confirming button.
#include "core/library_direction.h"

namespace nebkaro {

struct App;

// Takes library and direction from the dialog's option buttons, loads the sign list of the
// chosen library and drops the sign-list browser so that it is built for that library when
// next opened. A sign list that cannot be read is reported and ends the program; false then.
bool applyPreferences(App& app, Library library, Direction direction);

} // namespace nebkaro

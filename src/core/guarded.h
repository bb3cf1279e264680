#pragma once
// The program's one failure boundary. Every entry point a user can reach (a button, a menu
// item, a key, a window's own controls) runs its work through runGuarded, so that an error
// never escapes into the window system: it is shown and the program goes on.
#include <functional>

namespace nebkaro {

struct App;

// Runs fn. A run-time error is shown in a critical message box as "<number>  <description>",
// a full dictionary as its own message with an exclamation mark, a sign list or
// transliteration table that cannot be read as its message, after which the program is asked
// to end (status 1), and any other failure as "The command could not be completed: <what>".
// The state is whatever fn left. False when fn failed.
bool runGuarded(App& app, const std::function<void()>& fn);

} // namespace nebkaro

#pragma once
// The start-up and shut-down sequences, shared by the program and its tests.
#include <string>

namespace nebkaro {

struct App;

// Runs the start-up steps in their fixed order. commandLine is the program's argument (a
// dictionary path, double quotes removed), empty when none. Returns false when the program
// is to end (app.endRequested says so too), after the user has been told why.
bool startProgram(App& app, const std::string& commandLine);

// The Quit button and menu: asks Yes/No/Cancel when there is unsaved work. True when the
// program is to end (the settings have then been written).
bool quitCommand(App& app);

// The window being closed by other means: asks Yes/No/Cancel, then writes the settings. True
// when the window is to close; Cancel, or a save that was asked for and failed, keeps it open.
bool closeMainWindow(App& app);

} // namespace nebkaro

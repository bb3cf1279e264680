#include "core/preferences.h"

#include "core/app.h"
#include "core/errors.h"

namespace nebkaro {

bool ApplyPreferences(App& app, bool useBasicLibrary, bool directionLeft) {
    app.settings.useBasicLibrary = useBasicLibrary;
    app.settings.directionLeft = directionLeft;
    try {
        LoadSignList(app.lists, app.home, useBasicLibrary);
    } catch (const ProgramFileError& e) {
        app.dialogs.message(e.message(), "", Buttons::OK, Icon::Critical);
        app.requestEnd(1);
        return false;
    }
    app.windows->unloadBrowser();
    return true;
}

} // namespace nebkaro

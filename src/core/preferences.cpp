#include "core/preferences.h"

#include "core/app.h"
#include "core/errors.h"

namespace nebkaro {

bool applyPreferences(App& app, Library library, Direction direction) {
    app.settings.library = library;
    app.settings.direction = direction;
    try {
        loadSignList(app.lists, app.home, library);
    } catch (const ProgramFileError& e) {
        app.dialogs.message(e.message(), "", Buttons::OK, Icon::Critical);
        app.requestEnd(1);
        return false;
    }
    app.windows->unloadBrowser();
    return true;
}

} // namespace nebkaro

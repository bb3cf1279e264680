#include "core/guarded.h"

#include "core/app.h"
#include "core/errors.h"

#include <string>

namespace nebkaro {

namespace {

void report(App& app, const std::string& text, Icon icon) {
    app.dialogs.message(text, "", Buttons::OK, icon);
}

} // namespace

bool runGuarded(App& app, const std::function<void()>& fn) {
    try {
        fn();
        return true;
    } catch (const RunError& e) {
        report(app, e.report(), Icon::Critical);
    } catch (const StoreFull& e) {
        report(app, e.what(), Icon::Exclamation);
    } catch (const ProgramFileError& e) {
        report(app, e.message(), Icon::Critical);
        app.requestEnd(1);
    } catch (const std::exception& e) {
        report(app, std::string("The command could not be completed: ") + e.what(), Icon::Critical);
    }
    return false;
}

} // namespace nebkaro

#pragma once
// The desktop ports as the command-line tool has them: messages go to stderr as one line
// each and questions take their safe answer.
#include "core/app.h"
#include "core/files.h"
#include "core/quiet_ports.h"

#include <iostream>

namespace nebkaro::cli {

class ConsoleDialogs : public QuietDialogs {
public:
    bool echo = true;

protected:
    void said(const std::string& line) override {
        if (echo) std::cerr << line << "\n";
    }
};

// An App over console ports and the program folder's pictures.
struct ConsoleApp {
    explicit ConsoleApp(const std::filesystem::path& home) : pictures(home) {
        app.home = home;
        // One change a run: nothing to take back, and no copy of the words to keep.
        app.history.enabled = false;
    }
    ConsoleDialogs dialogs;
    TextClipboard clipboard;
    NoEventPump events;
    FolderSignPictures pictures;
    AtomicFileWriter files;
    App app{dialogs, clipboard, events, pictures, files};
    // The command writes a file: a dictionary that loaded only in part is refused.
    bool writes = true;
};

} // namespace nebkaro::cli

#pragma once
// Quiet ports for fuzz targets that run whole commands: every question takes its safe answer.
#include "core/app.h"
#include "core/files.h"
#include "core/quiet_ports.h"

namespace nebkaro::fuzz {

struct FixedPictures : SignPictures {
    SignPicture picture(Library, Direction, const std::string& code) override {
        SignPicture p;
        p.file = code;
        p.width = 300 + 15 * static_cast<int>(code.size());
        p.height = 540;
        p.ok = true;
        return p;
    }
};
struct NoFiles : FileWriter {
    void write(const std::filesystem::path&, const std::string&) override {}
};

struct FuzzApp {
    QuietDialogs dialogs;
    TextClipboard clipboard;
    NoEventPump events;
    FixedPictures pictures;
    NoFiles files;
    App app{dialogs, clipboard, events, pictures, files};
};

} // namespace nebkaro::fuzz

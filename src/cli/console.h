#pragma once
// The desktop ports as a command-line tool has them: messages go to stderr as one line each,
// questions take their safe answer, there is no clipboard and nothing to yield to.
#include "core/app.h"
#include "core/files.h"

#include <iostream>
#include <string>
#include <vector>

namespace nebkaro::cli {

class ConsoleDialogs : public Dialogs {
public:
    std::vector<std::string> shown;
    int beeps = 0;
    bool echo = true;
    Answer message(const std::string& text, const std::string&, Buttons b, Icon) override {
        std::string line = text;
        for (auto& c : line)
            if (c == '\r' || c == '\n') c = ' ';
        shown.push_back(line);
        if (echo) std::cerr << line << "\n";
        switch (b) {
        case Buttons::OK:
            return Answer::OK;
        case Buttons::OKCancel:
            return Answer::Cancel;
        case Buttons::YesNo:
            return Answer::No;
        case Buttons::YesNoCancel:
            return Answer::Cancel;
        }
        return Answer::Cancel;
    }
    std::optional<std::string> input(const std::string&, const std::string&,
                                     const std::string&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> openFile(const std::string&,
                                                  const std::filesystem::path&) override {
        return std::nullopt;
    }
    std::optional<std::filesystem::path> saveFile(const std::string&,
                                                  const std::filesystem::path&) override {
        return std::nullopt;
    }
    void beep() override { ++beeps; }
};

class NoClipboard : public Clipboard {
public:
    void clear() override {}
    void setText(const std::string&) override {}
    std::string text() override { return {}; }
    void setImagePng(const std::vector<std::uint8_t>&) override {}
};

class NoEvents : public EventPump {
public:
    void yield() override {}
};

// An App over console ports and the program folder's pictures.
struct ConsoleApp {
    explicit ConsoleApp(const std::filesystem::path& home) : pictures(home) { app.home = home; }
    ConsoleDialogs dialogs;
    NoClipboard clipboard;
    NoEvents events;
    FolderSignPictures pictures;
    AtomicFileWriter files;
    App app{dialogs, clipboard, events, pictures, files};
};

} // namespace nebkaro::cli

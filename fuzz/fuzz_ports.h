#pragma once
// Quiet ports for fuzz targets that run whole commands: every question takes its safe answer.
#include "core/app.h"
#include "core/files.h"

namespace nebkaro::fuzz {

struct QuietDialogs : Dialogs {
    int messages = 0;
    Answer message(const std::string&, const std::string&, Buttons b, Icon) override {
        ++messages;
        return b == Buttons::OK ? Answer::OK : Answer::No;
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
    void beep() override {}
};
struct TextClipboard : Clipboard {
    std::string content;
    void clear() override { content.clear(); }
    void setText(const std::string& t) override { content = t; }
    std::string text() override { return content; }
    void setImagePng(const std::vector<std::uint8_t>&) override {}
};
struct NoEvents : EventPump {
    void yield() override {}
};
struct FixedPictures : SignPictures {
    SignPicture picture(const std::string&, const std::string&, const std::string& code) override {
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
    NoEvents events;
    FixedPictures pictures;
    NoFiles files;
    App app{dialogs, clipboard, events, pictures, files};
};

} // namespace nebkaro::fuzz

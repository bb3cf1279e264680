#pragma once
// Ports for running the logic where nobody answers: the command-line tool, benchmarks and
// fuzzing. Every question takes its safe answer (OK, Cancel, No), file dialogs are cancelled,
// the clipboard is a text in memory and there is no event loop to yield to.
#include "core/ports.h"

#include <string>
#include <vector>

namespace nebkaro {

class QuietDialogs : public Dialogs {
public:
    // Every message shown, line ends turned into blanks.
    std::vector<std::string> shown;
    int beeps = 0;

    Answer message(const std::string& text, const std::string&, Buttons b, Icon) override {
        std::string line = text;
        for (auto& c : line)
            if (c == '\r' || c == '\n') c = ' ';
        shown.push_back(line);
        said(line);
        switch (b) {
        case Buttons::OK:
            return Answer::OK;
        case Buttons::YesNo:
            return Answer::No;
        case Buttons::OKCancel:
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

protected:
    // A message as one line, for a subclass that passes it on.
    virtual void said(const std::string&) {}
};

class TextClipboard : public Clipboard {
public:
    std::string content;
    void clear() override { content.clear(); }
    void setText(const std::string& t) override { content = t; }
    std::string text() override { return content; }
    void setImagePng(const std::vector<std::uint8_t>&) override {}
};

class NoEventPump : public EventPump {
public:
    void yield() override {}
};

} // namespace nebkaro

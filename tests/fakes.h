#pragma once
// Scripted stand-ins for the desktop: every prompt is recorded, every answer comes from a
// queue prepared by the test, and a prompt nobody prepared an answer for fails the test.
#include "core/app.h"
#include "core/errors.h"
#include "core/files.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace nebkaro::testing {

struct Prompt {
    std::string kind; // "message", "input", "open", "save", "beep"
    std::string text;
    std::string title;
    Buttons buttons = Buttons::OK;
    Icon icon = Icon::None;
};

class ScriptedDialogs : public Dialogs {
public:
    std::vector<Prompt> prompts;
    std::deque<Answer> answers;
    std::deque<std::optional<std::string>> inputs;
    std::deque<std::optional<std::filesystem::path>> files;
    int beeps = 0;

    Answer message(const std::string& text, const std::string& title, Buttons b, Icon i) override {
        prompts.push_back({"message", text, title, b, i});
        if (b == Buttons::OK) {
            if (!answers.empty() && answers.front() == Answer::OK) answers.pop_front();
            return Answer::OK;
        }
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected question: " << text;
            return b == Buttons::YesNo ? Answer::No : Answer::Cancel;
        }
        Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                     const std::string& def) override {
        prompts.push_back({"input", prompt, title, Buttons::OKCancel, Icon::None});
        lastDefault = def;
        if (inputs.empty()) {
            ADD_FAILURE() << "unexpected input box: " << prompt;
            return std::nullopt;
        }
        auto a = inputs.front();
        inputs.pop_front();
        return a;
    }
    std::optional<std::filesystem::path> openFile(const std::string& filter,
                                                  const std::filesystem::path& proposed) override {
        prompts.push_back({"open", proposed.string(), filter, Buttons::OKCancel, Icon::None});
        return nextFile();
    }
    std::optional<std::filesystem::path> saveFile(const std::string& filter,
                                                  const std::filesystem::path& proposed) override {
        prompts.push_back({"save", proposed.string(), filter, Buttons::OKCancel, Icon::None});
        return nextFile();
    }
    void beep() override { ++beeps; }

    std::string lastDefault;
    // Texts of the message boxes shown, in order.
    std::vector<std::string> messages() const {
        std::vector<std::string> out;
        for (const auto& p : prompts)
            if (p.kind == "message") out.push_back(p.text);
        return out;
    }

private:
    std::optional<std::filesystem::path> nextFile() {
        if (files.empty()) {
            ADD_FAILURE() << "unexpected file dialog";
            return std::nullopt;
        }
        auto f = files.front();
        files.pop_front();
        return f;
    }
};

class MemoryClipboard : public Clipboard {
public:
    std::string content;
    std::vector<std::uint8_t> image;
    void clear() override {
        content.clear();
        image.clear();
    }
    void setText(const std::string& t) override { content = t; }
    std::string text() override { return content; }
    void setImagePng(const std::vector<std::uint8_t>& png) override { image = png; }
};

class CountingEvents : public EventPump {
public:
    int yields = 0;
    std::function<void()> onYield;
    void yield() override {
        ++yields;
        if (onYield) onYield();
    }
};

// Sign pictures of fixed sizes (twips) by code; unknown codes are missing pictures.
class FakeSignPictures : public SignPictures {
public:
    std::map<std::string, std::pair<int, int>> sizes;
    SignPicture picture(Library library, Direction direction, const std::string& code) override {
        SignPicture p;
        p.file = std::filesystem::path("/pictures") / libraryName(library) /
                 directionName(direction) / (code + ".GIF");
        auto it = sizes.find(code);
        if (it == sizes.end()) {
            p.width = p.height = FolderSignPictures::EmptySlotSize;
            return p;
        }
        p.width = it->second.first;
        p.height = it->second.second;
        p.ok = true;
        return p;
    }
};

// Writes into memory; can be told to fail with a given error.
class MemoryFileWriter : public FileWriter {
public:
    std::map<std::string, std::string> written;
    int failWith = 0;
    void write(const std::filesystem::path& path, const std::string& bytes) override {
        if (failWith) throw RunError(failWith);
        written[path.string()] = bytes;
    }
};

// A complete set of fakes around one App.
struct TestApp {
    ScriptedDialogs dialogs;
    MemoryClipboard clipboard;
    CountingEvents events;
    FakeSignPictures pictures;
    AtomicFileWriter diskWriter;
    App app{dialogs, clipboard, events, pictures, diskWriter};
};

// A fresh empty folder under the test temp dir, removed by the destructor.
class TempDir {
public:
    TempDir();
    ~TempDir();
    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path write(const std::string& relative, const std::string& bytes) const;

private:
    std::filesystem::path path_;
};

std::string readFile(const std::filesystem::path& p);

} // namespace nebkaro::testing

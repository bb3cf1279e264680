#pragma once
// Scripted stand-ins for the desktop: every prompt is recorded, every answer comes from a
// queue prepared by the test, and a prompt nobody prepared an answer for fails the test.
// The window tests (Qt Test) define NEBKARO_QT_TEST before including this file.
#include "core/app.h"
#include "core/errors.h"
#include "core/files.h"

#ifdef NEBKARO_QT_TEST
#include <QTest>
#define NEBKARO_FAKE_FAILURE(what) QTest::qFail((what).c_str(), __FILE__, __LINE__)
#else
#include <gtest/gtest.h>
#define NEBKARO_FAKE_FAILURE(what) ADD_FAILURE() << (what)
#endif

#include <deque>
#include <filesystem>
#include <functional>
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
    std::vector<std::string> unexpected; // prompts nobody prepared an answer for
    int beeps = 0;

    Answer message(const std::string& text, const std::string& title, Buttons b, Icon i) override {
        prompts.push_back({"message", text, title, b, i});
        if (b == Buttons::OK) {
            if (!answers.empty() && answers.front() == Answer::OK) answers.pop_front();
            return Answer::OK;
        }
        if (answers.empty()) {
            fail("unexpected question: " + text);
            return b == Buttons::YesNo ? Answer::No : Answer::Cancel;
        }
        Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                     const std::string&) override {
        prompts.push_back({"input", prompt, title, Buttons::OKCancel, Icon::None});
        return next(inputs, "unexpected input box: " + prompt);
    }
    std::optional<std::filesystem::path> openFile(const std::string& filter,
                                                  const std::filesystem::path& proposed) override {
        prompts.push_back({"open", proposed.string(), filter, Buttons::OKCancel, Icon::None});
        return next(files, "unexpected file dialog");
    }
    std::optional<std::filesystem::path> saveFile(const std::string& filter,
                                                  const std::filesystem::path& proposed) override {
        prompts.push_back({"save", proposed.string(), filter, Buttons::OKCancel, Icon::None});
        return next(files, "unexpected file dialog");
    }
    void beep() override { ++beeps; }

    // Texts of the message boxes shown, in order.
    std::vector<std::string> messages() const {
        std::vector<std::string> out;
        for (const auto& p : prompts)
            if (p.kind == "message") out.push_back(p.text);
        return out;
    }
    // Forgets the prompts and the answers not taken.
    void reset() {
        prompts.clear();
        answers.clear();
        inputs.clear();
        files.clear();
        unexpected.clear();
    }

private:
    void fail(const std::string& what) {
        unexpected.push_back(what);
        NEBKARO_FAKE_FAILURE(what);
    }
    // The next answer of a queue of optional answers; none, and a failure, when it is empty.
    template <typename T> T next(std::deque<T>& queue, const std::string& what) {
        if (queue.empty()) {
            fail(what);
            return std::nullopt;
        }
        T a = queue.front();
        queue.pop_front();
        return a;
    }
};

class MemoryClipboard : public Clipboard {
public:
    std::string content;
    void clear() override { content.clear(); }
    void setText(const std::string& t) override { content = t; }
    std::string text() override { return content; }
    void setImagePng(const std::vector<std::uint8_t>&) override {}
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
        const auto it = sizes.find(code);
        p.ok = it != sizes.end();
        p.width = p.ok ? it->second.first : FolderSignPictures::EmptySlotSize;
        p.height = p.ok ? it->second.second : FolderSignPictures::EmptySlotSize;
        return p;
    }
};

// The windows as the logic sees them: the status lines recorded, the rest left to WindowHost.
struct ScriptedWindows : WindowHost {
    std::vector<std::string> status;
    void showStatus(const std::string& s) override { status.push_back(s); }
};

// Writes into memory.
class MemoryFileWriter : public FileWriter {
public:
    std::map<std::string, std::string> written;
    void write(const std::filesystem::path& path, const std::string& bytes) override {
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

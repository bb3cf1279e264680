#include "core/dictionary_file.h"

#include "core/app.h"
#include "core/errors.h"
#include "core/field_reader.h"
#include "core/files.h"
#include "core/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace fs = std::filesystem;

namespace nebkaro {

namespace {
// The one reading of a dictionary's text, with every field a view into it: the header (when
// the first value is not a direction), then the words until the end or a record whose
// direction is neither "R" nor "L".
template <class OnWord>
void readFields(std::string_view text, int maxWords, DictionaryHeader& header, bool& hasHeader,
                bool& stoppedEarly, WordRecord& stopRecord, int& stopLine, OnWord onWord) {
    FieldReader in(text);
    const std::string_view first = in.readView();
    if (isDirectionLetter(first)) {
        in = FieldReader(text);
    } else {
        hasHeader = true;
        header[0] = first;
        for (int i = 1; i < FieldCount; ++i) header[static_cast<std::size_t>(i)] = in.readView();
    }
    int words = 0;
    std::array<std::string_view, FieldCount> rec;
    while (!in.atEnd()) {
        const int line = in.line();
        for (int f = 0; f < FieldCount; ++f) rec[static_cast<std::size_t>(f)] = in.readView();
        if (!isDirectionLetter(rec[0])) {
            stoppedEarly = true;
            for (int f = 0; f < FieldCount; ++f)
                stopRecord[static_cast<std::size_t>(f)] = rec[static_cast<std::size_t>(f)];
            stopLine = line;
            break;
        }
        if (++words > maxWords) throw RunError(SubscriptOutOfRange);
        onWord(rec);
    }
}

// A word per line in the usual file: room for them all at once.
std::size_t expectedWords(std::string_view text, int maxWords) {
    std::size_t lines = 0;
    for (const char *p = text.data(), *stop = p + text.size();
         (p = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(stop - p))));
         ++p)
        ++lines;
    return std::min(lines + 1, static_cast<std::size_t>(maxWords) + 1);
}
} // namespace

ParsedDictionary readDictionaryText(const std::string& textValue, int maxWords) {
    ParsedDictionary out;
    out.words.reserve(expectedWords(textValue, maxWords));
    readFields(textValue, maxWords, out.header, out.hasHeader, out.stoppedEarly, out.stopRecord,
               out.stopLine, [&](const std::array<std::string_view, FieldCount>& rec) {
                   WordRecord& w = out.words.emplace_back();
                   for (int f = 0; f < FieldCount; ++f)
                       w[static_cast<std::size_t>(f)] = rec[static_cast<std::size_t>(f)];
               });
    return out;
}

PackedDictionary readDictionaryPacked(std::string textValue, int maxWords) {
    PackedDictionary out;
    // Spans hold 32-bit offsets; a text beyond that is more than any dictionary can hold.
    if (textValue.size() > UINT32_MAX) throw RunError(SubscriptOutOfRange);
    auto text = std::make_shared<const std::string>(std::move(textValue));
    const char* base = text->data();
    out.words.rows.reserve(expectedWords(*text, maxWords));
    preferHugePages(out.words.rows.data(), out.words.rows.capacity() * sizeof(StoredRow));
    std::array<TextSpan, FieldCount> spans;
    readFields(*text, maxWords, out.header, out.hasHeader, out.stoppedEarly, out.stopRecord,
               out.stopLine, [&](const std::array<std::string_view, FieldCount>& rec) {
                   for (int f = 0; f < FieldCount; ++f) {
                       const std::string_view v = rec[static_cast<std::size_t>(f)];
                       spans[static_cast<std::size_t>(f)] = {
                           static_cast<std::uint32_t>(v.data() - base),
                           static_cast<std::uint32_t>(v.size())};
                   }
                   out.words.rows.emplace_back(text.get(), spans);
               });
    out.words.text = std::move(text);
    return out;
}

namespace {

// The writer's form: the header line when hasHeader, then rows 0..lastIndex.
std::string headerLine(const DictionaryHeader& header) {
    return wordLine(header);
}
} // namespace

std::string wordLine(const WordRecord& word) {
    std::string line;
    for (int f = 0; f < FieldCount; ++f) {
        if (f) line += ',';
        line += '"';
        line += word[static_cast<std::size_t>(f)];
        line += '"';
    }
    line += "\r\n";
    return line;
}

std::string dictionaryFileText(const DictionaryStore& store, bool withWords) {
    std::string out;
    if (store.hasHeader) out += headerLine(store.header);
    if (!withWords) return out;
    // Sized once and filled in place: the file is written as one buffer.
    const std::size_t head = out.size();
    std::size_t size = head;
    for (int w = 0; w <= store.lastIndex; ++w)
        for (int f = 0; f < FieldCount; ++f) size += store.view(w, f).size() + 3;
    size += static_cast<std::size_t>(std::max(store.lastIndex + 1, 0)); // the line feeds
    out.resize(size);
    char* p = out.data() + head;
    for (int w = 0; w <= store.lastIndex; ++w) {
        for (int f = 0; f < FieldCount; ++f) {
            const std::string_view v = store.view(w, f);
            *p++ = '"';
            if (!v.empty()) std::memcpy(p, v.data(), v.size());
            p += v.size();
            *p++ = '"';
            *p++ = f + 1 < FieldCount ? ',' : '\r';
        }
        *p++ = '\n';
    }
    return out;
}

UnwritableValue findUnwritableValue(const DictionaryStore& store, bool withWords) {
    // One pass over the bytes; three searches per value cost more than the save itself.
    auto bad = [](std::string_view v) {
        // No early exit: the loop is then one the compiler runs many bytes at a time.
        unsigned char hit = 0;
        for (const char c : v) hit |= (c == '"') | (c == '\r') | (c == '\n');
        return hit != 0;
    };
    UnwritableValue u;
    if (store.hasHeader) {
        for (int f = 0; f < FieldCount; ++f) {
            if (bad(store.header[static_cast<std::size_t>(f)])) {
                u.found = u.inHeader = true;
                u.field = f;
                return u;
            }
        }
    }
    if (!withWords) return u;
    for (int w = 0; w <= store.lastIndex; ++w) {
        for (int f = 0; f < FieldCount; ++f) {
            if (bad(store.view(w, f))) {
                u.found = true;
                u.word = w;
                u.field = f;
                return u;
            }
        }
    }
    return u;
}

std::string nkdPath(const std::string& path) {
    return text::replaceAll(path, ".csv", ".nkd");
}

std::string captionText(const App& app) {
    return "Nebkaro Ver: " + versionText() +
           "    Dictionary: " + (app.store.untitled ? "Untitled" : app.store.dictionaryName);
}

namespace {
// The dictionary to load is not there: the user opens another one or quits.
void offerAnotherDictionary(App& app) {
    const std::string prompt = "The dictionary: '" + app.store.dictionaryPath + "' was not found." +
                               "\r\nClick 'OK' to load another dictionary" +
                               "\r\nClick 'Cancel' to Quit";
    if (app.dialogs.message(prompt, "Dictionary Not Found", Buttons::OKCancel, Icon::Exclamation) ==
        Answer::OK) {
        openDictionaryDialog(app);
    } else {
        app.requestEnd(0);
    }
}
} // namespace

LoadOutcome loadDictionary(App& app) {
    DictionaryStore& store = app.store;
    const fs::path path = resolveCaseBlind(fs::path(store.dictionaryPath));
    std::error_code ec;
    // Something that is there but is no file (a pipe, a device, a folder) fails as a load
    // does, with the reason.
    if (!fs::exists(path, ec)) {
        offerAnotherDictionary(app);
        return LoadOutcome::NotFound;
    }
    PackedDictionary parsed;
    std::vector<int> converted;
    const int start = app.mergeMode ? store.lastIndex + 1 : 0;
    try {
        parsed = readDictionaryPacked(text::decodeFileText(readFileBytes(path), &converted),
                                      DictionaryStore::MaxWordIndex + 1 - std::max(start, 0));
    } catch (const RunError& e) {
        app.dialogs.message(e.report(), "Dictionary Not Loaded", Buttons::OK, Icon::Critical);
        return LoadOutcome::Failed;
    }

    if (parsed.hasHeader) {
        store.header = parsed.header;
        store.hasHeader = true;
        if (app.settings.showDictionaryInfo) app.windows->showHeaderDialog(store.header);
    } else {
        store.header = {};
        store.hasHeader = false;
    }
    int counter = std::max(start, 0);
    const int wordsRead = static_cast<int>(parsed.words.size());
    if (!app.mergeMode) {
        store.clear();
        counter = wordsRead;
        store.adoptWords(std::move(parsed.words), 0);
    } else {
        const int n = static_cast<int>(parsed.words.size());
        store.adoptWords(std::move(parsed.words), counter);
        counter += n;
    }
    if (parsed.stoppedEarly) {
        app.dialogs.beep();
        if (counter <= DictionaryStore::MaxWordIndex) store.setRow(counter, parsed.stopRecord);
    }
    store.lastIndex = counter - 1;
    store.currentIndex = 0;
    app.loadStoppedAtLine = parsed.stoppedEarly ? parsed.stopLine : 0;
    app.loadConvertedLines = std::move(converted);
    if (!app.mergeMode) {
        store.untitled = false;
        app.history.clear();
    }
    // Save writes to the file just read, a merged one too: it holds no word the store does
    // not, unless its load stopped early.
    app.dictionaryFile = path.string();
    app.dictionaryFileLonger = parsed.stoppedEarly;
    app.renderWord(app);
    app.windows->setCaption(captionText(app));
    store.isChanged = app.mergeMode;
    if (parsed.stoppedEarly) {
        app.dialogs.message(
            "Only part of '" + path.string() + "' was loaded: line " +
                std::to_string(parsed.stopLine) + " holds a word whose direction '" +
                parsed.stopRecord[FieldDirection] +
                "' is neither R nor L, and the words from there on were not read (" +
                std::to_string(wordsRead) + (wordsRead == 1 ? " word" : " words") +
                " loaded).\r\nSaving over this file asks first, as it would lose them.",
            "Dictionary Not Fully Loaded", Buttons::OK, Icon::Exclamation);
    }
    if (!app.loadConvertedLines.empty())
        app.windows->showStatus(convertedLinesText(app.loadConvertedLines));
    return LoadOutcome::Loaded;
}

std::string convertedLinesText(const std::vector<int>& lines) {
    std::string t = lines.size() == 1 ? "Line " : "Lines ";
    const std::size_t shown = std::min<std::size_t>(lines.size(), 10);
    for (std::size_t i = 0; i < shown; ++i) t += (i ? ", " : "") + std::to_string(lines[i]);
    if (lines.size() > shown) t += " and " + std::to_string(lines.size() - shown) + " more";
    t += lines.size() == 1 ? " was" : " were";
    return t + " not UTF-8 text and read as Windows-1252";
}

namespace {

// What a failed save says: the file, the reason, and that the dictionary is still open.
std::string failedSaveText(const std::string& path, const RunError& e) {
    return "'" + path + "' could not be saved: " + e.description() +
           "\r\nThe dictionary is still open; nothing in it was lost.";
}
bool sameFile(const fs::path& a, const fs::path& b) {
    if (b.empty()) return false;
    std::error_code ec;
    if (fs::equivalent(a, b, ec)) return true;
    return fs::weakly_canonical(a, ec) == fs::weakly_canonical(b, ec);
}

// What a failed write says: which file, why, and that nothing is lost yet.
void reportFailedSave(App& app, const RunError& e) {
    app.dialogs.message(failedSaveText(app.store.dictionaryPath, e), "", Buttons::OK,
                        Icon::Critical);
}

bool saveDictionary(App& app, bool replaceConfirmed);
} // namespace

bool saveDictionary(App& app) {
    return saveDictionary(app, false);
}

namespace {
bool saveDictionary(App& app, bool replaceConfirmed) {
    DictionaryStore& store = app.store;
    if (store.untitled) {
        saveDictionaryDialog(app);
        return !store.untitled && !store.isChanged;
    }
    app.storeWord(app);
    store.dictionaryPath = nkdPath(store.dictionaryPath);
    const bool withWords = !app.newDictionaryMode;
    const UnwritableValue u = findUnwritableValue(store, withWords);
    if (u.found) {
        static const char* names[] = {
            "direction", "library", "enriched notation", "Gardiner notation", "transliteration",
            "meaning",   "comment"};
        const std::string where = u.inHeader
                                      ? "Header value " + std::to_string(u.field)
                                      : "Word " + std::to_string(u.word) + ", " + names[u.field];
        const std::string prompt = where +
                                   " holds a double quote or a line break, which the dictionary "
                                   "file cannot hold: it will not read back as it is now." +
                                   "\r\nSave anyway?";
        if (app.dialogs.message(prompt, "Save", Buttons::YesNo, Icon::Exclamation) != Answer::Yes)
            return false;
    }
    fs::path target;
    try {
        target = saveTarget(fs::path(store.dictionaryPath));
    } catch (const RunError& e) {
        reportFailedSave(app, e);
        return false;
    }
    std::error_code ec;
    if (app.dictionaryFileLonger && sameFile(target, app.dictionaryFile)) {
        const std::string prompt =
            "'" + store.dictionaryPath + "' was only partly loaded: it holds words after line " +
            std::to_string(app.loadStoppedAtLine) +
            " that are not in the dictionary now. Saving replaces the file with the " +
            std::to_string(store.lastIndex + 1) + " words the dictionary holds, and the others " +
            "are lost." + "\r\nSave over it anyway?";
        if (app.dialogs.message(prompt, "Save", Buttons::YesNo, Icon::Exclamation) != Answer::Yes)
            return false;
    } else if (!replaceConfirmed && fs::exists(target, ec) &&
               !sameFile(target, app.dictionaryFile)) {
        const std::string prompt = "'" + store.dictionaryPath +
                                   "' already exists and is another file than the dictionary "
                                   "open now.\r\nDo you want to replace it?";
        if (app.dialogs.message(prompt, "Save", Buttons::YesNo, Icon::Exclamation) != Answer::Yes)
            return false;
    }
    const std::string content = dictionaryFileText(store, withWords);
    try {
        app.files.write(fs::path(store.dictionaryPath), content);
    } catch (const RunError& e) {
        reportFailedSave(app, e);
        return false;
    }
    app.dictionaryFile = target.string();
    app.dictionaryFileLonger = false;
    if (app.newDictionaryMode) {
        store.emptyAfterNewDictionary();
        app.history.clear();
        app.newDictionaryMode = false;
        app.renderWord(app);
    }
    store.isChanged = false;
    app.history.markSaved();
    return true;
}
} // namespace

bool confirmHeader(App& app, DictionaryHeader& boxes) {
    if (isDirectionLetter(boxes[0])) {
        app.dialogs.message("First field cannot be 'L' or 'R'", "", Buttons::OK, Icon::Exclamation);
        boxes[0].clear();
        return false;
    }
    app.store.hasHeader = false;
    for (int i = 0; i < FieldCount; ++i) {
        app.store.header[static_cast<std::size_t>(i)] = boxes[static_cast<std::size_t>(i)];
        if (!boxes[static_cast<std::size_t>(i)].empty()) app.store.hasHeader = true;
    }
    return true;
}

namespace {

// Before the dictionary is replaced or closed: when the store changed or the word on show has
// edits not yet stored, asks prompt (Yes, No and Cancel); Yes saves. True when the command
// may go on: no changes, No, or Yes and saved.
bool offerToSaveChanges(App& app, const std::string& prompt, const std::string& title, Icon icon) {
    if (!app.store.isChanged && !app.wordEdited(app)) return true;
    const Answer a = app.dialogs.message(prompt, title, Buttons::YesNoCancel, icon);
    if (a == Answer::Cancel) return false;
    return a == Answer::No || saveDictionary(app);
}
} // namespace

void openDictionaryDialog(App& app) {
    DictionaryStore& store = app.store;
    // A merge keeps the dictionary and only leaves the word on show; an open replaces it.
    if (app.mergeMode)
        app.leaveWord(app);
    else if (!offerToSaveChanges(app, "Do you want to save the current Dictionary?", "SAVE?",
                                 Icon::Question))
        return;
    const auto chosen = app.dialogs.openFile(OpenFilter, fs::path(store.dictionaryPath));
    if (!chosen || chosen->empty()) return;
    const std::string oldPath = store.dictionaryPath, oldName = store.dictionaryName;
    store.dictionaryPath = chosen->string();
    store.dictionaryName = chosen->filename().string();
    if (loadDictionary(app) == LoadOutcome::Failed) {
        store.dictionaryPath = oldPath;
        store.dictionaryName = oldName;
    }
}

void openCommand(App& app) {
    app.mergeMode = false;
    openDictionaryDialog(app);
}

void mergeCommand(App& app) {
    app.mergeMode = true;
    openDictionaryDialog(app);
}

void saveDictionaryDialog(App& app) {
    DictionaryStore& store = app.store;
    if (app.newDictionaryMode) {
        DictionaryHeader boxes{};
        boxes[2] = text::todayLongDate();
        app.windows->showHeaderDialog(boxes);
    }
    store.dictionaryPath = nkdPath(store.dictionaryPath);
    const auto chosen = app.dialogs.saveFile(SaveFilter, fs::path(store.dictionaryPath));
    if (!chosen || chosen->empty()) {
        // A cancelled New Dictionary must not turn the next ordinary save into one that
        // empties the dictionary.
        app.newDictionaryMode = false;
        return;
    }
    store.dictionaryPath = chosen->string();
    store.dictionaryName = chosen->filename().string();
    store.untitled = false;
    // The file dialog has asked about replacing the name chosen; a ".csv" name saves under
    // another name, which it has not.
    saveDictionary(app, nkdPath(chosen->string()) == chosen->string());
    app.windows->setCaption(captionText(app));
}

void saveAsCommand(App& app) {
    saveDictionaryDialog(app);
}

void newDictionaryCommand(App& app) {
    // The new dictionary empties the store: its changes are saved first or given up knowingly.
    if (!offerToSaveChanges(app, "Do you want to save the current Dictionary?", "SAVE?",
                            Icon::Question))
        return;
    app.newDictionaryMode = true;
    saveDictionaryDialog(app);
}

} // namespace nebkaro

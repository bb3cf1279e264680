#include "exchange/word_exchange.h"

#include "composer/code_parser.h"
#include "composer/composer.h"
#include "core/app.h"
#include "core/errors.h"
#include "core/text.h"
#include "exchange/mdc.h"
#include "print/word_picture.h"
#include "translit/unicode_translit.h"

#include <algorithm>
#include <set>

namespace nebkaro {

namespace {

constexpr int MaxSignsPerWord = 20;

std::string tsvField(const std::string& value) {
    if (value.find_first_of("\t\r\n\"") == std::string::npos) return value;
    std::string out = "\"";
    for (char c : value) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

// A line field cannot hold the line's own separators.
std::string lineField(std::string value) {
    std::replace_if(
        value.begin(), value.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; },
        ' ');
    return value;
}

std::string wordLabel(int w) {
    return "word " + std::to_string(w);
}

// The notation of a line as signs looked up in the sign list, or why it cannot be.
struct NotationReading {
    std::vector<Composer::NamedSign> signs;
    std::string problem;
};

bool isNotationChar(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == ' ' ||
           c == '-' || c == ':' || c == '*';
}

NotationReading readNotation(const SignLists& lists, const std::string& mdc) {
    NotationReading r;
    for (char c : mdc) {
        if (!isNotationChar(c)) {
            r.problem = "the notation has a character other than letters, digits, blanks, "
                        "\"-\", \":\" and \"*\"";
            return r;
        }
    }
    const CodeLine line = tokenizeCodeLine(mdc);
    if (line.tokens.empty()) {
        r.problem = "there is no sign";
        return r;
    }
    for (std::size_t k = 0; k < line.tokens.size(); ++k) {
        const std::string& token = line.tokens[k].text;
        if (token.empty()) {
            r.problem = "two separators stand together";
            return r;
        }
        Composer::NamedSign sign;
        sign.joiner = k == 0 ? '-' : line.tokens[k - 1].separator;
        // A name with a digit is a code, variant letter or not (N35a); others are phonetic.
        if (std::any_of(token.begin(), token.end(), [](char c) { return c >= '0' && c <= '9'; })) {
            sign.code = token;
            sign.entry = lists.findSign(token);
        } else {
            const TokenResolution t = resolveToken(lists, token);
            if (t.outcome == TokenResolution::Outcome::PhoneticNotFound) {
                r.problem = token + " was not found";
                return r;
            }
            sign.code = t.code;
            sign.entry = t.entry;
        }
        if (sign.entry == 0) {
            r.problem = sign.code + " is not in the sign list";
            return r;
        }
        r.signs.push_back(std::move(sign));
    }
    if (r.signs.size() > MaxSignsPerWord) r.problem = "a word holds at most 20 signs";
    return r;
}

std::string wordKey(const std::string& gardiner, const std::string& translit,
                    const std::string& meaning, const std::string& comment) {
    return gardiner + '\t' + translit + '\t' + meaning + '\t' + comment;
}

// The dictionary's words as keys, so that an import adds no word twice.
std::set<std::string> knownWords(const App& app) {
    std::set<std::string> known;
    for (int w : allWords(app)) {
        const WordRecord& r = app.store.row(w);
        known.insert(wordKey(r[FieldGardiner], r[FieldTranslit], r[FieldMeaning], r[FieldComment]));
    }
    return known;
}

std::vector<std::string> tabFields(const std::string& line) {
    std::vector<std::string> fields;
    for (std::size_t at = 0;;) {
        const std::size_t tab = line.find('\t', at);
        fields.push_back(line.substr(at, tab == std::string::npos ? std::string::npos : tab - at));
        if (tab == std::string::npos) break;
        at = tab + 1;
    }
    return fields;
}

// What composing words changes besides the store: the pending flags, the composer's results
// and the word on show.
struct ComposerState {
    int current;
    bool newWord, edit, accepted;
    std::string layoutText, composedGardiner;
    explicit ComposerState(const App& app)
        : current(app.store.currentIndex), newWord(app.store.newWordPending),
          edit(app.store.editPending), accepted(app.store.composeAccepted),
          layoutText(app.layoutText), composedGardiner(app.composedGardiner) {}
    void restore(App& app) const {
        app.store.newWordPending = newWord;
        app.store.editPending = edit;
        app.store.composeAccepted = accepted;
        app.layoutText = layoutText;
        app.composedGardiner = composedGardiner;
        app.store.currentIndex = current;
    }
};

// The composer arranges the signs as a new word, leaving its layout and Gardiner notation in
// app.layoutText and app.composedGardiner; false when it accepted no word.
bool composeNewWord(App& app, const std::vector<Composer::NamedSign>& signs) {
    app.store.newWordPending = true;
    app.store.editPending = false;
    app.layoutText.clear();
    app.composedGardiner.clear();
    Composer composer(app);
    composer.open();
    composer.arrangeSigns(signs);
    // One sign is a word too.
    composer.firstFreeSlot = std::max(composer.firstFreeSlot, 1);
    composer.accept();
    return app.store.composeAccepted;
}

} // namespace

std::vector<int> allWords(const App& app) {
    std::vector<int> words;
    if (app.store.isEmpty()) return words;
    for (int w = 0; w <= app.store.lastIndex; ++w) words.push_back(w);
    return words;
}

ExportText exportTsv(App& app, const std::vector<int>& words) {
    ExportText out;
    out.text = "Hieroglyphs\tTransliteration\tGardiner\tMeaning\tComment\r\n";
    print::CachedSignPictures pictures(app.pictures);
    for (int w : words) {
        const WordRecord& word = app.store.row(w);
        std::string glyphs;
        try {
            const UnicodeWord u =
                unicodeText(placedSignsOfRecord(pictures, word),
                            directionOfLetter(word[FieldDirection]) == Direction::Left);
            glyphs = text::toUtf8(u.text);
            if (!u.missing.empty())
                out.problems.push_back(wordLabel(w) + ": no Unicode sign for " + u.missing.front());
        } catch (const RunError&) {
            out.problems.push_back(wordLabel(w) + ": its layout cannot be read");
        }
        out.text += tsvField(glyphs) + '\t' + tsvField(scholarlyFromPlain(word[FieldTranslit])) +
                    '\t' + tsvField(word[FieldGardiner]) + '\t' + tsvField(word[FieldMeaning]) +
                    '\t' + tsvField(word[FieldComment]) + "\r\n";
    }
    return out;
}

ExportText exportMdcLines(App& app, const std::vector<int>& words) {
    ExportText out;
    print::CachedSignPictures pictures(app.pictures);
    for (int w : words) {
        const WordRecord& word = app.store.row(w);
        std::string mdc;
        try {
            mdc = mdcOfRecord(pictures, word);
        } catch (const RunError&) {
        }
        if (mdc.empty()) {
            // A line without signs would be refused on the way back in.
            out.problems.push_back(wordLabel(w) + ": no signs to write");
            continue;
        }
        out.text += mdc + '\t' + lineField(word[FieldTranslit]) + '\t' +
                    lineField(word[FieldMeaning]) + '\t' + lineField(word[FieldComment]) + "\r\n";
    }
    return out;
}

ImportReport importMdcLines(App& app, const std::string& text) {
    ImportReport report;
    DictionaryStore& store = app.store;
    std::set<std::string> known = knownWords(app);
    // The composer works on the shared sign table and result strings; they go back as they
    // were, and the word on show is drawn again at the end.
    const ComposerState kept(app);
    // New words go after the last one, or into row 0 of an empty dictionary.
    UndoStep step(app.history, store, "Import", store.isEmpty() ? 0 : store.lastIndex + 1);

    std::size_t start = 0;
    int lineNumber = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        start = end + 1;
        ++lineNumber;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        // A byte-order mark some editors put first.
        if (lineNumber == 1 && line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
        if (line.find_first_not_of(" \t") == std::string::npos) continue;
        auto refuse = [&](const std::string& why) {
            report.refused.push_back("line " + std::to_string(lineNumber) + ": " + why);
        };

        const std::vector<std::string> fields = tabFields(line);
        if (fields.size() < 3 || fields.size() > 4) {
            refuse("3 or 4 fields separated by tabs were expected, not " +
                   std::to_string(fields.size()));
            continue;
        }
        if (line.find('"') != std::string::npos) {
            refuse("a double quote cannot be stored in a dictionary file");
            continue;
        }
        const NotationReading notation = readNotation(app.lists, fields[0]);
        if (!notation.problem.empty()) {
            refuse(notation.problem);
            continue;
        }
        const std::string translit = plainFromScholarly(fields[1]);
        const std::string comment = fields.size() == 4 ? fields[3] : "";

        if (!composeNewWord(app, notation.signs)) {
            refuse("there is no sign");
            continue;
        }
        const std::string key = wordKey(app.composedGardiner, translit, fields[2], comment);
        if (known.count(key)) {
            refuse("the dictionary already has this word");
            continue;
        }
        int row = 0;
        try {
            row = store.takeRowForNewWord();
        } catch (const StoreFull&) {
            refuse("the dictionary is full");
            break;
        }
        store.setRow(row,
                     {directionLetter(app.settings.direction), libraryLetter(app.settings.library),
                      app.layoutText, app.composedGardiner, translit, fields[2], comment});
        known.insert(key);
        ++report.added;
        store.isChanged = true;
    }

    kept.restore(app);
    app.renderWord(app);
    return report;
}

std::string importReportText(const ImportReport& report) {
    std::string out = report.added == 1 ? "1 word was added."
                                        : std::to_string(report.added) + " words were added.";
    if (!report.refused.empty()) {
        out += "\n" + std::to_string(report.refused.size()) +
               (report.refused.size() == 1 ? " line was refused:" : " lines were refused:");
        for (const std::string& r : report.refused) out += "\n" + r;
    }
    return out;
}

} // namespace nebkaro

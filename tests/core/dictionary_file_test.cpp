#include "core/dictionary_file.h"
#include "core/errors.h"
#include "core/field_reader.h"
#include "core/text.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace nebkaro;
using namespace nebkaro::testing;

namespace {

const char* kWord1 = "\"L\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"reed\",\"a comment\"\r\n";
const char* kWord2 =
    "\"R\",\"E\",\"G17(0,0) - N35(300,0) \",\"G17-N35\",\"mn\",\"remain\",\"\"\r\n";

struct DictionaryFileTest : ::testing::Test {
    TestApp t;
    TempDir dir;
    int stores = 0;
    void SetUp() override {
        t.app.renderWord = [](App&) {};
        t.app.storeWord = [this](App&) { ++stores; };
        t.app.settings.showDictionaryInfo = false;
    }
    LoadOutcome load(const std::string& name, const std::string& bytes, bool merge = false) {
        auto p = dir.write(name, bytes);
        t.app.store.dictionaryPath = p.string();
        t.app.mergeMode = merge;
        return loadDictionary(t.app);
    }
};

} // namespace

TEST_F(DictionaryFileTest, TheFirstFieldDecidesWhetherThereIsAHeader) {
    const std::tuple<std::string, bool, std::string, int> cases[] = {
        {std::string(kWord1) + kWord2, false, "", 1},
        {std::string("\"My words\",\"me\",\"1 May 2020\",\"\",\"\",\"\",\"\"\r\n") + kWord1, true,
         "My words", 0},
        // A spreadsheet's title row becomes the header.
        {"Direction,Library,Layout,Gardiner,Translit,Meaning,Comment\r\nL,B,\"A1(0,0) "
         "\",A1,i,reed,x\r\n",
         true, "Direction", 0},
        // Only exactly "R" or "L" is a direction: "r" starts a header.
        {std::string("\"r\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n") + kWord1, true, "r", 0},
    };
    for (const auto& [text, hasHeader, header0, lastIndex] : cases) {
        ASSERT_EQ(load("d.nkd", text), LoadOutcome::Loaded);
        EXPECT_EQ(t.app.store.hasHeader, hasHeader) << text;
        EXPECT_EQ(t.app.store.header[0], header0);
        EXPECT_EQ(t.app.store.lastIndex, lastIndex);
        EXPECT_FALSE(t.app.store.isChanged);
    }
}

TEST_F(DictionaryFileTest, ARecordWithoutADirectionEndsTheLoadWithABeepAndAMessage) {
    const std::string text =
        std::string(kWord1) + "\"r\",\"B\",\"A1(0,0) \",\"A1\",\"x\",\"y\",\"z\"\r\n" + kWord2;
    ASSERT_EQ(load("d.nkd", text), LoadOutcome::Loaded);
    EXPECT_EQ(t.dialogs.beeps, 1);
    ASSERT_EQ(t.dialogs.messages().size(), 1u);
    EXPECT_NE(t.dialogs.messages()[0].find("line 2"), std::string::npos);
    EXPECT_EQ(t.app.store.lastIndex, 0);
    EXPECT_EQ(t.app.store.field(0, FieldMeaning), "reed");
    // The refused record's cells keep what was read, beyond the last word.
    EXPECT_EQ(t.app.store.field(1, FieldDirection), "r");
    // Merged, the same file is not saved over (its path is now the one saved to) unasked.
    ASSERT_EQ(load("m.nkd", text, true), LoadOutcome::Loaded);
    t.dialogs.answers.push_back(Answer::No);
    EXPECT_FALSE(saveDictionary(t.app));
    EXPECT_EQ(readFile(dir.path() / "m.nkd"), text);
}

TEST_F(DictionaryFileTest, WhatTheProgramWritesReadsBackByteIdentical) {
    const std::string original =
        std::string("\"Name\",\"Author\",\"1 May 2020\",\"e\",\"\",\"\",\"\"\r\n") + kWord1 +
        kWord2;
    ASSERT_EQ(load("d.nkd", original), LoadOutcome::Loaded);
    ASSERT_TRUE(saveDictionary(t.app));
    EXPECT_EQ(readFile(t.app.store.dictionaryPath), original);
    EXPECT_EQ(stores, 1); // the word on show is stored first
}

TEST_F(DictionaryFileTest, AFailedLoadReportsAndKeepsTheOpenDictionary) {
    ASSERT_EQ(load("good.nkd", std::string(kWord1) + kWord2), LoadOutcome::Loaded);
    std::string tooMany;
    for (int i = 0; i < DictionaryStore::MaxWordIndex + 2; ++i) tooMany += kWord1;
    const auto pipe = dir.path() / "pipe.nkd";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const auto& file :
         {dir.write("truncated", std::string(kWord1) + "\"L\",\"B\",\"x\""), dir.write("empty", ""),
          dir.write("100,002 words", tooMany), dir.write("binary", std::string("\0\1\2\3\"", 5)),
          dir.write("UTF-16", std::string("\xFF\xFE\"\0L\0\"\0,\0", 10)), pipe}) {
        t.dialogs.prompts.clear();
        t.app.store.dictionaryPath = file.string();
        EXPECT_EQ(loadDictionary(t.app), LoadOutcome::Failed) << file;
        ASSERT_EQ(t.dialogs.prompts.size(), 1u) << file;
        EXPECT_EQ(t.dialogs.prompts[0].icon, Icon::Critical);
        EXPECT_EQ(t.app.store.lastIndex, 1) << file;
        EXPECT_EQ(t.app.store.field(1, FieldMeaning), "remain") << file;
    }
    EXPECT_NE(t.dialogs.prompts[0].text.find("not a regular file"), std::string::npos);
}

TEST_F(DictionaryFileTest, AMissingDictionaryOffersAnotherOrEndsTheProgram) {
    t.app.store.dictionaryPath = (dir.path() / "missing.nkd").string();
    t.dialogs.answers = {Answer::Cancel};
    EXPECT_EQ(loadDictionary(t.app), LoadOutcome::NotFound);
    ASSERT_EQ(t.dialogs.prompts.size(), 1u);
    EXPECT_EQ(
        t.dialogs.prompts[0].text,
        "The dictionary: '" + t.app.store.dictionaryPath +
            "' was not found.\r\nClick 'OK' to load another dictionary\r\nClick 'Cancel' to Quit");
    EXPECT_EQ(t.dialogs.prompts[0].title, "Dictionary Not Found");
    EXPECT_TRUE(t.app.endRequested);
}

TEST_F(DictionaryFileTest, MergeAppendsAndTakesTheMergedFilesHeaderAndPath) {
    ASSERT_EQ(load("a.nkd", std::string("\"A\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n") + kWord1),
              LoadOutcome::Loaded);
    ASSERT_EQ(load("b.nkd", std::string("\"B\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n") + kWord2, true),
              LoadOutcome::Loaded);
    EXPECT_EQ(t.app.store.lastIndex, 1);
    EXPECT_EQ(t.app.store.header[0], "B");
    EXPECT_EQ(t.app.store.field(1, FieldMeaning), "remain");
    EXPECT_TRUE(t.app.store.isChanged);
    EXPECT_EQ(t.app.store.dictionaryPath, (dir.path() / "b.nkd").string());
    // A merged file without a header empties the header.
    ASSERT_EQ(load("c.nkd", kWord1, true), LoadOutcome::Loaded);
    EXPECT_FALSE(t.app.store.hasHeader);
    EXPECT_EQ(t.app.store.header[0], "");
    EXPECT_EQ(t.app.store.lastIndex, 2);
}

TEST_F(DictionaryFileTest, NewDictionaryWritesTheHeaderOnlyAndEmptiesTheStore) {
    ASSERT_EQ(load("a.nkd", std::string(kWord1) + kWord2), LoadOutcome::Loaded);
    struct HeaderWindow : WindowHost {
        App* app = nullptr;
        DictionaryHeader shown{};
        void showHeaderDialog(const DictionaryHeader& boxes) override {
            shown = boxes;
            DictionaryHeader b = boxes;
            b[0] = "Fresh";
            confirmHeader(*app, b);
        }
    } w;
    w.app = &t.app;
    t.app.windows = &w;
    t.dialogs.files = {dir.path() / "new.nkd"};
    newDictionaryCommand(t.app);
    EXPECT_EQ(w.shown[2], text::todayLongDate());
    EXPECT_EQ(w.shown[0], "");
    EXPECT_EQ(readFile(dir.path() / "new.nkd"),
              "\"Fresh\",\"\",\"" + text::todayLongDate() + "\",\"\",\"\",\"\",\"\"\r\n");
    EXPECT_EQ(t.app.store.lastIndex, 0);
    EXPECT_TRUE(t.app.store.isEmpty());
    EXPECT_FALSE(t.app.newDictionaryMode);
}

TEST_F(DictionaryFileTest, ValuesTheFormatCannotHoldAreFlaggedOnceBeforeWriting) {
    ASSERT_EQ(load("a.nkd", std::string(kWord1) + kWord2), LoadOutcome::Loaded);
    const std::string before = readFile(t.app.store.dictionaryPath);
    t.app.store.setField(1, FieldMeaning, "say \"hi\"");
    t.app.store.setField(1, FieldComment, "two\r\nlines");
    t.dialogs.answers = {Answer::No};
    EXPECT_FALSE(saveDictionary(t.app));
    ASSERT_EQ(t.dialogs.messages().size(), 1u);
    EXPECT_NE(t.dialogs.messages()[0].find("Word 1, meaning"), std::string::npos);
    EXPECT_EQ(readFile(t.app.store.dictionaryPath), before);
    t.dialogs.answers = {Answer::Yes};
    EXPECT_TRUE(saveDictionary(t.app));
}

// Each row: the text, its fields, and the line the reader is on after each field (a line
// break inside quotes counts as one).
TEST(FieldReader, QuotedBareAndLineEndsSeparateAlike) {
    const std::tuple<const char*, std::vector<std::string>, std::string> cases[] = {
        {"\"a\",\"b\"\r\n\"c\"", {"a", "b", "c"}, "122"},
        {"a,b\nc\nd", {"a", "b", "c", "d"}, "1233"},
        {"  a  ,  b  \r\n", {"a", "b"}, "12"}, // blanks around bare fields go
        {"\" a \",b", {" a ", "b"}, "11"},     // blanks inside quotes stay
        {"\"a\"junk,b", {"a", "b"}, "11"},     // text after the closing quote is skipped
        {"\"a,b\",c", {"a,b", "c"}, "11"},     // a comma inside quotes is text
        {"a,,b", {"a", "", "b"}, "111"},       // an empty bare field
        {"\"\",\"\"", {"", ""}, "11"},         // empty quoted fields
        {"a\rb", {"a", "b"}, "22"},            // a lone CR ends a line too
        {"x\r\n\r\n", {"x"}, "2"},             // trailing blank lines are no record
        {"\"one\ntwo, three\nfive\",x\ny", {"one\ntwo, three\nfive", "x", "y"}, "344"},
        // Long quoted values are scanned eight bytes at a time: the closing quote and line
        // breaks at every place in a block, and a value that never closes.
        {"\"0123456\",\"01234567\",\"012345678\"", {"0123456", "01234567", "012345678"}, "111"},
        {"\"01234567\n9abcdef\n\",x", {"01234567\n9abcdef\n", "x"}, "33"},
        {"\"a value that never closes", {"a value that never closes"}, "1"},
    };
    for (const auto& [text, fields, lines] : cases) {
        FieldReader in(text);
        std::vector<std::string> read;
        std::string after;
        while (!in.atEnd()) {
            read.push_back(in.read());
            after += std::to_string(in.line());
        }
        EXPECT_EQ(read, fields) << text;
        EXPECT_EQ(after, lines) << text;
    }
}

TEST(DictionaryStore, BoundsAreZeroTo100000AndZeroToSix) {
    DictionaryStore s;
    s.setField(100000, 6, "last");
    EXPECT_EQ(s.field(100000, 6), "last");
    for (auto [w, f] : {std::pair{-1, 0}, {100001, 0}, {0, 7}, {0, -1}}) {
        try {
            s.field(w, f);
            ADD_FAILURE() << w << "," << f;
        } catch (const RunError& e) {
            EXPECT_EQ(e.number(), SubscriptOutOfRange);
        }
    }
}

TEST(DictionaryStore, The100001stWordFitsAndTheNextIsRefused) {
    DictionaryStore s;
    s.setField(0, FieldGardiner, "A1");
    s.lastIndex = 99999;
    EXPECT_EQ(s.takeRowForNewWord(), 100000);
    EXPECT_THROW(s.takeRowForNewWord(), StoreFull);
    EXPECT_EQ(s.lastIndex, 100000);
}

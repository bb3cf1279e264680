// The command-line tool, run as a user's script would run it.
#include "core/dictionary_file.h"
#include "core/sign_lists.h"
#include "core/text.h"
#include "fakes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tuple>

using namespace nebkaro::testing;

namespace {

struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
};

CliRun cli(const std::string& args, const std::filesystem::path& home) {
    TempDir errDir;
    const auto errFile = errDir.path() / "err";
    const std::string cmd = std::string(NEBKARO_CLI) + " --home '" + home.string() + "' " + args +
                            " 2>'" + errFile.string() + "'";
    CliRun r;
    FILE* p = popen(cmd.c_str(), "r");
    std::array<char, 4096> buf{};
    std::size_t n;
    while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) r.out.append(buf.data(), n);
    const int st = pclose(p);
    r.status = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
    r.err = readFile(errFile);
    return r;
}

const std::string kWords =
    "\"Mine\",\"me\",\"\",\"\",\"\",\"\",\"\"\r\n"
    "\"L\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"reed\",\"c1\"\r\n"
    "\"R\",\"B\",\"G17(0,0) - N35(300,0) \",\"G17-N35\",\"mn\",\"remain\",\"\"\r\n";

struct CliTest : ::testing::Test {
    TempDir home;
    void SetUp() override {
        home.write("Lists/BasicList.csv", "\"A1\"\r\n\"G17\"\r\n\"N35\"\r\n\"D21\"\r\n");
        home.write("Lists/Phonetic.csv", "\"G17\",\"m\"\r\n\"N35\",\"n\"\r\n");
        // Every sign 20 x 36 pixels, 300 x 540 twips.
        const char gif[] = "GIF89a\x14\x00\x24\x00\x00\x00\x00;";
        for (const char* p : {"Basic/Left/A/A1.GIF", "Basic/Left/G/G17.GIF", "Basic/Left/N/N35.GIF",
                              "Basic/Right/G/G17.GIF", "Basic/Right/N/N35.GIF"})
            home.write(p, std::string(gif, sizeof gif - 1));
    }
    std::string file(const std::string& name, const std::string& bytes) {
        return home.write(name, bytes).string();
    }
};

} // namespace

TEST_F(CliTest, CommandsPrintWhatTheyFoundAndExitOneWhenNothing) {
    const auto f = file("w.nkd", kWords);
    const auto lines = file("lines.txt", "N35\tn\twater\nQ9\tq\tx\n");
    struct Run {
        std::string args;
        int status;
        std::string out;
        bool whole = true; // the whole output, else a part of it
    } runs[] = {
        {"info " + f, 0, "header: yes\nheader 0: Mine\n", false},
        {"info " + f, 0, "words: 2\n", false},
        {"show " + f + " 1", 0,
         "0: R\n1: B\n2: G17(0,0) - N35(300,0) \n3: G17-N35\n4: mn\n5: remain\n6: \n"},
        {"search " + f + " --field meaning re", 0, "0\n"},
        {"search " + f + " --field meaning --all re", 0, "0\n1\n"},
        {"search " + f + " --field meaning --exact REED", 0, "0\n"},
        {"search " + f + " --field meaning --exact --case REED", 1, ""},
        {"search " + f + " --field gardiner --all 'G17*'", 0, "1\n"},
        {"search " + f + " --field translit nothing", 1, ""},
        {"search " + f + " --field translit MN", 1, ""}, // case counts in transliterations
        {"search " + f + " --field translit --ignore-case MN", 0, "1\n"},
        {"search " + f + " --field translit 'ỉ'", 0, "0\n"}, // scholarly letters are plain ones
        {"search " + f + " --signs --all 'N35 m'", 0, "1\n"},
        {"search " + f + " --signs 'a1 g17'", 1, ""},
        {"search " + f + " --signs --all n", 0, "1\n"},
        {"compose 'G17 N35'", 0, "G17(0,0) - N35(300,0) \nG17-N35\n"},
        {"compose 'm-n'", 0, "G17(0,0) - N35(300,0) \nG17-N35\n"},
        {"--home=" + home.path().string() + " compose m", 0, "G17(0,0) \nG17\n"},
        // Typed in reading order.
        {"compose --direction right 'G17 N35'", 0, "G17(300,0) - N35(0,0) \nG17-N35\n"},
        // One sign is a word; unknown tokens are reported on stderr; no sign at all is nothing.
        {"compose 'A1 Q9'", 0, "A1(0,0) \nA1\n"},
        {"compose 'Q9'", 1, ""},
        {"guess " + f + " 1", 0, "mn\n"},
        {"guess " + f + " 0", 1, "\n"},
        // Import adds what it can and exits 1 when it refused a line.
        {"import " + f + " " + lines + " -o " + file("imported.nkd", ""), 1, ""},
    };
    for (const Run& r : runs) {
        const CliRun got = cli(r.args, home.path());
        EXPECT_EQ(got.status, r.status) << r.args << ": " << got.err;
        if (r.whole)
            EXPECT_EQ(got.out, r.out) << r.args;
        else
            EXPECT_NE(got.out.find(r.out), std::string::npos) << r.args << ": " << got.out;
    }
    EXPECT_NE(cli("compose 'A1 Q9'", home.path()).err.find("Q9 was not found"), std::string::npos);
    EXPECT_NE(readFile(home.path() / "imported.nkd").find("\"water\""), std::string::npos);
}

TEST_F(CliTest, BadInputExitsTwoWithOneLine) {
    const auto f = file("w.nkd", kWords);
    const auto fifo = home.path() / "pipe";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    // The load stops at line 2: writing the one word before it would lose the third.
    const auto partial =
        file("partial.nkd", "\"L\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"a\",\"\"\r\n"
                            "\"x\",\"B\",\"\",\"\",\"\",\"\",\"\"\r\n"
                            "\"L\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"b\",\"\"\r\n");
    const auto quote = file("q.csv", "L,B,\"A1(0,0) \",A1,i,say \"hi\",x\n");
    const auto out = (home.path() / "out.nkd").string();
    const std::pair<std::string, const char*> cases[] = {
        {"show " + f + " 2", "no word 2"},
        {"show " + f + " -1", "no word -1"}, // a negative number is no option
        {"show " + f + " x", "whole number"},
        {"info /no/such.nkd", "no such dictionary"},
        {"frobnicate", "unknown command"},
        {"convert " + f, "-o is required"},
        {"search " + f + " --field meaning --all=x re", "unknown option '--all=x'"},
        {"search " + f + " --field meaning ''", ""},
        {"search " + f + " --signs 'm qqq'", "qqq"}, // neither a code nor a phonetic value
        {"sort " + f + " --by nothing -o " + out, "nothing"},
        {"info " + file("empty.nkd", ""), "could not be read"},
        {"check /dev/zero", "not a regular file"},
        {"check " + fifo.string(), "not a regular file"},
        {"info " + file("u16.nkd", std::string("\xFF\xFE\"\0L\0\"\0", 8)), "UTF-16"},
        {"convert " + f + " -o " + fifo.string(), "not a regular file"},
        {"convert " + quote + " -o " + out, "double quote"},
        {"sort " + partial + " --by meaning -o " + out, "only partly loaded"},
        {"convert " + partial + " -o " + out, "line 2"},
        {"merge " + f + " " + partial + " -o " + out, "nothing written"},
    };
    for (const auto& [args, msg] : cases) {
        CliRun r = cli(args, home.path());
        EXPECT_EQ(r.status, 2) << args;
        EXPECT_NE(r.err.find(msg), std::string::npos) << args << ": " << r.err;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
    }
    EXPECT_FALSE(std::filesystem::exists(out));
    EXPECT_TRUE(std::filesystem::is_fifo(fifo));
}

TEST_F(CliTest, EveryCommandHasHelp) {
    CliRun all = cli("--help", home.path());
    EXPECT_EQ(all.status, 0);
    for (const char* c : {"info", "show", "convert", "merge", "check"}) {
        CliRun r = cli(std::string(c) + " --help", home.path());
        EXPECT_EQ(r.status, 0) << c;
        EXPECT_NE(r.out.find(std::string("usage: nebkaro-cli [--home DIR] ") + c),
                  std::string::npos)
            << c;
        EXPECT_NE(all.out.find(c), std::string::npos);
    }
    EXPECT_EQ(cli("", home.path()).status, 2); // no command: the usage, as bad input
}

TEST_F(CliTest, ConvertWritesTheProgramsFormAndMergeAppends) {
    const auto csv =
        file("in.csv", "L,B,\"A1(0,0) \",A1,i,caf\xE9,x\nR,B,\"A1(0,0) \",A1,i,water,y\n");
    const auto out = (home.path() / "out.nkd").string();
    CliRun r = cli("convert " + csv + " -o " + out, home.path());
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(readFile(out), "\"L\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"café\",\"x\"\r\n"
                             "\"R\",\"B\",\"A1(0,0) \",\"A1\",\"i\",\"water\",\"y\"\r\n");
    const auto merged = (home.path() / "m.nkd").string();
    r = cli("merge " + csv + " " + file("w.nkd", kWords) + " -o " + merged, home.path());
    ASSERT_EQ(r.status, 0) << r.err;
    r = cli("info " + merged, home.path());
    EXPECT_NE(r.out.find("words: 4"), std::string::npos);
    EXPECT_NE(r.out.find("header 0: Mine"), std::string::npos);
}

TEST_F(CliTest, CheckReportsEachKindOfProblem) {
    CliRun clean = cli("check " + file("w.nkd", kWords), home.path());
    EXPECT_EQ(clean.status, 0) << clean.out;
    const auto bad =
        file("bad.nkd", "\"L\",\"B\",\"A1(0,0) - Q9(300,0) \",\"A1\",\"i\",\"x\",\"\"\r\n"
                        "\"L\",\"B\",\"A1(0 0) \",\"A1\",\"i\",\"x\",\"\"\r\n"
                        "\"L\",\"B\",\"D21(0,0) \",\"A1\",\"i\",\"a,\"b\",\"\"\r\n"
                        "\"L\",\"B\",\"A1(40000,0) \",\"A1\",\"i\",\"caf\xE9\",\"\"\r\n"
                        "\"L\",\"B\",\"A1(0,99999999999999999999) \",\"A1\",\"\",\"\",\"\"\r\n"
                        "\"x\",\"B\",\"\",\"\",\"\",\"\",\"\"\r\n");
    CliRun r = cli("check " + bad, home.path());
    EXPECT_EQ(r.status, 1);
    for (const char* want :
         {"line 6: the load stops here", "code 'Q9' is not in the Basic sign list",
          "Basic/Left/Q/Q9.GIF", "word 1: the layout", "Basic/Left/D/D21.GIF",
          "line 4: not UTF-8 text, read as Windows-1252", "word 3: the layout 'A1(40000,0) '",
          "word 4: the layout 'A1(0,99999999999999999999) '"})
        EXPECT_NE(r.out.find(want), std::string::npos) << want << "\n" << r.out;
}

TEST_F(CliTest, SortShuffleFlipAndReadingOrderWriteNewFiles) {
    const auto f = file("w.nkd", kWords);
    const auto out = (home.path() / "o.nkd").string();
    struct Case {
        std::string args;
        int index;
        int field;
        std::string want;
    } cases[] = {
        {"sort " + f + " --by meaning -o " + out, 0, 5, "reed"},
        {"sort " + f + " --by meaning --reverse -o " + out, 0, 5, "remain"},
        {"sort " + f + " --by meaning --method toolbar --reverse -o " + out, 0, 5, "remain"},
        {"flip " + f + " --to invert -o " + out, 0, 0, "R"},
        {"flip " + f + " --to left -o " + out, 1, 2, "G17( 300, 0) - N35( 0, 0) "},
        {"reading-order " + f + " --overlap 20 -o " + out, 1, 3, "N35 - G17 "}, // right to left
    };
    for (const auto& c : cases) {
        CliRun r = cli(c.args, home.path());
        ASSERT_EQ(r.status, 0) << c.args << ": " << r.err;
        r = cli("show " + out + " " + std::to_string(c.index), home.path());
        const std::string line = std::to_string(c.field) + ": " + c.want + "\n";
        EXPECT_NE(r.out.find(line), std::string::npos) << c.args << "\n" << r.out;
    }
    // The same seed gives the same order.
    const auto a = (home.path() / "a.nkd").string(), b = (home.path() / "b.nkd").string();
    ASSERT_EQ(cli("shuffle " + f + " --seed 7 -o " + a, home.path()).status, 0);
    ASSERT_EQ(cli("shuffle " + f + " --seed 7 -o " + b, home.path()).status, 0);
    EXPECT_EQ(readFile(a), readFile(b));
}

TEST_F(CliTest, GardinerSortOrdersTheStarterDictionary) {
    // Its notations include M23-X1-N35 and M23-X1-N35-R4-X1-Q3-X8, one the beginning of the
    // other.
    const auto f = file(
        "w.nkd", readFile(std::filesystem::path(NEBKARO_DATA_DIR) / "Dictionaries" / "Words.nkd"));
    const auto out = (home.path() / "o.nkd").string();
    const std::tuple<std::string, bool, bool> runs[] = {
        // extra arguments, reverse order, Gardiner order (the tool bar compares plain text)
        {"", false, true},
        {" --reverse", true, true},
        {" --method toolbar", false, false},
    };
    const auto before = nebkaro::readDictionaryText(readFile(f), 100001).words;
    for (const auto& [extra, reverse, gardiner] : runs) {
        CliRun r = cli("sort " + f + " --by gardiner" + extra + " -o " + out, home.path());
        ASSERT_EQ(r.status, 0) << extra << r.err;
        const auto after = nebkaro::readDictionaryText(readFile(out), 100001).words;
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t k = 0; gardiner && k + 1 < after.size(); ++k) {
            std::string a = nebkaro::text::upper(after[k][3]);
            std::string b = nebkaro::text::upper(after[k + 1][3]);
            ASSERT_FALSE(reverse ? nebkaro::gardinerGreater(b, a) : nebkaro::gardinerGreater(a, b))
                << extra << ": " << after[k][3] << " before " << after[k + 1][3];
        }
    }
}

// The tool starts without loading Qt or the flash-card libraries; drawing is the helper's.
TEST(CliStart, TheToolLinksNoDrawingLibraries) {
    FILE* p = popen(("ldd '" + std::string(NEBKARO_CLI) + "'").c_str(), "r");
    std::string libs;
    std::array<char, 4096> buf{};
    std::size_t n;
    while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) libs.append(buf.data(), n);
    ASSERT_EQ(pclose(p), 0);
    for (const char* lib : {"libQt6", "libsqlite3", "libzip"})
        EXPECT_EQ(libs.find(lib), std::string::npos) << lib;
}

TEST_F(CliTest, RenderWritesThePictureInTheFormatOfTheExtension) {
    const auto f = file("w.nkd", kWords);
    const std::pair<const char*, std::string> cases[] = {
        {"png", "\x89PNG"}, {"svg", "<?xml"}, {"bmp", "BM"}, {"BMP", "BM"}};
    for (const auto& [ext, magic] : cases) {
        const auto out = home.path() / (std::string("w.") + ext);
        CliRun r = cli("render " + f + " 1 -o " + out.string(), home.path());
        if (r.status == 2 && r.err.find("unknown command") != std::string::npos)
            GTEST_SKIP() << "built without Qt";
        ASSERT_EQ(r.status, 0) << r.err;
        EXPECT_EQ(readFile(out).substr(0, magic.size()), magic) << ext;
    }
    // A 300 x 540 twip sign and another beside it: 600 + 64 by 540 + 64 twips, 15 to the pixel,
    // rounded up so that no sign is cut.
    const std::string png = readFile(home.path() / "w.png");
    auto be32 = [&](std::size_t at) {
        return (static_cast<unsigned char>(png[at]) << 24) |
               (static_cast<unsigned char>(png[at + 1]) << 16) |
               (static_cast<unsigned char>(png[at + 2]) << 8) |
               static_cast<unsigned char>(png[at + 3]);
    };
    EXPECT_EQ(be32(16), 45);
    EXPECT_EQ(be32(20), 41);
}

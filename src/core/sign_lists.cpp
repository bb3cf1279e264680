#include "core/sign_lists.h"

#include "core/errors.h"
#include "core/field_reader.h"
#include "core/files.h"
#include "core/text.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace nebkaro {

int SignLists::findSign(const std::string& code) const {
    for (int i = 1; i <= signCount; ++i)
        if (signCodes[static_cast<std::size_t>(i)] == code) return i;
    return 0;
}

int SignLists::findPhonetic(int column, const std::string& value) const {
    for (int k = 0; k <= phoneticLast; ++k)
        if (phonetic[static_cast<std::size_t>(k)][static_cast<std::size_t>(column)] == value)
            return k;
    return -1;
}

namespace {

fs::path signListPath(const fs::path& home, Library library) {
    return home / "Lists" / (library == Library::Basic ? "BasicList.csv" : "Extendedlist.csv");
}
} // namespace

void parseSignList(SignLists& lists, const std::string& text) {
    FieldReader in(text);
    std::vector<std::string> codes(SignLists::MaxSigns + 1);
    int preamble = lists.preambleCount;
    int i = 1;
    while (!in.atEnd()) {
        if (i > SignLists::MaxSigns) throw RunError(SubscriptOutOfRange);
        codes[static_cast<std::size_t>(i)] = in.read();
        if (codes[static_cast<std::size_t>(i)] == "A1") preamble = i - 1;
        ++i;
    }
    int count = i - 1;
    std::array<std::array<int, 3>, 28> table{};
    for (int k = 0; k < 28; ++k)
        table[static_cast<std::size_t>(k)][0] = lists.categoryTable[static_cast<std::size_t>(k)][0];
    for (int k = preamble + 1; k <= count; ++k) {
        char32_t c = text::upperChar(text::firstChar(codes[static_cast<std::size_t>(k)]));
        if (c < 63 || c > 90) throw RunError(SubscriptOutOfRange);
        table[c - 63][1] += 1;
    }
    table[1][1] = preamble;
    table[1][2] = 1;
    table[2][2] = preamble + 1;
    for (int k = 2; k <= 26; ++k)
        table[static_cast<std::size_t>(k) + 1][2] =
            table[static_cast<std::size_t>(k)][1] + table[static_cast<std::size_t>(k)][2];
    lists.signCodes = std::move(codes);
    lists.signCount = count;
    lists.preambleCount = preamble;
    lists.categoryTable = table;
}

void parseTrans2Code(SignLists& lists, const std::string& text) {
    FieldReader in(text);
    auto table = lists.trans2Code;
    for (int i = 31; i <= 255; ++i) {
        table[static_cast<std::size_t>(i)][0] = in.read();
        table[static_cast<std::size_t>(i)][1] = in.read();
    }
    lists.trans2Code = table;
}

void parsePhonetic(SignLists& lists, const std::string& text) {
    FieldReader in(text);
    std::vector<std::array<std::string, 2>> rows(SignLists::MaxPhoneticRows);
    int i = 0;
    while (!in.atEnd()) {
        if (i >= SignLists::MaxPhoneticRows) throw RunError(SubscriptOutOfRange);
        rows[static_cast<std::size_t>(i)][0] = in.read();
        rows[static_cast<std::size_t>(i)][1] = in.read();
        ++i;
    }
    lists.phonetic = std::move(rows);
    lists.phoneticLast = i - 1;
}

namespace {
// The longest list is a few hundred kilobytes.
constexpr std::uintmax_t MaxListBytes = 16u << 20;

template <typename Parse> void loadListFile(SignLists& lists, const fs::path& file, Parse parse) {
    const fs::path path = resolveCaseBlind(file);
    try {
        parse(lists, text::decodeFileText(readFileBytes(path, MaxListBytes)));
    } catch (const RunError& e) {
        if (e.number() == FileNotFound || e.number() == PathNotFound)
            throw ProgramFileError(file.string());
        throw ProgramFileError(file.string(), e.report());
    }
}
} // namespace

void loadSignList(SignLists& lists, const fs::path& home, Library library) {
    loadListFile(lists, signListPath(home, library), parseSignList);
}

void loadTrans2Code(SignLists& lists, const fs::path& home) {
    loadListFile(lists, home / "Lists" / "Trans2Code.csv", parseTrans2Code);
}

void loadPhonetic(SignLists& lists, const fs::path& home) {
    loadListFile(lists, home / "Lists" / "Phonetic.csv", parsePhonetic);
}

namespace {
std::string firstCharText(const std::string& s) {
    if (s.empty()) return {};
    std::string out;
    text::appendUtf8(out, text::firstChar(s));
    return out;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Splits a part into its number and variant suffix: "A14a" -> 14, "a". False for a part
// that has neither: an empty one, or a single letter.
bool numberAndSuffix(const std::string& x, double& number, std::string& suffix) {
    std::u32string u = text::toU32(x);
    if (u.empty()) return false;
    if (isDigit(static_cast<char>(u.back() < 128 ? u.back() : 0))) {
        number = text::leadingNumber(text::toUtf8(u.substr(1)));
        suffix.clear();
        return true;
    }
    if (u.size() < 2) return false;
    suffix = text::toUtf8(u.substr(u.size() - 1));
    number = text::leadingNumber(text::toUtf8(u.substr(1, u.size() - 2)));
    return true;
}

// -1, 0 or 1 as part x sorts before, with or after part y: by first character, then number,
// then variant. A part without a number (empty, or its category letter alone) is compared as
// text, which puts the bare letter before every code of its category.
int comparePart(const std::string& x, const std::string& y) {
    const auto byText = [&] { return x == y ? 0 : (x > y ? 1 : -1); };
    if (firstCharText(x) != firstCharText(y)) return byText();
    double nx = 0, ny = 0;
    std::string sx, sy;
    if (!numberAndSuffix(x, nx, sx) || !numberAndSuffix(y, ny, sy)) return byText();
    if (nx != ny) return nx > ny ? 1 : -1;
    if (sx != sy) return sx > sy ? 1 : -1;
    return 0;
}
} // namespace

bool gardinerGreater(std::string& a, std::string& b) {
    if (firstCharText(a) != firstCharText(b)) return a > b;
    auto normalise = [](std::string& s) {
        std::string out;
        out.reserve(s.size());
        for (char c : s) {
            if (c == ' ') continue;
            out.push_back(c == ':' || c == '*' ? '-' : c);
        }
        s = std::move(out);
    };
    normalise(a);
    normalise(b);
    const auto pa = text::split(a, '-');
    const auto pb = text::split(b, '-');
    const std::size_t common = std::min(pa.size(), pb.size());
    for (std::size_t p = 0; p < common; ++p)
        if (const int c = comparePart(pa[p], pb[p])) return c > 0;
    // A notation that is the beginning of another sorts first.
    if (pa.size() != pb.size()) return pa.size() > pb.size();
    return a > b;
}

} // namespace nebkaro

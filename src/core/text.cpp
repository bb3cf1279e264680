#include "core/text.h"

#include "core/errors.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>

namespace nebkaro::text {

namespace {

std::string trimLeft(std::string_view s) {
    std::size_t b = 0;
    while (b < s.size() && s[b] == ' ') ++b;
    return std::string(s.substr(b));
}

std::string trimRight(std::string_view s) {
    std::size_t e = s.size();
    while (e > 0 && s[e - 1] == ' ') --e;
    return std::string(s.substr(0, e));
}
} // namespace

std::string trim(std::string_view s) {
    return trimLeft(trimRight(s));
}

std::size_t find(std::string_view hay, std::string_view needle, std::size_t start) {
    if (start < 1 || start > hay.size() + 1) return 0;
    if (needle.empty()) return start <= hay.size() ? start : 0;
    auto p = hay.find(needle, start - 1);
    return p == std::string_view::npos ? 0 : p + 1;
}

std::string replaceAll(std::string_view s, std::string_view from, std::string_view to) {
    if (from.empty()) return std::string(s);
    std::string out;
    out.reserve(s.size());
    std::size_t i = 0;
    while (true) {
        auto p = s.find(from, i);
        if (p == std::string_view::npos) break;
        out.append(s.substr(i, p - i));
        out.append(to);
        i = p + from.size();
    }
    out.append(s.substr(i));
    return out;
}

std::string removeAll(std::string_view s, char c) {
    std::string out;
    out.reserve(s.size());
    for (char x : s)
        if (x != c) out.push_back(x);
    return out;
}

std::vector<std::string> split(std::string_view s, char sep) {
    // An empty text has no parts at all, a non-empty one has one part more than separators.
    std::vector<std::string> parts;
    if (s.empty()) return parts;
    std::size_t i = 0;
    while (true) {
        auto p = s.find(sep, i);
        if (p == std::string_view::npos) {
            parts.emplace_back(s.substr(i));
            break;
        }
        parts.emplace_back(s.substr(i, p - i));
        i = p + 1;
    }
    return parts;
}

char32_t upperChar(char32_t c) {
    if (c < 0x80) return (c >= 'a' && c <= 'z') ? c - 32 : c;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
    if (c == 0xFF) return 0x178;
    if (c >= 0x100 && c <= 0x17F) {
        if (c == 0x131) return 'I';
        if (c == 0x17F) return 'S';
        if (c == 0x138 || c == 0x149) return c;
        if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E))
            return (c % 2 == 0) ? c - 1 : c;
        return (c % 2 == 1) ? c - 1 : c;
    }
    if (c >= 0x1E00 && c <= 0x1E95) return (c % 2 == 1) ? c - 1 : c;
    if (c >= 0x1EA0 && c <= 0x1EFF) return (c % 2 == 1) ? c - 1 : c;
    if (c >= 0xA722 && c <= 0xA72F) return (c % 2 == 1) ? c - 1 : c;
    return c;
}

void appendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (c >> 18)));
        out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

char32_t nextChar(std::string_view s, std::size_t& i) {
    auto b = static_cast<unsigned char>(s[i]);
    if (b < 0x80) {
        ++i;
        return b;
    }
    const std::size_t len = (b >= 0xF0) ? 4 : (b >= 0xE0) ? 3 : (b >= 0xC0) ? 2 : 1;
    if (len == 1 || i + len > s.size()) {
        ++i;
        return b;
    }
    char32_t c = b & (0x7F >> len);
    for (std::size_t k = 1; k < len; ++k) {
        const auto cb = static_cast<unsigned char>(s[i + k]);
        // A byte that does not continue the sequence is never swallowed: the lead byte
        // stands alone and the next byte is read for itself.
        if ((cb & 0xC0) != 0x80) {
            ++i;
            return b;
        }
        c = (c << 6) | (cb & 0x3F);
    }
    // An overlong form ("\xC0\xA3" for "#") is not the character it spells: were it read as
    // one, a pattern could hide wildcards in it.
    static constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (c < smallest[len]) {
        ++i;
        return b;
    }
    i += len;
    return c;
}

std::u32string toU32(std::string_view s) {
    std::u32string out;
    out.reserve(s.size());
    for (std::size_t i = 0; i < s.size();) out.push_back(nextChar(s, i));
    return out;
}

std::string toUtf8(std::u32string_view s) {
    std::string out;
    out.reserve(s.size());
    for (char32_t c : s) appendUtf8(out, c);
    return out;
}

char32_t firstChar(std::string_view s) {
    if (s.empty()) return 0;
    std::size_t i = 0;
    return nextChar(s, i);
}

std::string upper(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    for (std::size_t i = 0; i < s.size();) {
        auto b = static_cast<unsigned char>(s[i]);
        if (b < 0x80) {
            out.push_back((b >= 'a' && b <= 'z') ? static_cast<char>(b - 32)
                                                 : static_cast<char>(b));
            ++i;
            continue;
        }
        appendUtf8(out, upperChar(nextChar(s, i)));
    }
    return out;
}

namespace {

bool isValidUtf8(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size()) {
        // Dictionaries are mostly ASCII: eight bytes at a time while no high bit is set.
        while (i + 8 <= s.size()) {
            std::uint64_t word;
            std::memcpy(&word, s.data() + i, 8);
            if (word & 0x8080808080808080ULL) break;
            i += 8;
        }
        if (i >= s.size()) break;
        auto b = static_cast<unsigned char>(s[i]);
        int len;
        char32_t min;
        if (b < 0x80) {
            ++i;
            continue;
        } else if ((b & 0xE0) == 0xC0) {
            len = 2;
            min = 0x80;
        } else if ((b & 0xF0) == 0xE0) {
            len = 3;
            min = 0x800;
        } else if ((b & 0xF8) == 0xF0) {
            len = 4;
            min = 0x10000;
        } else {
            return false;
        }
        if (i + len > s.size()) return false;
        char32_t c = b & (0x7F >> len);
        for (int k = 1; k < len; ++k) {
            auto cb = static_cast<unsigned char>(s[i + k]);
            if ((cb & 0xC0) != 0x80) return false;
            c = (c << 6) | (cb & 0x3F);
        }
        if (c < min || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return false;
        i += len;
    }
    return true;
}
} // namespace

std::string decodeFileText(std::string bytes, std::vector<int>* convertedLines) {
    std::string_view view(bytes);
    if (view.substr(0, 2) == "\xFF\xFE" || view.substr(0, 2) == "\xFE\xFF")
        throw RunError(InvalidArgument, "The file is UTF-16 text, which the program does not "
                                        "read: save it as UTF-8 and open it again");
    if (view.substr(0, 3) == "\xEF\xBB\xBF") view.remove_prefix(3);
    if (isValidUtf8(view)) {
        // Kept as it is, without a copy, in the common case.
        if (view.size() != bytes.size()) return std::string(view);
        return bytes;
    }
    static constexpr std::array<char32_t, 32> high = {
        0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    // Line by line: a file that was UTF-8 until one line was added on Windows keeps its other
    // letters; only the lines that are not UTF-8 are read as Windows-1252.
    std::string out;
    out.reserve(view.size() + view.size() / 8);
    int line = 1;
    while (!view.empty()) {
        const std::size_t nl = view.find('\n');
        const std::size_t len = nl == std::string_view::npos ? view.size() : nl + 1;
        const std::string_view part = view.substr(0, len);
        if (isValidUtf8(part)) {
            out.append(part);
        } else {
            if (convertedLines) convertedLines->push_back(line);
            for (unsigned char b : part) {
                if (b < 0x80)
                    out.push_back(static_cast<char>(b));
                else if (b < 0xA0)
                    appendUtf8(out, high[b - 0x80]);
                else
                    appendUtf8(out, b);
            }
        }
        view.remove_prefix(len);
        ++line;
    }
    return out;
}

std::string plainNumber(double v) {
    if (v == 0) return "0";
    if (std::nearbyint(v) == v && std::fabs(v) < 1e15) {
        // Exact as a 64-bit integer; the same digits as printf's "%.0f".
        char buf[24];
        const auto end = std::to_chars(buf, buf + sizeof buf, static_cast<std::int64_t>(v)).ptr;
        return std::string(buf, end);
    }
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.15g", v);
    return buf;
}

std::string numberText(double v) {
    std::string s = plainNumber(v);
    return s[0] == '-' ? s : " " + s;
}

double leadingNumber(std::string_view s) {
    std::string t;
    for (char c : s)
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r') t.push_back(c);
    if (t.size() >= 2 && t[0] == '&' &&
        (t[1] == 'H' || t[1] == 'h' || t[1] == 'O' || t[1] == 'o')) {
        int base = (t[1] == 'H' || t[1] == 'h') ? 16 : 8;
        double v = 0;
        for (std::size_t i = 2; i < t.size(); ++i) {
            int d;
            char c = t[i];
            if (c >= '0' && c <= '9')
                d = c - '0';
            else if (base == 16 && c >= 'a' && c <= 'f')
                d = c - 'a' + 10;
            else if (base == 16 && c >= 'A' && c <= 'F')
                d = c - 'A' + 10;
            else
                break;
            if (d >= base) break;
            v = v * base + d;
        }
        return v;
    }
    std::size_t i = 0;
    std::string num;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) num.push_back(t[i++]);
    bool digits = false;
    while (i < t.size() && t[i] >= '0' && t[i] <= '9') {
        num.push_back(t[i++]);
        digits = true;
    }
    if (i < t.size() && t[i] == '.') {
        num.push_back(t[i++]);
        while (i < t.size() && t[i] >= '0' && t[i] <= '9') {
            num.push_back(t[i++]);
            digits = true;
        }
    }
    if (!digits) return 0;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E' || t[i] == 'd' || t[i] == 'D')) {
        std::size_t j = i + 1;
        std::string ex = "e";
        if (j < t.size() && (t[j] == '+' || t[j] == '-')) ex.push_back(t[j++]);
        bool exDigits = false;
        while (j < t.size() && t[j] >= '0' && t[j] <= '9') {
            ex.push_back(t[j++]);
            exDigits = true;
        }
        if (exDigits) num += ex;
    }
    return std::strtod(num.c_str(), nullptr);
}

double toNumber(std::string_view s) {
    // Whole numbers of up to 15 digits, by far the most common, are exact as doubles and read
    // without a copy; anything else takes the general way below.
    if (!s.empty() && s.size() <= 16) {
        const bool negative = s[0] == '-';
        const std::size_t first = (negative || s[0] == '+') ? 1 : 0;
        if (first < s.size() && s.size() - first <= 15) {
            std::int64_t v = 0;
            std::size_t i = first;
            while (i < s.size() && s[i] >= '0' && s[i] <= '9') v = v * 10 + (s[i++] - '0');
            if (i == s.size()) return negative ? -static_cast<double>(v) : static_cast<double>(v);
        }
    }
    std::string t = trim(s);
    while (!t.empty() && (t.back() == '\t')) t.pop_back();
    if (t.empty()) throw RunError(TypeMismatch);
    std::size_t i = 0;
    if (t[i] == '+' || t[i] == '-') ++i;
    bool digits = false, dot = false;
    for (; i < t.size(); ++i) {
        char c = t[i];
        if (c >= '0' && c <= '9')
            digits = true;
        else if (c == '.' && !dot)
            dot = true;
        else
            break;
    }
    if (!digits) throw RunError(TypeMismatch);
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < t.size() && (t[j] == '+' || t[j] == '-')) ++j;
        bool exDigits = false;
        while (j < t.size() && t[j] >= '0' && t[j] <= '9') {
            ++j;
            exDigits = true;
        }
        if (!exDigits) throw RunError(TypeMismatch);
        i = j;
    }
    if (i != t.size()) throw RunError(TypeMismatch);
    const double v = std::strtod(t.c_str(), nullptr);
    if (!std::isfinite(v)) throw RunError(Overflow);
    return v;
}

std::int32_t toLong(std::string_view s) {
    return toInt32(toNumber(s));
}

std::int16_t toInt16(double v) {
    if (std::isnan(v)) throw RunError(Overflow);
    double r = std::nearbyint(v); // the default rounding mode sends halves to even
    if (r < -32768 || r > 32767) throw RunError(Overflow);
    return static_cast<std::int16_t>(r);
}

std::int32_t toInt32(double v) {
    if (std::isnan(v)) throw RunError(Overflow);
    double r = std::nearbyint(v);
    if (r < -2147483648.0 || r > 2147483647.0) throw RunError(Overflow);
    return static_cast<std::int32_t>(r);
}

std::string longDate(int year, int month, int day) {
    static constexpr std::array<const char*, 12> months = {
        "January", "February", "March",     "April",   "May",      "June",
        "July",    "August",   "September", "October", "November", "December"};
    return std::to_string(day) + " " + months.at(static_cast<std::size_t>(month - 1)) + " " +
           std::to_string(year);
}

std::string todayLongDate() {
    std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    return longDate(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday);
}

std::string escapeHtml(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    for (char c : s) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out += c;
        }
    }
    return out;
}

} // namespace nebkaro::text

#include "core/field_reader.h"

#include "core/errors.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace nebkaro {

bool FieldReader::atEnd() const {
    for (std::size_t i = pos_; i < s_.size(); ++i) {
        char c = s_[i];
        if (c != '\r' && c != '\n' && c != ' ' && c != '\t') return false;
    }
    return true;
}

void FieldReader::skipSeparator() {
    // Skips up to and including the next comma or line end (CR LF, LF or CR).
    while (pos_ < s_.size()) {
        char c = s_[pos_];
        if (c == ',') {
            ++pos_;
            return;
        }
        if (c == '\r') {
            ++pos_;
            if (pos_ < s_.size() && s_[pos_] == '\n') ++pos_;
            ++line_;
            return;
        }
        if (c == '\n') {
            ++pos_;
            ++line_;
            return;
        }
        ++pos_;
    }
}

std::string FieldReader::read() {
    return std::string(readView());
}

std::string_view FieldReader::readView() {
    while (pos_ < s_.size() && (s_[pos_] == ' ' || s_[pos_] == '\t')) ++pos_;
    if (pos_ >= s_.size()) throw RunError(InputPastEnd);
    if (s_[pos_] == '"') {
        const std::size_t start = pos_ + 1;
        const char* p = s_.data() + start;
        const char* const stop = s_.data() + s_.size();
        // One pass finds the closing quote and counts the line breaks before it, eight bytes
        // at a time while neither is among them (values are short: a call per value to find
        // each would cost more than the search).
        constexpr std::uint64_t ones = 0x0101010101010101ULL;
        constexpr std::uint64_t highs = 0x8080808080808080ULL;
        // The high bit of each byte equal to c; wrong only above a byte that is, so the
        // lowest bit set is the first such byte (the first in memory on a little-endian CPU).
        static_assert(std::endian::native == std::endian::little);
        auto equalBytes = [](std::uint64_t w, char c) {
            const std::uint64_t x = w ^ (ones * static_cast<unsigned char>(c));
            return (x - ones) & ~x & highs;
        };
        for (;;) {
            if (stop - p >= 8) {
                std::uint64_t w;
                std::memcpy(&w, p, 8);
                const std::uint64_t hits = equalBytes(w, '"') | equalBytes(w, '\n');
                if (!hits) {
                    p += 8;
                    continue;
                }
                p += std::countr_zero(hits) / 8;
            } else {
                while (p < stop && *p != '"' && *p != '\n') ++p;
            }
            if (p < stop && *p == '\n') {
                ++line_;
                ++p;
                continue;
            }
            break;
        }
        const std::string_view value(s_.data() + start,
                                     static_cast<std::size_t>(p - s_.data()) - start);
        pos_ = p < stop ? static_cast<std::size_t>(p - s_.data()) + 1 : s_.size();
        skipSeparator();
        return value;
    }
    const std::size_t start = pos_;
    const char* p = s_.data() + pos_;
    const char* stop = s_.data() + s_.size();
    while (p < stop && *p != ',' && *p != '\r' && *p != '\n') ++p;
    pos_ = static_cast<std::size_t>(p - s_.data());
    std::size_t end = pos_;
    while (end > start && (s_[end - 1] == ' ' || s_[end - 1] == '\t')) --end;
    const std::string_view value = s_.substr(start, end - start);
    skipSeparator();
    return value;
}

} // namespace nebkaro

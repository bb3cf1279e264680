#include "core/field_reader.h"

#include "core/errors.h"

#include <algorithm>
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
        const std::size_t close = s_.find('"', start);
        const std::size_t end = close == std::string_view::npos ? s_.size() : close;
        const std::string_view value = s_.substr(start, end - start);
        // Line breaks are rare inside a value: memchr finds them without a byte-wise count.
        for (const char *p = value.data(), *stop = p + value.size();
             (p = static_cast<const char*>(
                  std::memchr(p, '\n', static_cast<std::size_t>(stop - p))));
             ++p)
            ++line_;
        pos_ = close == std::string_view::npos ? s_.size() : close + 1;
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

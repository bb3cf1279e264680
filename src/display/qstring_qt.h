#pragma once
// Text from the logic as Qt text.
#include <QString>

#include <string>
#include <string_view>

namespace nebkaro {

// The logic's text is UTF-8.
inline QString qs(const std::string& s) {
    return QString::fromStdString(s);
}

// The command tables' names, tips and key sequences are ASCII.
inline QString latin1(std::string_view s) {
    return QString::fromLatin1(s.data(), static_cast<qsizetype>(s.size()));
}

} // namespace nebkaro

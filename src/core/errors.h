#pragma once
// Run-time errors carry the number and description the user has always seen for them, so a
// failure inside a command can be reported the same way wherever it is caught.
#include <stdexcept>
#include <string>

namespace nebkaro {

enum ErrorNumber : int {
    InvalidArgument = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    InputPastEnd = 62,
    DiskFull = 61,
    PathFileAccess = 75,
    PathNotFound = 76,
};

std::string errorDescription(int number);

class RunError : public std::runtime_error {
public:
    explicit RunError(int number, std::string description = {});
    int number() const { return number_; }
    const std::string& description() const { return description_; }
    // "<number>  <description>", the form in which errors are shown.
    std::string report() const;

private:
    int number_;
    std::string description_;
};

// A file the program cannot work without (a sign list or a transliteration table) could not
// be read: the program shows the message and ends.
class ProgramFileError : public std::runtime_error {
public:
    // reason: why a file that is there could not be read; empty when it is missing.
    explicit ProgramFileError(std::string path, std::string reason = {});
    const std::string& path() const { return path_; }
    // The message shown before the program ends.
    std::string message() const;
    // The same without the ending, for a report that goes on.
    std::string problem() const;

private:
    std::string path_;
    std::string reason_;
};

} // namespace nebkaro

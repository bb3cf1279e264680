#include "core/errors.h"

namespace nebkaro {

std::string errorDescription(int number) {
    switch (number) {
    case InvalidArgument:
        return "Invalid procedure call or argument";
    case Overflow:
        return "Overflow";
    case SubscriptOutOfRange:
        return "Subscript out of range";
    case TypeMismatch:
        return "Type mismatch";
    case FileNotFound:
        return "File not found";
    case DiskFull:
        return "Disk full";
    case InputPastEnd:
        return "Input past end of file";
    case PathFileAccess:
        return "Path/File access error";
    case PathNotFound:
        return "Path not found";
    default:
        return "Application-defined or object-defined error";
    }
}

RunError::RunError(int number, std::string description)
    : std::runtime_error(description.empty() ? errorDescription(number) : description),
      number_(number), description_(description.empty() ? errorDescription(number) : description) {}

std::string RunError::report() const {
    return std::to_string(number_) + "  " + description_;
}

ProgramFileError::ProgramFileError(std::string path)
    : std::runtime_error("program file missing: " + path), path_(std::move(path)) {}

std::string ProgramFileError::message() const {
    return "The file: '" + path_ + "' was not found. The program will stop";
}

} // namespace nebkaro

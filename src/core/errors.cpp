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

ProgramFileError::ProgramFileError(std::string path, std::string reason)
    : std::runtime_error("program file missing: " + path), path_(std::move(path)),
      reason_(std::move(reason)) {}

std::string ProgramFileError::problem() const {
    if (reason_.empty()) return "The file: '" + path_ + "' was not found";
    return "The file: '" + path_ + "' could not be read (" + reason_ + ")";
}

std::string ProgramFileError::message() const {
    return problem() + ". The program will stop";
}

} // namespace nebkaro

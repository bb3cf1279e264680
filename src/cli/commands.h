#pragma once
namespace nebkaro::cli {
// Exit status: 0 success, 1 nothing found, 2 bad input or a failed operation.
int run(int argc, char** argv);
// The arguments run() was given, argv[0] included, ending in a null pointer.
char** commandLine();
} // namespace nebkaro::cli

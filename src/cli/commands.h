#pragma once
namespace nebkaro::cli {
// Exit status: 0 success, 1 nothing found, 2 bad input or a failed operation.
int run(int argc, char** argv);
} // namespace nebkaro::cli

// nebkaro-cli: the dictionary from the command line, through the same logic as the windows.
#include "cli/commands.h"

int main(int argc, char** argv) {
    return nebkaro::cli::run(argc, argv);
}

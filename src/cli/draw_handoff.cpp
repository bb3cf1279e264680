// The subcommands that draw pictures need Qt, which takes longer to load than most commands
// take to run. They live in a helper executable, nebkaro-cli-draw; this tool hands such a
// command over to it whole, so the user sees one tool with one set of outputs.
#include "cli/commands.h"
#include "cli/subcommands.h"
#include "core/folders.h"

#include <cerrno>
#include <cstring>
#include <iostream>
#include <string>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace nebkaro::cli {

namespace {

fs::path drawingTool() {
    const fs::path here = executableFolder();
    // Beside the tool in a build folder; in the library folder once installed.
    for (const fs::path& p :
         {here / "nebkaro-cli-draw",
          (here / NEBKARO_DRAW_FROM_BIN / "nebkaro-cli-draw").lexically_normal()}) {
        std::error_code ec;
        if (fs::is_regular_file(p, ec)) return p;
    }
    return here / NEBKARO_DRAW_FROM_BIN / "nebkaro-cli-draw";
}

[[noreturn]] void handOver() {
    const fs::path tool = drawingTool();
    std::cout.flush();
    std::cerr.flush();
    char** argv = commandLine();
    execv(tool.c_str(), argv);
    throw Failure("cannot start " + tool.lexically_normal().string() +
                  " to draw: " + std::strerror(errno));
}

} // namespace

void moveToDrawingTool() {
    handOver();
}

int runRender(const fs::path&, const std::vector<std::string>&) {
    handOver();
}

// Not reached: export hands a picture format over before it loads anything.
std::string exportWithPictures(ConsoleApp&, const std::string&, const std::vector<int>&,
                               std::int64_t) {
    handOver();
}

} // namespace nebkaro::cli

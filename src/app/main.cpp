#include <iostream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "ui/desktop_program.h"

namespace {

// Without a command the desktop program starts, with the input file when one is named;
// `--screenshots DIR [FILE]` pictures its windows. Everything else is the command line, which
// needs no display.
bool StartsDesktop(const std::vector<std::string>& args, zantor::DesktopOptions& options) {
    if (args.empty()) {
        return true;
    }
    if (args[0] == "--screenshots" && (args.size() == 2 || args.size() == 3)) {
        options.screenshotDir = args[1];
        if (args.size() == 3) {
            options.inputFile = args[2];
        }
        return true;
    }
    if (args.size() == 1 && !args[0].starts_with("-") && !zantor::NamesCommand(args[0])) {
        options.inputFile = args[0];
        return true;
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + (argc > 0 ? 1 : 0), argv + argc);
    zantor::DesktopOptions options;
    if (StartsDesktop(args, options)) {
        return zantor::RunDesktopProgram(argc, argv, options);
    }
    return zantor::RunCommandLine(args, std::cout, std::cerr);
}

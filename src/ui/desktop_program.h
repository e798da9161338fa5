#pragma once

// The desktop program: the application object, the program's context and printer, and the main
// window, for as long as the window is open.

#include <optional>
#include <string>

namespace zantor {

struct DesktopOptions {
    // The input file given on the command line; the stored Inputfile otherwise.
    std::optional<std::string> inputFile;
    // Writes a picture of every window into this folder and ends (for people to look at).
    std::optional<std::string> screenshotDir;
};

// Runs the desktop program until its main window closes; returns the exit status.
int RunDesktopProgram(int argc, char** argv, const DesktopOptions& options);

}  // namespace zantor

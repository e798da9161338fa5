#pragma once

// The check a print command makes of its input file before anything else: a decal or index
// print needs a decal source, a parttype print a parttype source, judged by the file's first line.

#include <filesystem>
#include <optional>
#include <string>

#include "shell/plot_settings.h"

namespace zantor {

// The main window's message for a file the command `kind` cannot print.
std::string NotASourceMessage(PlotKind kind);

// Nothing when `file` is an existing file whose first line makes it a source for `kind`;
// otherwise the main window's message ("Inputfile unknown or not a decal-file." or
// "Inputfile unknown or not a parttype-file."). A file that cannot be read is not a source.
std::optional<std::string> InputProblem(PlotKind kind, const std::filesystem::path& file);

}  // namespace zantor

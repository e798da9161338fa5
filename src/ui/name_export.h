#pragma once

// The selection dialog's export of the selected names to a text file.

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace zantor {

// The file name the save dialog suggests for the names of `inputFile`: its name without the
// folder, in upper case, with the four characters from the first "." taken out (a dot and a
// three-letter extension) and ".txt" put on: c:\lib\Smd.d -> SMD.txt, lib.data -> LIBA.txt.
std::string SuggestedExportName(const std::string& inputFile);

// "Export 12 names?"
std::string ExportQuestion(std::size_t count);

// Writes `names` to `file`, one per line, each ended by CR LF, nothing else; an existing file is
// replaced. An IoError naming the file when it cannot be written.
void WriteNameFile(const std::filesystem::path& file, const std::vector<std::string>& names);

}  // namespace zantor

#pragma once

// The main window's rules about the input file: which print commands a typed name allows, and
// the list of recently used names.

#include <string>
#include <vector>

namespace zantor {

struct PrintButtons {
    bool decal = false;
    bool index = false;
    bool parttype = false;

    friend bool operator==(const PrintButtons&, const PrintButtons&) = default;
};

// The print buttons a name in the input-file box enables: none unless it names an existing file
// and holds no "*"; then decal and index for a decal name (".d", ".asc"), parttype for a parttype
// name (".p", ".asc"), the endings judged on the trimmed text.
PrintButtons EnabledPrintButtons(const std::string& text);

// The recent-file list holds at most this many names, newest first.
inline constexpr std::size_t kMaxRecentFiles = 9;

// Puts `name` first in `recent` unless it is empty or listed already (a listed name keeps its
// place); the oldest names go so that at most kMaxRecentFiles remain.
void AddToRecentFiles(std::vector<std::string>& recent, const std::string& name);

}  // namespace zantor

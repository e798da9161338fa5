#pragma once

// The catalogue: the names of the items of a file that can be printed, as the selection dialog
// offers them. Decals for the decal and index jobs, parttypes for the parttype job; a PCB ASCII
// file offers only the decals its placed parts use. The file is read once, line by line, each
// time the catalogue is made, with the dialog's filters applied while reading.

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_messages.h"
#include "shell/plot_settings.h"

namespace zantor {

// The parttype contents filter, by its index: the texts of the selection dialog's choice.
inline constexpr std::array<std::string_view, 7> kPartContentsFilters = {
    "All parts",
    "With pinnames",
    "With attributes",
    "With pinnames and attributes",
    "With pinnames or attributes",
    "With several decals",
    "Where name <> decalname",
};

// The alternate decals one parttype of a PCB file can name.
inline constexpr std::size_t kMaxPartTypeDecals = 16;

// The selection dialog's filters as they stand when the catalogue is made.
struct CatalogueFilters {
    // Names must contain this text (trimmed; empty = no search). A plain, case-sensitive test:
    // the dialog's search box gives upper case only.
    std::string searchText;
    // Parttypes only: an index into kPartContentsFilters; any other index lists every parttype.
    int contentsFilter = 0;
    // Decals only: the terminal count a decal must have, as typed (trimmed; "" and "0" list
    // every decal). Text that is not a whole number is a ConversionError.
    std::string pinCountText;
};

struct CatalogueEntry {
    std::string name;  // at most kMaxDecalNameLength (40) characters
    bool selected = false;
};

struct Catalogue {
    // In file order, or sorted by name when `sorted`. Every entry is selected when the catalogue
    // is made, as the dialog selects all on each reload.
    std::vector<CatalogueEntry> entries;
    bool sorted = false;  // a PCB ASCII file's names are sorted
    // "Decals in file: " or "Parttypes listed: " and the count right-aligned in 5 characters.
    std::string statusText;
};

// Reads `file` and makes its catalogue for the job `kind`. A parttype header without a logic
// family (or nothing after it) is reported as "Header-error in ASCII-file: " + name through
// `messages` and left out; listing goes on. Errors that end the listing are thrown: IoError when
// the file cannot be read, ConversionError for a count that is not a number, RangeError for a
// parttype of a PCB file with more than 16 decals, a part's alternate decal index above 15, a part
// count beyond 16 bits or more than 65535 entries.
Catalogue LoadPartnames(const std::filesystem::path& file, PlotKind kind,
                        const CatalogueFilters& filters, UserMessages& messages);

// The status text for `count` entries: "Decals in file:    12", "Parttypes listed:     3".
std::string CatalogueStatusText(PlotKind kind, std::size_t count);

}  // namespace zantor

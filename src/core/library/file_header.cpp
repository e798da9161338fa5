#include "library/file_header.h"

namespace zantor {
namespace {

constexpr std::string_view kPcbPrefix = "!PADS-POWERPCB";
constexpr std::string_view kDecalLibraryPrefix = "*PADS-LIBRARY-PCB-DECALS";
constexpr std::string_view kParttypeLibraryPrefix = "*PADS-LIBRARY-PART-TYPES";

int FileVersion(std::string_view line) {
    int version = 5;
    if (line.starts_with("*PADS-LIBRARY-PCB-DECALS-V4") || line.starts_with("!PADS-POWERPCB-V4")) {
        version = 4;
    }
    // Tested last so that it decides when both match.
    if (line.starts_with("*PADS-LIBRARY-PCB-DECALS-V3") || line.starts_with("!PADS-POWERPCB-V3")) {
        version = 3;
    }
    return version;
}

FileProduct ProductOf(std::string_view line) {
    if (line.starts_with(kPcbPrefix)) {
        return FileProduct::PcbDatabase;
    }
    if (line.starts_with(kDecalLibraryPrefix)) {
        return FileProduct::DecalLibrary;
    }
    if (line.starts_with(kParttypeLibraryPrefix)) {
        return FileProduct::ParttypeLibrary;
    }
    return FileProduct::Unknown;
}

// `text` up to the first of the characters `stops` (or all of it).
std::string_view Until(std::string_view text, std::string_view stops) {
    return text.substr(0, text.find_first_of(stops));
}

// "*PADS-LIBRARY-PCB-DECALS-V9*" -> "V9"; "!PADS-POWERPCB-V10.0-BASIC-250L! ..." -> "V10.0" and
// "BASIC".
void ReadVersionWords(std::string_view line, FileHeader& header) {
    std::string_view prefix;
    switch (header.product) {
        case FileProduct::PcbDatabase:
            prefix = kPcbPrefix;
            break;
        case FileProduct::DecalLibrary:
            prefix = kDecalLibraryPrefix;
            break;
        case FileProduct::ParttypeLibrary:
            prefix = kParttypeLibraryPrefix;
            break;
        case FileProduct::Unknown:
            return;
    }
    std::string_view rest = line.substr(prefix.size());
    if (!rest.starts_with('-')) {
        return;
    }
    rest.remove_prefix(1);
    if (header.product != FileProduct::PcbDatabase) {
        header.versionText = Until(rest, "* ");
        return;
    }
    std::string_view words = Until(rest, "! ");
    header.versionText = Until(words, "-");
    if (header.versionText.size() < words.size()) {
        header.unitsWord = Until(words.substr(header.versionText.size() + 1), "-");
    }
}

}  // namespace

FileHeader AnalyseHeader(std::string_view firstLine) {
    FileHeader header;
    header.line = firstLine;
    header.version = FileVersion(firstLine);
    header.pcbFile = firstLine.starts_with(kPcbPrefix);
    header.basicUnits = header.pcbFile && firstLine.find("BASIC") != std::string_view::npos;
    header.product = ProductOf(firstLine);
    ReadVersionWords(firstLine, header);
    header.dialect = DialectFor(header.version, header.pcbFile);
    return header;
}

}  // namespace zantor

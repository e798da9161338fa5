#include "library/file_header.h"

#include <array>
#include <cctype>

namespace zantor {
namespace {

constexpr std::string_view kPowerPcbPrefix = "!PADS-POWERPCB";
constexpr std::string_view kPadsPrefix = "!PADS-";
constexpr std::string_view kDecalLibraryPrefix = "*PADS-LIBRARY-PCB-DECALS";
constexpr std::string_view kParttypeLibraryPrefix = "*PADS-LIBRARY-PART-TYPES";
// The product names that PCB databases put between "!PADS-" and the version.
constexpr std::array<std::string_view, 4> kPcbProducts = {"POWERPCB", "LAYOUT", "PADS-LAYOUT",
                                                          "PADS"};

// `text` up to the first of the characters `stops` (or all of it).
std::string_view Until(std::string_view text, std::string_view stops) {
    return text.substr(0, text.find_first_of(stops));
}

bool IsVersionWord(std::string_view word) {
    return word.size() >= 2 && word[0] == 'V' &&
           std::isdigit(static_cast<unsigned char>(word[1])) != 0;
}

// The words of a PCB header between "!PADS-" and the closing "!" (or the end of a cut line):
// product words, the version word, the units word, then mode and encoding words.
struct PcbHeaderWords {
    std::string_view product;
    std::string_view version;
    std::string_view units;
};

PcbHeaderWords SplitPcbHeader(std::string_view line) {
    PcbHeaderWords words;
    std::string_view rest = Until(line.substr(kPadsPrefix.size()), "! ");
    std::size_t start = 0;
    while (start <= rest.size()) {
        const std::size_t end = std::min(rest.find('-', start), rest.size());
        const std::string_view word = rest.substr(start, end - start);
        if (IsVersionWord(word)) {
            words.product = rest.substr(0, start == 0 ? 0 : start - 1);
            words.version = word;
            if (end < rest.size()) {
                words.units = Until(rest.substr(end + 1), "-");
            }
            return words;
        }
        start = end + 1;
    }
    words.product = rest;
    return words;
}

bool IsPcbProduct(std::string_view product) {
    for (std::string_view known : kPcbProducts) {
        if (product == known) {
            return true;
        }
    }
    return false;
}

void ReadLibraryVersion(std::string_view line, std::string_view prefix, FileHeader& header) {
    std::string_view rest = line.substr(prefix.size());
    if (rest.starts_with('-')) {
        header.versionText = Until(rest.substr(1), "* ");
    }
}

void ReadProductAndVersion(std::string_view line, FileHeader& header) {
    if (line.starts_with(kDecalLibraryPrefix)) {
        header.product = FileProduct::DecalLibrary;
        ReadLibraryVersion(line, kDecalLibraryPrefix, header);
    } else if (line.starts_with(kParttypeLibraryPrefix)) {
        header.product = FileProduct::ParttypeLibrary;
        ReadLibraryVersion(line, kParttypeLibraryPrefix, header);
    } else if (line.starts_with(kPadsPrefix)) {
        const PcbHeaderWords words = SplitPcbHeader(line);
        // "!PADS-POWERPCB" is a PCB database however the rest of the line reads.
        if (line.starts_with(kPowerPcbPrefix) || IsPcbProduct(words.product)) {
            header.product = FileProduct::PcbDatabase;
            header.versionText = words.version;
            header.unitsWord = words.units;
        }
    }
    header.release = ParseRelease(header.versionText);
}

}  // namespace

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

FileUnits UnitsOfWord(std::string_view word) {
    if (word == "BASIC") {
        return FileUnits::Basic;
    }
    if (word == "MILS" || word == "MIL") {
        return FileUnits::Mils;
    }
    if (word == "METRIC" || word == "MM") {
        return FileUnits::Millimetres;
    }
    if (word == "INCHES" || word == "INCH") {
        return FileUnits::Inches;
    }
    return FileUnits::Unstated;
}

FileHeader AnalyseHeader(std::string_view firstLine) {
    FileHeader header;
    header.line = firstLine;
    header.version = FileVersion(firstLine);
    ReadProductAndVersion(firstLine, header);
    header.pcbFile = header.product == FileProduct::PcbDatabase;
    header.units = header.pcbFile ? UnitsOfWord(header.unitsWord) : FileUnits::Unstated;
    const bool saysBasic = firstLine.find("BASIC") != std::string_view::npos;
    if (header.version == 5 && header.units != FileUnits::Unstated) {
        header.basicUnits = header.units == FileUnits::Basic;
    } else {
        header.basicUnits = header.pcbFile && saysBasic;
    }
    header.dialect = DialectFor(header.product, header.version, header.release);
    return header;
}

}  // namespace zantor

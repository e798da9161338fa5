#pragma once

// What the first line of a PADS ASCII file tells a reader: the kind of file, its format version
// and release, and its units. The format dialect derived from it decides where the fields of a
// record stand.

#include <string>
#include <string_view>

#include "library/file_dialect.h"

namespace zantor {

// The units word of a PCB file's header. Libraries have none: each decal has its unit letter.
enum class FileUnits { Unstated, Basic, Mils, Millimetres, Inches };

struct FileHeader {
    std::string line;  // the first line as read (line end removed)
    int version = 5;   // 3, 4, or 5 for anything newer or unknown
    // A PCB database: the line begins with "!PADS-POWERPCB", or with "!PADS-" and one of the
    // product names LAYOUT, PADS-LAYOUT or PADS before the version ("!PADS-LAYOUT-V2024.2-MM!").
    bool pcbFile = false;
    // A PCB file in BASIC units: by its units word, or (versions 3 and 4, and headers whose
    // units word is not known) when the line contains "BASIC" anywhere.
    bool basicUnits = false;
    FileProduct product = FileProduct::Unknown;
    // The version as written ("V9.5", "V2005.0", "V9") and its numbers.
    std::string versionText;
    FormatRelease release;
    // The units word of a PCB file as written ("BASIC", "METRIC", "MILS"; words after it such as
    // "-250L" are not part of it) and what it means.
    std::string unitsWord;
    FileUnits units = FileUnits::Unstated;
    // Where the fields of a decal record stand in this file.
    FileDialect dialect = DialectFor(5, false);
};

// Analyses a first line (header analysis of the decal reader). A line cut short still gives what
// it holds.
FileHeader AnalyseHeader(std::string_view firstLine);

// The 3, 4 or 5 of a first line: 4 for a V4 decal library or PCB header, 3 for a V3 one (tested
// last, and deciding), 5 for everything else.
int FileVersion(std::string_view firstLine);

// The meaning of a PCB file's units word: "BASIC", "MILS" or "MIL", "METRIC" or "MM", "INCHES"
// or "INCH"; Unstated for anything else.
FileUnits UnitsOfWord(std::string_view word);

}  // namespace zantor

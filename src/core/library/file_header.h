#pragma once

// What the first line of a PADS ASCII file tells a reader: the kind of file, its format version
// and its units. The format dialect derived from it decides where the fields of a record stand.

#include <string>
#include <string_view>

#include "library/file_dialect.h"

namespace zantor {

enum class FileProduct { DecalLibrary, ParttypeLibrary, PcbDatabase, Unknown };

struct FileHeader {
    std::string line;         // the first line as read (line end removed)
    int version = 5;          // 3, 4, or 5 for anything newer or unknown
    bool pcbFile = false;     // the line begins with "!PADS-POWERPCB"
    bool basicUnits = false;  // a PCB file whose header contains "BASIC"
    FileProduct product = FileProduct::Unknown;
    // Filled in for the newer dialects: the version as written ("V9.5", "V2005.0") and the
    // units word of a PCB file ("BASIC", "METRIC", "MILS").
    std::string versionText;
    std::string unitsWord;
    // Where the fields of a decal record stand in this file.
    FileDialect dialect = DialectFor(5, false);
};

// Analyses a first line (header analysis of the decal reader).
FileHeader AnalyseHeader(std::string_view firstLine);

}  // namespace zantor

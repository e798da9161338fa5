#pragma once

// A plain-text account of a PADS file as the readers see it: its kind, version and units, and
// the name, unit letter and counts of each decal record. `zantor info` prints it; it is the first
// thing to look at when a library does not print as expected.

#include <filesystem>
#include <ostream>
#include <string>

#include "library/file_header.h"

namespace zantor {

// "decal library", "PCB ASCII file", ... for the first line of a file.
std::string DescribeKind(const FileHeader& header);

// Writes the summary of `file`. Records are read one at a time and written as they are read, so
// an error in a later record (thrown as the reader's typed error) comes after the earlier ones.
void WriteFileSummary(const std::filesystem::path& file, std::ostream& out);

}  // namespace zantor

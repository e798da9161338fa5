#pragma once

// Which kind of PADS file a file is: by its name's ending (cheap, while the user types a name)
// or by its first line (before a job reads the file).

#include <filesystem>
#include <string_view>

namespace zantor {

// What a file can be printed as. A PCB ASCII file is both a decal and a parttype source.
struct InputKind {
    bool decalSource = false;
    bool parttypeSource = false;

    bool IsUnknown() const { return !decalSource && !parttypeSource; }
    bool operator==(const InputKind&) const = default;
};

// 4 when the line begins with a V4 library or PCB header, 3 for a V3 one (tested after V4, and
// deciding), otherwise 5: anything newer or without a header.
int LibraryVersion(std::string_view firstLine);

// Whether a first line names a PADS library or PCB file: it contains one of the PADS header texts
// anywhere, or, for a library without a header line, its word number `unitField` (1-based) is a
// unit letter "I" or "M". An empty line is not.
bool FirstLineIsLibrary(std::string_view firstLine, int unitField);

// FirstLineIsLibrary on the first line of `fileName`. A file that cannot be opened is an IoError
// naming the file and the reason.
bool IsLibraryFile(const std::filesystem::path& fileName, int unitField);
// A decal library (headerless ones start with "name unit ..."), or a PCB file.
bool IsDecalFile(const std::filesystem::path& fileName);
// A parttype library (headerless ones start with "name decal unit ..."), or a PCB file.
bool IsParttypeFile(const std::filesystem::path& fileName);

// What a first line says the file holds: a decal library header (or a headerless one whose
// first line is "name unit ..."), a parttype library header (or "name decal unit ..."), or a PCB
// header, which is both. The header texts count anywhere in the line, so an indented header
// still names its kind. Schematic libraries and netlists ("*PADS-PCB*") are neither.
InputKind InputKindOfFirstLine(std::string_view firstLine);
// InputKindOfFirstLine on the first line of `fileName`; IoError when it cannot be opened.
InputKind InputKindOfFile(const std::filesystem::path& fileName);

// The name ends with ".D" or ".ASC", in any case. Only the first occurrence of the ending counts,
// so "C:\LIB.DIR\X.D" fails: that is how the main window has always judged names.
bool HasDecalName(std::string_view fileName);
// The same with ".P" for ".D".
bool HasParttypeName(std::string_view fileName);

// The kind by the name tests above.
InputKind InputKindOfName(std::string_view fileName);

}  // namespace zantor

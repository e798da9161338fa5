#include "shell/identification.h"

#include <array>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <string>

#include "common/errors.h"

namespace zantor {
namespace {

// Only the start of a file is read; a header line is far shorter. The cap keeps a file without
// line ends from being read whole.
constexpr std::size_t kMaxFirstLine = 1 << 20;

std::string ReadFirstLine(const std::filesystem::path& fileName) {
    std::error_code ignored;
    if (std::filesystem::is_directory(fileName, ignored)) {
        throw IoError("cannot open the file: it is a folder, not a file", fileName.string());
    }
    errno = 0;
    std::ifstream in(fileName, std::ios::binary);
    if (!in.is_open()) {
        int reason = errno != 0 ? errno : ENOENT;
        throw IoError(std::string("cannot open the file: ") + std::strerror(reason),
                      fileName.string());
    }
    std::string line;
    char c = 0;
    // The line ends at LF, CRLF or a CR alone.
    while (line.size() < kMaxFirstLine && in.get(c) && c != '\n' && c != '\r') {
        line.push_back(c);
    }
    return line;
}

// Word number `number` (1-based) of a line: leading blanks skipped, words end at a blank.
std::string_view WordNumber(std::string_view line, int number) {
    std::string_view word;
    for (int i = 0; i < number; ++i) {
        std::size_t start = line.find_first_not_of(' ');
        line.remove_prefix(start == std::string_view::npos ? line.size() : start);
        std::size_t end = line.find(' ');
        word = line.substr(0, end);
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    }
    return word;
}

bool StartsWithAny(std::string_view line, const std::array<std::string_view, 3>& texts) {
    for (std::string_view text : texts) {
        if (line.starts_with(text)) {
            return true;
        }
    }
    return false;
}

// The first occurrence of `ending` in the upper-cased name stands at its end.
bool EndsWithFirst(std::string_view fileName, std::string_view ending) {
    std::string upper(fileName);
    for (char& c : upper) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    std::size_t at = upper.find(ending);
    return at != std::string::npos && at + ending.size() == upper.size();
}

}  // namespace

int LibraryVersion(std::string_view firstLine) {
    int version = 5;
    if (StartsWithAny(firstLine, {"*PADS-LIBRARY-PCB-DECALS-V4*", "*PADS-LIBRARY-PART-TYPES-V4*",
                                  "!PADS-POWERPCB-V4"})) {
        version = 4;
    }
    if (StartsWithAny(firstLine, {"*PADS-LIBRARY-PCB-DECALS-V3*", "*PADS-LIBRARY-PART-TYPES-V3*",
                                  "!PADS-POWERPCB-V3"})) {
        version = 3;
    }
    return version;
}

bool FirstLineIsLibrary(std::string_view firstLine, int unitField) {
    if (firstLine.empty()) {
        return false;
    }
    // Newer PADS Layout databases name their product "!PADS-LAYOUT" instead of
    // "!PADS-POWERPCB"; they hold the same decal and parttype sections.
    for (std::string_view header : {"!PADS-POWERPCB", "!PADS-LAYOUT", "*PADS-LIBRARY-PART-TYPES",
                                    "*PADS-LIBRARY-PCB-DECALS"}) {
        if (firstLine.find(header) != std::string_view::npos) {
            return true;
        }
    }
    if (unitField < 1) {
        return false;
    }
    std::string_view unit = WordNumber(firstLine, unitField);
    return unit == "I" || unit == "M";
}

bool IsLibraryFile(const std::filesystem::path& fileName, int unitField) {
    return FirstLineIsLibrary(ReadFirstLine(fileName), unitField);
}

bool IsDecalFile(const std::filesystem::path& fileName) {
    return IsLibraryFile(fileName, 2);
}

bool IsParttypeFile(const std::filesystem::path& fileName) {
    return IsLibraryFile(fileName, 3);
}

InputKind InputKindOfFirstLine(std::string_view firstLine) {
    const auto contains = [firstLine](std::string_view text) {
        return firstLine.find(text) != std::string_view::npos;
    };
    if (contains("!PADS-POWERPCB") || contains("!PADS-LAYOUT")) {
        return {true, true};
    }
    if (contains("*PADS-LIBRARY-PCB-DECALS")) {
        return {true, false};
    }
    if (contains("*PADS-LIBRARY-PART-TYPES") || contains("*PADS-")) {
        return {false, contains("*PADS-LIBRARY-PART-TYPES")};
    }
    return {FirstLineIsLibrary(firstLine, 2), FirstLineIsLibrary(firstLine, 3)};
}

InputKind InputKindOfFile(const std::filesystem::path& fileName) {
    return InputKindOfFirstLine(ReadFirstLine(fileName));
}

bool HasDecalName(std::string_view fileName) {
    return EndsWithFirst(fileName, ".D") || EndsWithFirst(fileName, ".ASC");
}

bool HasParttypeName(std::string_view fileName) {
    return EndsWithFirst(fileName, ".P") || EndsWithFirst(fileName, ".ASC");
}

InputKind InputKindOfName(std::string_view fileName) {
    return {HasDecalName(fileName), HasParttypeName(fileName)};
}

}  // namespace zantor

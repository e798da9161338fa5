// Identification of an input file and analysis of its header line: by name, by first line and
// by the file itself.

#include <cstddef>
#include <cstdint>

#include "common/errors.h"
#include "fuzz_input.h"
#include "library/file_header.h"
#include "shell/identification.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zantor;
    const std::string_view text = fuzz::Text(data, size);
    const std::string_view line = fuzz::FirstLine(text);
    const FileHeader header = AnalyseHeader(line);
    (void)header;
    (void)FileVersion(line);
    (void)LibraryVersion(line);
    (void)UnitsOfWord(line);
    for (int field = 0; field <= 4; ++field) {
        (void)FirstLineIsLibrary(line, field);
    }
    (void)InputKindOfName(text);
    const auto file = fuzz::WriteInput(data, size);
    try {
        (void)IsDecalFile(file);
        (void)IsParttypeFile(file);
    } catch (const Error&) {
    }
    return 0;
}

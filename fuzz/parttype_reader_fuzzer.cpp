// The parttype reader: every record of a parttype library or of a PCB file's parttype section,
// then the one-pass index of their positions and a read from each.

#include <cstddef>
#include <cstdint>

#include "common/errors.h"
#include "fuzz_input.h"
#include "library/parttype.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zantor;
    const auto file = fuzz::WriteInput(data, size);
    try {
        ParttypeReader reader(file);
        Parttype parttype;
        for (int n = 0; n < 256 && reader.Next(parttype); ++n) {
        }
    } catch (const Error&) {
    }
    try {
        ParttypeReader reader(file);
        const auto positions = reader.LocateAll();
        for (const auto& [name, position] : positions) {
            reader.SeekTo(position);
            Parttype parttype;
            (void)reader.Next(parttype);
        }
    } catch (const Error&) {
    }
    return 0;
}

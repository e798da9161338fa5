// The attribute scan of decal and parttype files, as the setup dialog's "Scan file" runs it: the
// first byte chooses decals or parttypes.

#include <cstddef>
#include <cstdint>

#include "common/errors.h"
#include "fuzz_input.h"
#include "library/attribute_scan.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zantor;
    fuzz::Options options(data, size);
    const ScanKind kind = options.Flag() ? ScanKind::Parttypes : ScanKind::Decals;
    const auto file = fuzz::WriteInput(data, size);
    AttributeList attributes;
    ScanDisplay display;
    try {
        ScanAttributes(file, kind, attributes, display);
    } catch (const Error&) {
    }
    return 0;
}

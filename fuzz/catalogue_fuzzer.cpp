// The catalogue of a file for every print kind, with the selection dialog's filters: leading
// option bytes choose the kind, the contents filter, the search text and the pin count.

#include <cstddef>
#include <cstdint>
#include <string>

#include "common/errors.h"
#include "fuzz_input.h"
#include "library/catalogue.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zantor;
    fuzz::Options options(data, size);
    const PlotKind kind = static_cast<PlotKind>(options.Byte() % 3);
    CatalogueFilters filters;
    filters.contentsFilter = options.Byte() % 9 - 1;
    const std::uint8_t search = options.Byte();
    if ((search & 3) == 1) {
        filters.searchText = "A";
    } else if ((search & 3) == 2) {
        filters.searchText = std::string(1, static_cast<char>(search >> 2));
    }
    const std::uint8_t pins = options.Byte();
    if ((pins & 3) == 1) {
        filters.pinCountText = std::to_string(pins >> 2);
    } else if ((pins & 3) == 2) {
        filters.pinCountText = " x";
    }
    const auto file = fuzz::WriteInput(data, size);
    fuzz::SilentMessages messages;
    try {
        const Catalogue catalogue = LoadPartnames(file, kind, filters, messages);
        (void)catalogue;
    } catch (const Error&) {
    }
    return 0;
}

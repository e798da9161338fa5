// The decal record reader and model: every record of the file in turn, framed, located and
// parsed once into the typed decal, which is measured as the pages measure it; then a search by
// name from the start and from the one-pass index, as the print job goes to the decals of a PCB
// file.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "common/errors.h"
#include "fuzz_input.h"
#include "library/decal.h"
#include "library/decal_reader.h"
#include "plot/decal_body.h"

namespace {

// The bundled stroke font, which measures the decals' texts.
const zantor::StrokeFont& Font() {
    static const zantor::StrokeFont font = [] {
        zantor::StrokeFont loaded;
        zantor::fuzz::SilentMessages messages;
        if (!loaded.Load(ZANTOR_FUZZ_FONT, messages)) {
            std::abort();
        }
        return loaded;
    }();
    return font;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zantor;
    const auto file = fuzz::WriteInput(data, size);
    std::vector<std::string> names;
    try {
        DecalReader reader(file);
        DecalRecord record;
        for (int n = 0; n < 64 && reader.NextRecord(record); ++n) {
            names.push_back(record.name);
            try {
                const Decal decal = ParseDecal(record);
                (void)ExtentsOf(decal, Font());
                (void)LibraryUnitsOf(decal);
                (void)AttributeValue(decal.attributes, "Geometry.Height");
            } catch (const Error&) {
                // A record the model refuses; the next one is read all the same.
            }
        }
    } catch (const Error&) {
    }
    names.push_back("NOSUCH");
    try {
        DecalReader reader(file);
        for (const std::string& name : names) {
            if (reader.FindDecalFromStart(name)) {
                DecalRecord record;
                reader.ReadRecord(record);
            }
        }
        reader.RestartAtDecals();
        const DecalPositions positions = reader.LocateDecals(names);
        for (const auto& [name, position] : positions) {
            if (reader.FindDecalAt(position)) {
                DecalRecord record;
                reader.ReadRecord(record);
            }
        }
    } catch (const Error&) {
    }
    return 0;
}

#include "jobs/decal_source.h"

#include <vector>

#include "library/words.h"

namespace zantor {

std::string WantedDecalName(std::string_view selectedName) {
    return std::string(CutTo(TrimBlanks(selectedName), kMaxDecalNameLength));
}

DecalSource::DecalSource(const std::filesystem::path& file, std::span<const std::string> selection)
    : reader_(file) {
    if (!reader_.Header().pcbFile) {
        return;
    }
    std::vector<std::string> names;
    names.reserve(selection.size());
    for (const std::string& name : selection) {
        names.push_back(WantedDecalName(name));
    }
    reader_.RestartAtDecals();
    positions_ = reader_.LocateDecals(names);
}

bool DecalSource::Read(std::string_view name, DecalRecord& record) {
    const std::string wanted = WantedDecalName(name);
    bool found = false;
    if (reader_.Header().pcbFile) {
        const auto at = positions_.find(wanted);
        found = at != positions_.end() && reader_.FindDecalAt(at->second);
    } else {
        found = reader_.FindDecal(wanted);
    }
    if (found) {
        reader_.ReadRecord(record);
    }
    return found;
}

}  // namespace zantor

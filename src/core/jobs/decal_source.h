#pragma once

// The selected decals of a print job, found in its input file one after the other in the order
// of the selection. A library is searched forward from where the last decal was found, so its
// names must come in file order (the catalogue lists them so). Every search in a PCB file starts
// at the file's decals; their places are looked up once for the whole selection, in one pass over
// the file, and each decal is then read from its place, which finds exactly what a search from
// the decals' start would.

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "library/decal_reader.h"
#include "library/decal_record.h"

namespace zantor {

// A selected name as a print job looks for it: trimmed, cut to kMaxDecalNameLength.
std::string WantedDecalName(std::string_view selectedName);

class DecalSource {
  public:
    // Opens `file` (IoError when it cannot be) and, for a PCB file, places the decals of
    // `selection`.
    DecalSource(const std::filesystem::path& file, std::span<const std::string> selection);

    const FileHeader& Header() const { return reader_.Header(); }

    // Finds the decal of the selected name `name` and reads its record; false when it is not
    // found. Errors of the record throw as DecalReader::ReadRecord does.
    bool Read(std::string_view name, DecalRecord& record);

  private:
    DecalReader reader_;
    DecalPositions positions_;
};

}  // namespace zantor

#pragma once

// The decal library list: the decal library files, in search order, in which the parttype run
// looks for the decals its parttypes name. The settings keep it in the subkey "Decal_LibList" of
// the program's key as "File0", "File1", ... (numbered from 0).

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "shell/settings_store.h"

namespace zantor {

inline constexpr std::string_view kDecalLibListSection = "Decal_LibList";
// A path read back longer than this is cut.
inline constexpr std::size_t kLibraryPathCapacity = 100;

using DecalLibList = std::vector<std::string>;

// "File0", "File1", ... up to the first empty or missing one.
DecalLibList LoadDecalLibList(const SettingsStore& store);

// Replaces the stored list as a whole (entries removed from the list leave the store too), then
// writes the store out.
void SaveDecalLibList(const DecalLibList& libraries, SettingsStore& store);

// Appends `file` when it is not yet in the list (exact comparison) and is a decal library or PCB
// file (IsDecalFile); anything else is refused without a word. True when it was appended.
bool AddDecalLibrary(DecalLibList& libraries, const std::filesystem::path& file);

}  // namespace zantor

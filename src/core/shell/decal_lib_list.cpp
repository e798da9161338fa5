#include "shell/decal_lib_list.h"

#include <algorithm>

#include "common/errors.h"
#include "shell/identification.h"
#include "shell/plot_settings.h"

namespace zantor {
namespace {

std::string FileValue(std::size_t position) {
    return "File" + std::to_string(position);
}

}  // namespace

DecalLibList LoadDecalLibList(const SettingsStore& store) {
    DecalLibList libraries;
    for (std::size_t n = 0;; ++n) {
        std::string file = store.ReadString(kDecalLibListSection, FileValue(n), "");
        if (file.empty()) {
            return libraries;
        }
        libraries.push_back(CutToCapacity(file, kLibraryPathCapacity));
    }
}

void SaveDecalLibList(const DecalLibList& libraries, SettingsStore& store) {
    store.RemoveSection(kDecalLibListSection);
    for (std::size_t n = 0; n < libraries.size(); ++n) {
        store.WriteString(kDecalLibListSection, FileValue(n), libraries[n]);
    }
    store.Sync();
}

bool AddDecalLibrary(DecalLibList& libraries, const std::filesystem::path& file) {
    const std::string path = file.string();
    if (std::find(libraries.begin(), libraries.end(), path) != libraries.end()) {
        return false;
    }
    try {
        if (!IsDecalFile(file)) {
            return false;
        }
    } catch (const IoError&) {
        return false;  // a file that cannot be read is no library either
    }
    libraries.push_back(path);
    return true;
}

}  // namespace zantor

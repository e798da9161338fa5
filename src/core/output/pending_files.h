#pragma once

// Files of one document written under temporary names next to their final names and put in
// place only when the whole document has been written, so that a job that fails or is aborted
// never leaves a half-written file, least of all over one that was there before. A run that is
// interrupted by a signal removes them too (output/interrupt_cleanup.h).

#include <filesystem>
#include <random>
#include <vector>

namespace zantor {

class PendingFiles {
  public:
    PendingFiles() = default;
    ~PendingFiles();
    PendingFiles(const PendingFiles&) = delete;
    PendingFiles& operator=(const PendingFiles&) = delete;

    // A new empty file with a unique name in the folder of `finalPath`, to be written and later
    // renamed to `finalPath`. An IoError naming `finalPath` when the folder cannot take it.
    std::filesystem::path Add(const std::filesystem::path& finalPath);
    // Renames every file to its final name, replacing what is there, and returns the final
    // names. When one cannot be renamed: an IoError naming it; the files not yet renamed are
    // removed.
    std::vector<std::filesystem::path> Commit();
    // Removes every temporary file.
    void Discard() noexcept;
    bool Empty() const { return files_.empty(); }

  private:
    struct Entry {
        std::filesystem::path temporary;
        std::filesystem::path final;
        int guard = -1;  // its slot in the clean-up of an interrupted run
    };
    std::vector<Entry> files_;
    std::mt19937_64 random_{std::random_device{}()};
};

}  // namespace zantor

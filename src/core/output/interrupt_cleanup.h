#pragma once

// Temporary files that must not outlive an interrupted run. A print that is stopped by Ctrl-C
// (SIGINT), by SIGTERM or by a closed terminal (SIGHUP) removes the temporary files of the
// documents it was writing, and then ends by that signal as it would have without them (Ctrl-C
// thus gives the shell its 130). Signals that were ignored when the first temporary file was
// guarded stay ignored. Platforms without these signals guard nothing.

#include <filesystem>

namespace zantor {

// Guards `temporary` until ReleaseTemporary(slot); the slot, or -1 when the path cannot be
// guarded (a fixed table is full, or the path is longer than it takes).
int GuardTemporary(const std::filesystem::path& temporary) noexcept;

// Ends the guard of `slot` (nothing for -1), once the file has been renamed or removed.
void ReleaseTemporary(int slot) noexcept;

}  // namespace zantor

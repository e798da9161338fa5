#pragma once

// Platform adapter: where the running program's executable lies.

#include <filesystem>

namespace zantor {

// The folder of the running executable, symbolic links resolved; empty when the platform cannot
// tell.
std::filesystem::path ExecutableDir();

}  // namespace zantor

#pragma once

// A print must never write over the file it reads: `zantor print lib.pdf --output lib.pdf`
// would replace the library with a drawing of it.

#include <filesystem>

namespace zantor {

// Whether writing `output` would replace `input`: the same file (by any spelling or link), or,
// when the output is written as numbered files (out-1.svg, out-2.svg, ...), one of those names
// in the output's folder.
bool OutputWouldReplaceInput(const std::filesystem::path& input,
                             const std::filesystem::path& output, bool numbered);

}  // namespace zantor

#include "font/font_location.h"

#include <system_error>

#include "font/executable_dir.h"

namespace zantor {
namespace {

// A Windows path read on another system has no '/' but is no bare name either.
bool HasFolder(const std::string& fontfile) {
    return fontfile.find_first_of("/\\:") != std::string::npos;
}

}  // namespace

std::vector<std::filesystem::path> BundledFontDirs() {
    const std::filesystem::path exeDir = ExecutableDir();
    if (exeDir.empty()) {
        return {};
    }
    return {exeDir.parent_path() / "share" / "zantor",
            exeDir.parent_path().parent_path() / "share" / "zantor", exeDir};
}

std::filesystem::path ResolveFontfile(const std::string& fontfile) {
    if (fontfile.empty() || HasFolder(fontfile)) {
        return std::filesystem::path(fontfile);
    }
    for (const auto& dir : BundledFontDirs()) {
        const auto candidate = dir / fontfile;
        std::error_code error;
        if (std::filesystem::is_regular_file(candidate, error)) {
            return candidate;
        }
    }
    return std::filesystem::path(fontfile);
}

}  // namespace zantor

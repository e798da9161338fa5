#include "cli/output_guard.h"

#include <string>
#include <system_error>

namespace zantor {
namespace {

bool SameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code error;
    return std::filesystem::equivalent(a, b, error) && !error;
}

// "out-12.svg" for the output "out.svg": the stem, a dash, digits and the same extension.
bool IsNumberedName(const std::filesystem::path& name, const std::filesystem::path& output) {
    const std::string stem = output.stem().string() + "-";
    const std::string text = name.stem().string();
    if (name.extension() != output.extension() || text.size() <= stem.size() ||
        text.compare(0, stem.size(), stem) != 0) {
        return false;
    }
    return text.find_first_not_of("0123456789", stem.size()) == std::string::npos;
}

}  // namespace

bool OutputWouldReplaceInput(const std::filesystem::path& input,
                             const std::filesystem::path& output, bool numbered) {
    if (SameFile(input, output)) {
        return true;
    }
    if (!numbered || !IsNumberedName(input.filename(), output)) {
        return false;
    }
    const std::filesystem::path inputFolder =
        input.has_parent_path() ? input.parent_path() : std::filesystem::path(".");
    const std::filesystem::path outputFolder =
        output.has_parent_path() ? output.parent_path() : std::filesystem::path(".");
    return SameFile(inputFolder, outputFolder);
}

}  // namespace zantor

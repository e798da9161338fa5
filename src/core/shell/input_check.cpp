#include "shell/input_check.h"

#include "common/errors.h"
#include "shell/identification.h"

namespace zantor {

std::string NotASourceMessage(PlotKind kind) {
    return kind == PlotKind::Parttype ? "Inputfile unknown or not a parttype-file."
                                      : "Inputfile unknown or not a decal-file.";
}

std::optional<std::string> InputProblem(PlotKind kind, const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        return NotASourceMessage(kind);
    }
    InputKind input;
    try {
        input = InputKindOfFile(file);
    } catch (const IoError&) {
        return NotASourceMessage(kind);
    }
    const bool fits = kind == PlotKind::Parttype ? input.parttypeSource : input.decalSource;
    if (!fits) {
        return NotASourceMessage(kind);
    }
    return std::nullopt;
}

}  // namespace zantor

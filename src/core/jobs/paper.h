#pragma once

// The paper sizes a file output can be laid out on. The system printer brings its own paper.

#include <optional>
#include <string_view>

namespace zantor {

enum class PaperSize : unsigned char { A4, A3, Letter, Legal };

struct PaperMillimetres {
    double width = 0;
    double height = 0;
};

// "A4", "A3", "Letter" or "Legal", in any letter case; nullopt for anything else.
std::optional<PaperSize> ParsePaperSize(std::string_view name);
std::string_view PaperSizeName(PaperSize paper);
// Portrait: the width is the shorter side.
PaperMillimetres PaperSizeMillimetres(PaperSize paper);

}  // namespace zantor

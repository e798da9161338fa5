#pragma once

// The paper sizes a file output can be laid out on. The system printer brings its own paper.

#include <optional>
#include <string_view>

class QPageLayout;
class QPagedPaintDevice;

namespace zantor {

// What the device says about its page, in millimetres: the printable area's size and how far
// it stands in from each edge of the sheet (the unprintable offsets).
struct PaperArea {
    double width = 0;   // printable width
    double height = 0;  // printable height
    double leftOffset = 0;
    double topOffset = 0;
    double rightOffset = 0;
    double bottomOffset = 0;
};

// The paper area of a Qt page layout as its device paints it: the painter's origin is the top
// left of the paint rectangle.
PaperArea PaperAreaOf(const QPageLayout& layout);
PaperArea PaperAreaOf(const QPagedPaintDevice& device);

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

#include "plot/fitted_text.h"

#include <algorithm>

#include "plot/system_text_width.h"

namespace zantor {
namespace {

// Text is fitted to this part of its room: screen and image devices round font sizes to whole
// pixels and hint the letters, which can make a line a few per cent wider than measured.
constexpr double kFitShare = 0.96;
constexpr double kLabelGap = 1.0;

}  // namespace

double RoomAt(const TextField& field, double x, TextAlign align) {
    double room = 0;
    switch (align) {
        case TextAlign::Left:
            room = field.right - x;
            break;
        case TextAlign::Right:
            room = x - field.left;
            break;
        case TextAlign::Centre:
            room = 2 * std::min(x - field.left, field.right - x);
            break;
    }
    return std::max(0.0, room);
}

double FittingTextSize(std::string_view text, std::string_view fontName, double size, double room) {
    if (text.empty() || !(size > 0)) {
        return size;
    }
    const double width = SystemTextWidth(text, fontName, size);
    const double usable = room * kFitShare;
    if (width <= usable) {
        return size;
    }
    return usable > 0 ? size * usable / width : 0.0;
}

void PageTextInField(PlotFrame& frame, std::string_view text, double size, double y, double x,
                     std::string_view fontName, TextAlign align, const TextField& field) {
    const double fitting = FittingTextSize(text, fontName, size, RoomAt(field, x, align));
    if (fitting > 0) {
        frame.PageText(text, fitting, y, x, fontName, align);
    }
}

double AfterLabel(std::string_view label, std::string_view fontName, double size, double x) {
    return x + SystemTextWidth(label, fontName, size) + kLabelGap;
}

}  // namespace zantor

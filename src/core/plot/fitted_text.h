#pragma once

// Page texts that stay inside their fields. A text wider than the room its field leaves it on
// the side(s) it grows to is drawn smaller, at the largest height that fits, never larger than
// asked and never moved from its anchor.

#include <string_view>

#include "plot/plot_frame.h"

namespace zantor {

// The left and right bounds of a field, page millimetres.
struct TextField {
    double left = 0;
    double right = 0;
};

// The room a text anchored at `x` by `align` has in `field`: to the right bound for a left
// anchor, to the left bound for a right anchor, twice the nearer bound for a centred one.
double RoomAt(const TextField& field, double x, TextAlign align);

// `size`, or the smaller height at which `text` in `fontName` is no wider than `room` (a little
// to spare, for devices whose hinting widens text); 0 when there is no room at all.
double FittingTextSize(std::string_view text, std::string_view fontName, double size, double room);

// PageText at the fitting size for `field` (nothing when there is no room).
void PageTextInField(PlotFrame& frame, std::string_view text, double size, double y, double x,
                     std::string_view fontName, TextAlign align, const TextField& field);

// The right end of a left-anchored label drawn at `x`, `size` mm high, and a gap of 1 mm: where
// the value beside it may begin.
double AfterLabel(std::string_view label, std::string_view fontName, double size, double x);

}  // namespace zantor

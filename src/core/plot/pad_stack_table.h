#pragma once

// The pad-stack table ("PAD-STACK DEFINITIONS") in the lower part of a decal page.

#include <string_view>

#include "library/pad_stacks.h"
#include "plot/plot_frame.h"

namespace zantor {

// The table's bottom edge in page millimetres above the frame's bottom, level with the 1:1 view
// box, clear of the 33 mm title block; the rows grow upwards from it.
inline constexpr double kPadStackTableBottom = 40.0;

// Prints the table of `stacks` when PlotPadstack is on and `lineCount` (stack headers plus stack
// lines, PadStackTableLineCount) is above 0: `lineCount` rows, at most 16, in the left half of the
// drawing (centred on its first quarter) or, with `placement` above 1, in the right half.
// `drawingWidth` is the frame width in millimetres, measures are shown in `stackUnit` (see
// UnitSuffix), texts are `fontName`. Title and headings are drawn with the Form-line pen, the rows
// with the Form-text pen; a pen that is not plotted leaves its part out.
void PrintPadStackTable(PlotFrame& frame, const PadStackList& stacks, int lineCount, int placement,
                        double drawingWidth, char stackUnit, const LibraryUnits& units,
                        std::string_view fontName);

}  // namespace zantor

#pragma once

// The frames of index and parttype pages, and one decal in a cell of an index page. An index
// page holds its decals in columns of cells above a narrow title strip; a parttype page has the
// same frame and strip without the column rules. Positions are page millimetres from the frame's
// bottom-left corner, which the frame's placement (its corner) puts on the paper.

#include <string>

#include "font/stroke_font.h"
#include "library/decal.h"
#include "plot/pieces.h"
#include "plot/plot_frame.h"

namespace zantor {

// The title strip along the bottom of an index or parttype page.
inline constexpr double kIndexStripHeight = 10.0;

struct IndexFrameInputs {
    double width = 0;       // W: frame width in mm
    double height = 0;      // H: frame height in mm
    std::string inputPath;  // the Inputfile setting: the library name is taken from it
    bool pcbInput = false;  // a PCB ASCII file: "PCB:" instead of "LIBRARY:"
    std::string date;       // the plot date as printed (TodayShortDate on a real page)
    int pageNumber = 1;
    int pageCount = 1;
};

// The height the general comment takes above the strip: GenComSize + 2.5 mm when there is a
// comment, else nothing.
double IndexCommentBand(const PlotSettings& settings);

// "2   OF  5": three blanks before "OF", two after.
std::string IndexPageText(int pageNumber, int pageCount);

// "(1 : 4)", "(2 : 1)": the scale under a decal's name in its cell.
std::string IndexScaleText(double scale);

// The frame, the strip with its labels and values, the general comment and the column rules
// (Columns - 1 of them) of one index page, with the Form-text and Form-line pens of layer 0 (a
// pen that is not plotted leaves its part out). Columns below 1 is a RangeError.
void DrawIndexFrame(PlotFrame& frame, const IndexFrameInputs& inputs);

// The same frame for a parttype page: no column rules.
void DrawParttypeFrame(PlotFrame& frame, const IndexFrameInputs& inputs);

// Where a cell stands on its page.
struct IndexCellPlace {
    int column = 1;  // from 1, left to right
    int row = 1;     // from 1, top to bottom
    double cellHeight = 0;
    double columnWidth = 0;
    double cellMargin = 0;  // m: the cells start this far below the frame's top
    double height = 0;      // H: frame height in mm
    // Where the decal's picture begins on the left (page mm): the cell's name and scale keep
    // left of it. The column's right edge, or beyond, leaves them the whole column.
    double decalLeft = 1e9;
};

struct IndexCellInputs {
    const Decal& decal;
    const StrokeFont& font;
    IndexCellPlace place;
    UnknownPieceReports& pieceReports;  // the job's: unknown kinds are reported once per job
};

// One decal in its cell: its name (and with PrintScale its scale) at the left of the column,
// the origin marker, the separator under the cell (PrintSepLines, not under a column's last
// row), and the decal's pieces, terminals and texts at the frame's scale and origin, which the
// index run has fitted into the cell.
void DrawIndexCell(PlotFrame& frame, const IndexCellInputs& inputs);

}  // namespace zantor

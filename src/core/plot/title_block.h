#pragma once

// The frame of a decal page and its title block (the "formular"): fixed labels, the decal's and
// the library's names, company, form number, dates, scale, and the measurement values that the
// page fills in after the decal is drawn. Positions are page millimetres from the frame's
// bottom-left corner, which the frame's placement (its corner) puts on the paper.

#include <string>
#include <string_view>

#include "library/pad_stacks.h"
#include "plot/plot_frame.h"

namespace zantor {

// The title block is this high and spans the frame's whole width; the decal stands above it.
inline constexpr double kTitleBlockHeight = 33.0;
inline constexpr double kFormularTextSize = 2.8;

struct TitleBlockInputs {
    std::string decalName;
    std::string inputPath;  // the Inputfile setting: the library name is taken from it
    bool pcbInput = false;  // a PCB ASCII file: "PCB:" instead of "LIBRARY:"
    int terminalCount = 0;
    std::string date;   // the plot date as printed (TodayShortDate on a real page)
    double width = 0;   // W: frame width in mm
    double height = 0;  // H: frame height in mm
};

// The frame, the title block's rules, labels and values and the footer under the frame, with the
// Form-line and Form-text pens of layer 0 (a pen that is not plotted leaves its part out). The
// scale is the frame's.
void DrawTitleBlock(PlotFrame& frame, const TitleBlockInputs& inputs);

// What the page knows after the decal is drawn. Terminal positions and the height value are in
// library units.
struct MeasurementInputs {
    double terminal1X = 0;
    double terminal1Y = 0;
    double terminal2X = 0;
    double terminal2Y = 0;
    double heightValue = 0;       // the value of the decal's "$ " line (HeightInfo 0)
    std::string heightAttribute;  // the decal's Geometry.Height attribute text (HeightInfo 1)
    LibraryUnits units;
    double width = 0;  // W: frame width in mm, for the general comment
};

// The terminal 1 position and the distance from terminal 1 to terminal 2 in the MeasUnit
// setting's unit, the decal's height as HeightInfo chooses it, and the general comment above the
// title block.
void DrawMeasurements(PlotFrame& frame, const MeasurementInputs& inputs);

// "2 : 1", "1 : 1", "1 : 3": how the scale reads in the title block.
std::string ScaleText(double scale);

// The library's name as the title block shows it: the file name of `path` (after the last "\" or
// "/"), cut to 50 characters, with its first "." and the three characters after it taken out.
std::string LibraryNameOf(std::string_view path);

// Today's date in the user's short date form.
std::string TodayShortDate();

}  // namespace zantor

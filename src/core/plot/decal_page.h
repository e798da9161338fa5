#pragma once

// One decal page: frame and title block, origin marker, grid, the decal's pieces, terminals and
// texts, the 1:1 view, the listed attributes, the pad-stack table and the measurements, drawn in
// that order on the frame's canvas. The print job has already chosen the scale and placed the
// decal (the frame's DecalPlacement: its scale, the decal origin and the frame's bottom-left
// corner on the paper); the page only reads it.

#include <string>

#include "font/stroke_font.h"
#include "library/decal.h"
#include "plot/extents.h"
#include "plot/pieces.h"
#include "plot/plot_frame.h"
#include "shell/attribute_list.h"
#include "shell/identification.h"

namespace zantor {

// The 1:1 view box in the frame's lower right corner, above the title block.
inline constexpr double kViewBoxWidth = 78.80597014925372;
inline constexpr double kViewBoxHeight = 56.0;
inline constexpr double kViewBoxBottom = 40.0;
// Each listed attribute (and comment line) takes this much of the page's top.
inline constexpr double kListLinePitch = 4.0;

struct DecalPageInputs {
    const Decal& decal;
    const StrokeFont& font;
    // The user's attribute list: its checked entries are listed when PrintAttr is on, each with
    // the decal's value of it (empty when the decal has none).
    const AttributeList& attributes;
    DecalExtents extents;   // ExtentsOf the decal (without pin numbers), library units
    double width = 0;       // W: frame width in mm
    double height = 0;      // H: frame height in mm
    std::string inputPath;  // the file the decal comes from (the library name)
    InputKind inputKind;    // a PCB file (decal and parttype source) is named "PCB:"
    std::string date;       // the plot date as printed: TodayShortDate()
    // The unknown piece keywords the print job has reported so far, so that later files report
    // each once per job; without it each page reports its own.
    UnknownPieceReports* pieceReports = nullptr;
};

// Draws the whole page with the settings of the frame.
void DrawDecalPage(PlotFrame& frame, const DecalPageInputs& inputs);

// The grid through the decal origin over the drawing area (the frame above the pad-stack table
// and below the `attributeLines` listed at the top), and its pitch in the lower left corner
// when ShowGridSize is on. Nothing is drawn when the Origin pen of layer 0 is not plotted.
void DrawGrid(PlotFrame& frame, double width, double height, int attributeLines);

// A circle with a cross, OriginSize mm across on the paper whatever the scale, on the decal
// origin. Nothing is drawn when the Origin pen of layer 0 is not plotted.
void DrawOriginMarker(PlotFrame& frame);

}  // namespace zantor

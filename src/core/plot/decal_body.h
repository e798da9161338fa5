#pragma once

// The one drawing sequence of a decal's body, shared by every picture of a decal: the decal page
// and its 1:1 view, the cells of index pages, the view box and the preview. In order: the grid
// behind the decal (decal pages), the pieces that are not outlines, the terminals with their
// pads, the texts, and the outlines on top of copper and pads.
//
// How a page draws a decal, for example one of several decals of a parttype page, each fitted
// into a box as an index cell is:
//
//     const Decal decal = ParseDecal(record);          // library/decal.h: once per record
//     const DecalExtents extents = ExtentsOf(decal);   // library units
//     const CellPlacement fit = PlaceInBox(box, extents, decal.unitFactor, settings);
//                                                      // jobs/index_layout.h
//     frame.Scale = fit.scale;                         // the frame's page placement as usual
//     frame.UnitFactor = decal.unitFactor;
//     frame.OriginX1 = fit.originX;                    // the decal origin, page millimetres
//     frame.OriginY1 = fit.originY;
//     DrawDecalBody(frame, decal, font, reports);      // reports: the job's UnknownPieceReports
//
// Errors of the decal's fields (FieldFault) throw from here, where the item that holds them is
// drawn, and from ExtentsOf, where it is measured.

#include <optional>

#include "font/stroke_font.h"
#include "library/decal.h"
#include "plot/extents.h"
#include "plot/pieces.h"
#include "plot/plot_frame.h"
#include "plot/terminals.h"
#include "plot/text_items.h"

namespace zantor {

// The grid of a decal page, drawn behind the decal (DrawGrid of decal_page.h).
struct GridBehind {
    double width = 0;  // the frame's width and height in mm
    double height = 0;
    int attributeLines = 0;
};

// What the page around a decal asks of its body.
struct DecalBodyPage {
    TextItemsPage texts;  // comments are listed on decal pages only
    std::optional<GridBehind> grid;
};

struct DecalBodyResult {
    TextItemsResult texts;
    TerminalMarks marks;  // where terminals 1 and 2 were drawn
};

// Draws the body of `decal` at the frame's scale and origin. Unknown piece kinds of newer files
// are reported once per `reports`, which a job keeps for its whole run.
DecalBodyResult DrawDecalBody(PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                              UnknownPieceReports& reports, const DecalBodyPage& page = {});

// The smallest and largest x and y of the decal's pieces (with the room of its circles) and
// terminal positions, in library units. A corner or terminal that does not read throws here.
DecalExtents ExtentsOf(const Decal& decal);

}  // namespace zantor

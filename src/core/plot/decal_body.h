#pragma once

// The one drawing sequence of a decal's body, shared by every picture of a decal: the decal page
// and its 1:1 view, the cells of index pages, the view box and the preview. In order: the grid
// behind the decal (decal pages), the pieces that are not outlines, the terminals with their
// pads, the texts, and the outlines on top of copper and pads.
//
// How a page draws a decal, for example one of several decals of a parttype page, each fitted
// into a box as an index cell is:
//
//     const Decal decal = ParseDecal(record);             // library/decal.h: once per record
//     const DecalExtents body = ExtentsOf(decal, font);   // library units
//     const auto [fit, extents] = FitWithPinNumbers(      // pin numbers at the scale found
//         frame, decal, font, body, [&](const DecalExtents& e) {
//             return PlaceInBox(box, e, decal.unitFactor, settings);   // jobs/index_layout.h
//         });
//     frame.Place({.corner = frame.Placement().corner, // the page's frame stays where it is
//                  .unitFactor = decal.unitFactor,
//                  .scale = fit.scale,
//                  .origin = {fit.originX, fit.originY}}); // the decal origin, page millimetres
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

// The smallest and largest x and y of what the decal draws, whatever the pens, in library units:
// its pieces (with the room of their circles), its terminals with the pads of every layer and
// their drills and slots, and its texts at their measured extent. Pin numbers, whose size on the
// decal depends on the scale, are left to FitWithPinNumbers. A corner, terminal or text that
// does not read throws here.
DecalExtents ExtentsOf(const Decal& decal, const StrokeFont& font);

// `body` (ExtentsOf) widened by the pin numbers the frame's settings print, at their size when
// the decal is drawn at `scale`.
DecalExtents WithPinNumbers(const PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                            const DecalExtents& body, double scale);

template <typename Placement>
struct PinNumberFit {
    Placement placement;
    DecalExtents extents;  // what the placement fitted and centred
};

// Fits the decal with `place`, a function from extents to a placement with a `scale`, so that
// its pin numbers are inside too. Their size on the decal depends on the scale that the fit
// chooses, so the fit is repeated with the pin numbers at the scale found until that scale
// holds; each round can only lower it, and a few rounds settle it.
template <typename Place>
auto FitWithPinNumbers(const PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                       const DecalExtents& body, Place&& place)
    -> PinNumberFit<decltype(place(body))> {
    constexpr int kRounds = 8;
    PinNumberFit<decltype(place(body))> fit{place(body), body};
    for (int round = 0; round < kRounds; ++round) {
        const DecalExtents extents = WithPinNumbers(frame, decal, font, body, fit.placement.scale);
        const auto next = place(extents);
        const bool held = next.scale == fit.placement.scale;
        fit = {next, extents};
        if (held) {
            break;
        }
    }
    return fit;
}

}  // namespace zantor

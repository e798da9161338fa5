#include "plot/decal_body.h"

#include "plot/decal_page.h"

namespace zantor {

DecalBodyResult DrawDecalBody(PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                              UnknownPieceReports& reports, const DecalBodyPage& page) {
    // Terminals and pad stacks are read as whole lists: one that does not read fails the decal
    // before anything of it is drawn.
    RaiseIfAny(decal.terminalFault);
    RaiseIfAny(decal.stackFault);
    if (page.grid) {
        DrawGrid(frame, page.grid->width, page.grid->height, page.grid->attributeLines);
    }
    DecalBodyResult result;
    DrawPieces(frame, decal, false, frame.Messages(), reports);
    DrawTerminals(frame, font, decal, result.marks);
    result.texts = DrawTextItems(frame, decal, font, page.texts);
    DrawPieces(frame, decal, true, frame.Messages(), reports);
    return result;
}

DecalExtents ExtentsOf(const Decal& decal, const StrokeFont& font) {
    DecalExtents extents;
    PieceExtents(decal, extents);
    TerminalExtents(decal, extents);
    TextExtents(decal, font, extents);
    return extents;
}

DecalExtents WithPinNumbers(const PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                            const DecalExtents& body, double scale) {
    DecalExtents extents = body;
    PinNumberExtents(frame, decal, font, scale, extents);
    return extents;
}

}  // namespace zantor

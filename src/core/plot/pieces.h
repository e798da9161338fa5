#pragma once

// The drawing items ("pieces") of a decal: lines, outlines, circles, copper, cutouts, keepouts and
// dimension marks, read from the piece lines of a decal record.

#include "common/user_messages.h"
#include "library/decal_record.h"
#include "plot/extents.h"
#include "plot/plot_frame.h"

namespace zantor {

// Draws the pieces of `record` through `frame`. With `outlinesOnly` only the pieces drawn with
// the outline pen; otherwise all others (a page draws outlines last, on top of copper and pads).
// An unknown piece keyword is shown as "Unknown drawing item: <keyword>" and ends the pieces of
// this decal.
void DrawPieces(PlotFrame& frame, const DecalRecord& record, bool outlinesOnly,
                UserMessages& messages);

// Widens `extents` by the corners and arc boxes of every piece of `record`, and by the space a
// circle piece reserves above and below its second corner.
void PieceExtents(const DecalRecord& record, DecalExtents& extents);

}  // namespace zantor

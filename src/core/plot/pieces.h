#pragma once

// The drawing items ("pieces") of a decal: lines, outlines, circles, copper, cutouts, keepouts,
// board outlines and dimension marks of a decal.

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "common/user_messages.h"
#include "library/decal.h"
#include "plot/extents.h"
#include "plot/plot_frame.h"

namespace zantor {

// The unknown piece keywords a print job has reported. Files of releases after version 4 report
// an unknown keyword once per job and draw on; the job owns one of these for its whole run and
// passes it to every DrawPieces call.
class UnknownPieceReports {
  public:
    // True the first time `keyword` is met (it is then remembered), false after that.
    bool FirstTime(std::string_view keyword);

  private:
    std::set<std::string, std::less<>> reported_;
};

// Draws the pieces of `decal` through `frame`. With `outlinesOnly` only the pieces drawn with
// the outline pen; otherwise all others (a page draws outlines last, on top of copper and pads).
// An unknown piece keyword is shown as "Unknown drawing item: <keyword>". In versions 3 and 4 it
// ends the pieces of this pass; in later files the piece is passed over and the message is shown
// only when `reports` has not seen the keyword yet. A piece whose fields do not read throws
// (FieldFault) when it is met.
void DrawPieces(PlotFrame& frame, const Decal& decal, bool outlinesOnly, UserMessages& messages,
                UnknownPieceReports& reports);
// The same with reports of its own: later files show each unknown keyword once per call.
void DrawPieces(PlotFrame& frame, const Decal& decal, bool outlinesOnly, UserMessages& messages);

// Widens `extents` by the corners and arc boxes of every piece of `decal`, and by the room of
// its circles (by the dialect's circle rule). A corner that does not read throws.
void PieceExtents(const Decal& decal, DecalExtents& extents);

}  // namespace zantor

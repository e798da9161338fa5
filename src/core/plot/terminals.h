#pragma once

// Drawing the terminals of a decal: every pin's pads layer by layer, with the optional pin-1
// diamond, pin-centre mark, drill hole and pin number, and the positions of terminals 1 and 2
// that the title block measures.

#include "font/stroke_font.h"
#include "library/decal.h"
#include "library/pad_stacks.h"
#include "library/terminals.h"
#include "plot/extents.h"
#include "plot/plot_frame.h"

namespace zantor {

// Where terminals 1 and 2 were drawn, in library units. The decal page resets them to (0, 0) at
// its start, so a decal without pin 2 keeps (0, 0) for terminal 2.
struct TerminalMarks {
    double terminal1X = 0.0;
    double terminal1Y = 0.0;
    double terminal2X = 0.0;
    double terminal2Y = 0.0;
};

// Draws one terminal: for layers 30 down to -2 (so the top layer lands last) the pad of the pin on
// that layer in the pad pen of the layer, its marks and drill, and the pin number as PinNoStyle
// asks; records the positions of terminals 1 and 2 in `marks`. The pin's pads are those of the
// stack for terminal.index, or of the default stack. `axis` says which way finger pads and drill
// slots run at orientation 0; the default is how PADS draws them (see FileDialect::fingerAxis).
void DrawTerminal(PlotFrame& frame, const StrokeFont& font, const PadStackList& stacks,
                  const TerminalLine& terminal, TerminalMarks& marks,
                  FingerAxis axis = FingerAxis::AlongXAtZero);

// Draws every terminal of `decal` in file order with its pad stacks, with the finger axis of the
// decal's file dialect.
void DrawTerminals(PlotFrame& frame, const StrokeFont& font, const Decal& decal,
                   TerminalMarks& marks);

// Widens `extents` by every terminal of `decal`: its position, and the pads of every layer by
// the geometry that draws them (shape, size, orientation, finger length and offset), with the
// drill or slot. Pads that stick out of a decal's outline are then placed and scaled with it.
// Pin numbers are not counted (PinNumberExtents).
void TerminalExtents(const Decal& decal, DecalExtents& extents);

// Widens `extents` by the pin numbers that DrawTerminals prints with the frame's settings and
// pens, each the box of its measured extent at its label position, at the size it has when the
// decal is drawn at `scale`. Pin numbers keep a size on paper, so on the decal they grow as the
// scale falls.
void PinNumberExtents(const PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                      double scale, DecalExtents& extents);

}  // namespace zantor

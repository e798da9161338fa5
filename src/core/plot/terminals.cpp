#include "plot/terminals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "plot/rotation.h"

namespace zantor {
namespace {

constexpr int kTopLayerDrawn = 30;
constexpr int kLastLayerDrawn = -2;  // the top side, drawn last so it lies over the others
constexpr double kDrillPenWidth = 0.25;
constexpr double kPinNumberLineWidth = 0.1;
constexpr double kOddPadPenWidth = 0.35;
constexpr double kSmallestMark = 0.01;

// The pen table knows the top side as layer 1, the bottom side as 2 and the inner layers as 0.
std::int32_t PlotLayer(std::int32_t layer) {
    switch (layer) {
        case -2:
            return 1;
        case 0:
            return 2;
        case -1:
            return 0;
        default:
            return layer;
    }
}

// A point given across and along a finger (or slot) turned by `ori`, placed at the terminal.
// With AlongXAtZero the length runs along x before the turn. That is how PADS writes its pads: a
// SON row of 0.3 x 0.7 fingers at orientation 0 on a 0.5 mm pitch up the y axis clears its
// neighbours by 0.2 mm only that way round (upright the pads would overlap by 0.2 mm), and an
// SOT-23's pin-1 silk mark spans exactly the length of its pad along x.
class FingerFrame {
  public:
    FingerFrame(double x, double y, double ori, FingerAxis axis)
        : x_(x), y_(y), ori_(ori), axis_(axis) {}

    PlanePoint At(double across, double along) const {
        const PlanePoint turned = axis_ == FingerAxis::AlongXAtZero
                                      ? RotateOffset(along, across, ori_)
                                      : RotateOffset(across, along, ori_);
        return {x_ + turned.x, y_ + turned.y};
    }

  private:
    double x_;
    double y_;
    double ori_;
    FingerAxis axis_;
};

// A filled rectangle halfWidth either side of the axis, from `from` to `to` along it.
void FillFingerBody(PlotFrame& frame, const FingerFrame& finger, double halfWidth, double from,
                    double to) {
    const std::array<PlanePoint, 4> corners = {finger.At(-halfWidth, from),
                                               finger.At(halfWidth, from), finger.At(halfWidth, to),
                                               finger.At(-halfWidth, to)};
    int n = 1;
    for (const PlanePoint& corner : corners) {
        frame.AddPolygonPoint(n++, corner.x, corner.y);
    }
    frame.AddPolygonPoint(n, corners[0].x, corners[0].y);
    frame.FillPolygon();
}

void FillDisc(PlotFrame& frame, PlanePoint centre, double diameter) {
    const double r = diameter / 2;
    frame.FilledCircle(centre.x + r, centre.y + r, centre.x - r, centre.y - r, diameter);
}

// The pad's outline; false when the shape is not drawn (thermals, unknown shapes).
bool DrawPadShape(PlotFrame& frame, const PadStackEntry& pad, double x, double y, FingerAxis axis) {
    const double s = pad.size;
    const std::string& shape = pad.shape;
    if (shape == "R") {
        FillDisc(frame, {x, y}, s);
    } else if (shape == "S") {
        FillFingerBody(frame, FingerFrame(x, y, 0, axis), s / 2, -s / 2, s / 2);
    } else if (shape == "RF") {
        const double half = pad.lenOrInner / 2;
        FillFingerBody(frame, FingerFrame(x, y, pad.ori, axis), s / 2, pad.offsetOrSpoke - half,
                       pad.offsetOrSpoke + half);
    } else if (shape == "OF") {
        const FingerFrame finger(x, y, pad.ori, axis);
        const double half = pad.lenOrInner / 2;
        const double firstEnd = pad.offsetOrSpoke - half + s / 2;
        const double secondEnd = pad.offsetOrSpoke + half - s / 2;
        FillDisc(frame, finger.At(0, firstEnd), s);
        FillDisc(frame, finger.At(0, secondEnd), s);
        FillFingerBody(frame, finger, s / 2, firstEnd, secondEnd);
    } else if (shape == "A") {
        const double ring = (s - pad.lenOrInner) / 2;
        frame.Circle(x, y, (s - ring) / 2,
                     ring * frame.Placement().unitFactor * frame.Placement().scale);
    } else if (shape == "O") {
        frame.Circle(x, y, s / 2 - 0.175, kOddPadPenWidth);
    } else {
        return false;  // RT and ST show only in the pad-stack table
    }
    return true;
}

// Half of the smaller of `maxMm` and half the pad, in library units: the marks grow with small
// pads but never beyond their setting on paper.
double MarkHalfSize(const PlotFrame& frame, double maxMm, double padSize) {
    const double mmPerUnit = frame.Placement().unitFactor * frame.Placement().scale;
    return std::min(maxMm, padSize / 2 * mmPerUnit) / mmPerUnit / 2;
}

// A round hole: its circle with a cross whose arms end on it.
void DrawHoleSymbol(PlotFrame& frame, PlanePoint centre, double r) {
    frame.Circle(centre.x, centre.y, r, kDrillPenWidth);
    const double k = r * std::numbers::sqrt2 / 2;
    frame.MoveTo(centre.x + k, centre.y - k);
    frame.LineTo(centre.x - k, centre.y + k);
    frame.MoveTo(centre.x - k, centre.y - k);
    frame.LineTo(centre.x + k, centre.y + k);
}

void DrawDrill(PlotFrame& frame, const PadStackEntry& pad, double x, double y, FingerAxis axis) {
    const PlotSettings& settings = frame.Settings();
    const bool plated = pad.plated == "P";
    if (!settings.ShowDrill || (plated && settings.OnlyNPDrill) || !(pad.drill > kSmallestMark)) {
        return;
    }
    const Colour pen = frame.PenFor(kPenPinNo, 0);
    if (pen == kNotPlotted) {
        return;
    }
    frame.SetColour(pen);
    frame.SetPenWidth(kDrillPenWidth);
    const double r = pad.drill / 2;
    if (pad.drillLength < kSmallestMark) {
        DrawHoleSymbol(frame, {x, y}, r);
        return;
    }
    // A slot: a hole at each end, joined by its two sides.
    const FingerFrame slot(x, y, pad.drillOri, axis);
    const double a = pad.drillLength / 2;
    const double firstEnd = pad.drillOffset - a + r;
    const double secondEnd = pad.drillOffset + a - r;
    DrawHoleSymbol(frame, slot.At(0, firstEnd), r);
    DrawHoleSymbol(frame, slot.At(0, secondEnd), r);
    for (const double across : {-r, r}) {
        const PlanePoint from = slot.At(across, firstEnd);
        const PlanePoint to = slot.At(across, secondEnd);
        frame.MoveTo(from.x, from.y);
        frame.LineTo(to.x, to.y);
    }
}

// Diamond on pin 1, centre mark on the others (and on pin 1 when it is not marked), then the
// drill: all on top of the pad just drawn, in the pad's pen.
void DrawPadMarks(PlotFrame& frame, const PadStackEntry& pad, const TerminalLine& terminal,
                  FingerAxis axis) {
    const PlotSettings& settings = frame.Settings();
    const double x = terminal.x;
    const double y = terminal.y;
    const bool pin1 = terminal.index == 1;
    if (pin1 && settings.MarkPin1 && settings.MaxPin1Mark > kSmallestMark) {
        const double h = MarkHalfSize(frame, settings.MaxPin1Mark, pad.size);
        frame.AddPolygonPoint(1, x + h, y);
        frame.AddPolygonPoint(2, x, y + h);
        frame.AddPolygonPoint(3, x - h, y);
        frame.AddPolygonPoint(4, x, y - h);
        frame.AddPolygonPoint(5, x + h, y);
        frame.FillPolygon();
    }
    if (settings.ShowPinCenter && (!pin1 || !settings.MarkPin1)) {
        const double d = MarkHalfSize(frame, settings.MaxPinCenterMark, pad.size);
        frame.FilledCircle(x + d, y + d, x - d, y - d, d);
    }
    DrawDrill(frame, pad, x, y, axis);
}

bool LabelMoved(const TerminalLine& terminal) {
    return terminal.labelX != terminal.x || terminal.labelY != terminal.y;
}

bool PinNumberWanted(char style, const TerminalLine& terminal) {
    switch (style) {
        case 'A':  // "All pins numbers"
            return true;
        case 'M':  // "Moved no. only"
            return LabelMoved(terminal);
        case '1':  // "Pin 1's no. only"
            return terminal.index == 1;
        case 'X':  // "Pin 1 if no. moved"
            return terminal.index == 1 && LabelMoved(terminal);
        default:
            return false;
    }
}

bool PinNumberPrinted(const PlotFrame& frame, const TerminalLine& terminal) {
    const PlotSettings& settings = frame.Settings();
    return settings.PlotPinNo && PinNumberWanted(settings.PinNoStyle, terminal) &&
           frame.PenFor(kPenPinNo, 0) != kNotPlotted;
}

// The height of a pin number in library units on a decal drawn at `scale`. PinNoSize is a size
// on the decal when it scales with it, else a size on paper; either way never below the smallest
// readable size on paper.
double PinNumberHeight(const PlotSettings& settings, double unitFactor, double scale) {
    const double paperMm =
        std::max(settings.PinNoSize * (settings.ScalePinNo ? scale : 1.0), settings.MinPinnoSize);
    return paperMm / (unitFactor * scale);
}

void DrawPinNumber(PlotFrame& frame, const StrokeFont& font, const TerminalLine& terminal) {
    if (!PinNumberPrinted(frame, terminal)) {
        return;
    }
    frame.SetColour(frame.PenFor(kPenPinNo, 0));
    const DecalPlacement& placement = frame.Placement();
    const double height = PinNumberHeight(frame.Settings(), placement.unitFactor, placement.scale);
    frame.StrokeText(font, false, terminal.pinName, terminal.labelX, terminal.labelY, 0, height,
                     kPinNumberLineWidth);
}

// Whether the terminal has a pad entry on any layer drawn: its number is printed with each.
bool HasPadEntry(const PadStackList& stacks, const TerminalLine& terminal) {
    for (std::int32_t layer = kTopLayerDrawn; layer >= kLastLayerDrawn; --layer) {
        if (FindStackEntry(stacks, terminal.index, layer) != nullptr) {
            return true;
        }
    }
    return false;
}

// The corners of a finger (or slot) `halfWidth` either side of its axis from `from` to `to`.
void WidenByFinger(DecalExtents& extents, const FingerFrame& finger, double halfWidth, double from,
                   double to) {
    for (const double across : {-halfWidth, halfWidth}) {
        for (const double along : {from, to}) {
            const PlanePoint corner = finger.At(across, along);
            extents.Widen(corner.x, corner.y);
        }
    }
}

// What the pad covers as DrawPadShape draws it, and its drill or slot: every layer's pad of a
// terminal, whether its pen plots it or not, so that a page's picture does not move with pens.
void WidenByPad(DecalExtents& extents, const PadStackEntry& pad, double x, double y,
                FingerAxis axis) {
    const double s = pad.size;
    const std::string& shape = pad.shape;
    if (shape == "R" || shape == "A" || shape == "O") {
        extents.Widen(x - s / 2, y - s / 2);
        extents.Widen(x + s / 2, y + s / 2);
    } else if (shape == "S") {
        WidenByFinger(extents, FingerFrame(x, y, 0, axis), s / 2, -s / 2, s / 2);
    } else if (shape == "RF" || shape == "OF") {
        // An oval finger's end caps reach the ends of its length, as the rectangle does.
        const double half = pad.lenOrInner / 2;
        WidenByFinger(extents, FingerFrame(x, y, pad.ori, axis), s / 2, pad.offsetOrSpoke - half,
                      pad.offsetOrSpoke + half);
    }
    if (!(pad.drill > kSmallestMark)) {
        return;
    }
    const double r = pad.drill / 2;
    if (pad.drillLength < kSmallestMark) {
        extents.Widen(x - r, y - r);
        extents.Widen(x + r, y + r);
    } else {
        const double a = pad.drillLength / 2;
        WidenByFinger(extents, FingerFrame(x, y, pad.drillOri, axis), r, pad.drillOffset - a,
                      pad.drillOffset + a);
    }
}

}  // namespace

void DrawTerminal(PlotFrame& frame, const StrokeFont& font, const PadStackList& stacks,
                  const TerminalLine& terminal, TerminalMarks& marks, FingerAxis axis) {
    for (std::int32_t layer = kTopLayerDrawn; layer >= kLastLayerDrawn; --layer) {
        const PadStackEntry* pad = FindStackEntry(stacks, terminal.index, layer);
        if (pad == nullptr) {
            continue;
        }
        const Colour pen = frame.PenFor(kPenPads, PlotLayer(layer));
        if (pen != kNotPlotted) {
            frame.SetColour(pen);
            if (DrawPadShape(frame, *pad, terminal.x, terminal.y, axis)) {
                DrawPadMarks(frame, *pad, terminal, axis);
            }
        }
        DrawPinNumber(frame, font, terminal);
    }
    if (terminal.index == 1) {
        marks.terminal1X = terminal.x;
        marks.terminal1Y = terminal.y;
    } else if (terminal.index == 2) {
        marks.terminal2X = terminal.x;
        marks.terminal2Y = terminal.y;
    }
}

void DrawTerminals(PlotFrame& frame, const StrokeFont& font, const Decal& decal,
                   TerminalMarks& marks) {
    const FingerAxis axis = decal.header.dialect.fingerAxis;
    const std::vector<TerminalLine>& terminals = decal.Terminals();
    const PadStackList& stacks = decal.Stacks();
    for (const TerminalLine& terminal : terminals) {
        DrawTerminal(frame, font, stacks, terminal, marks, axis);
    }
}

void TerminalExtents(const Decal& decal, DecalExtents& extents) {
    const FingerAxis axis = decal.header.dialect.fingerAxis;
    const PadStackList& stacks = decal.Stacks();
    for (const TerminalLine& terminal : decal.Terminals()) {
        extents.Widen(terminal.x, terminal.y);
        for (std::int32_t layer = kTopLayerDrawn; layer >= kLastLayerDrawn; --layer) {
            if (const PadStackEntry* pad = FindStackEntry(stacks, terminal.index, layer)) {
                WidenByPad(extents, *pad, terminal.x, terminal.y, axis);
            }
        }
    }
}

void PinNumberExtents(const PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                      double scale, DecalExtents& extents) {
    if (!frame.Settings().PlotPinNo) {
        return;
    }
    const double height = PinNumberHeight(frame.Settings(), decal.unitFactor, scale);
    const PadStackList& stacks = decal.Stacks();
    for (const TerminalLine& terminal : decal.Terminals()) {
        if (!PinNumberPrinted(frame, terminal) || !HasPadEntry(stacks, terminal)) {
            continue;
        }
        const TextExtent measured = font.Extent(terminal.pinName, height);
        extents.Widen(terminal.labelX, terminal.labelY);
        extents.Widen(terminal.labelX + measured.width, terminal.labelY + measured.height);
    }
}

}  // namespace zantor

#include "plot/plot_frame.h"

#include <cmath>
#include <limits>

#include "common/errors.h"

namespace zantor {
namespace {

// Rounds to the nearest integer with ties to even (nearbyint under the default rounding mode)
// and refuses anything a 32-bit device coordinate cannot hold.
std::int32_t ToDevice(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= static_cast<double>(std::numeric_limits<std::int32_t>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<std::int32_t>::max()))) {
        throw RangeError("Device coordinate out of range: " + std::to_string(value));
    }
    return static_cast<std::int32_t>(rounded);
}

}  // namespace

PlotFrame::PlotFrame(PlotCanvas& canvas, const DeviceMapping& mapping, const PlotSettings& settings,
                     UserMessages& messages)
    : canvas_(canvas), mapping_(mapping), settings_(settings), messages_(messages) {}

std::int32_t PlotFrame::DevX(double x) const {
    const DecalPlacement& at = placement_;
    const double mm = x * at.scale * at.unitFactor + at.origin.x + at.corner.x;
    return ToDevice(mapping_.surface == PlotSurface::ViewBox ? mm : mm / mapping_.mmPerUnitX);
}

std::int32_t PlotFrame::DevY(double y) const {
    const DecalPlacement& at = placement_;
    const double mm = y * at.scale * at.unitFactor + at.origin.y + at.corner.y;
    switch (mapping_.surface) {
        case PlotSurface::Printer:
            return ToDevice((mm - mapping_.pageHeight) / mapping_.mmPerUnitY);
        case PlotSurface::PreviewWindow:
            return ToDevice(mapping_.paintBoxHeight - mm / mapping_.mmPerUnitY);
        case PlotSurface::ViewBox:
            break;
    }
    return ToDevice(mapping_.paintBoxHeight - mm);
}

std::int32_t PlotFrame::PageDevX(double mm) const {
    const double page = mm + placement_.corner.x;
    return ToDevice(mapping_.surface == PlotSurface::ViewBox ? page : page / mapping_.mmPerUnitX);
}

std::int32_t PlotFrame::PageDevY(double mm) const {
    const double cornerY = placement_.corner.y;
    switch (mapping_.surface) {
        case PlotSurface::Printer:
            return ToDevice((mm + cornerY - mapping_.pageHeight) / mapping_.mmPerUnitY);
        case PlotSurface::PreviewWindow:
            return ToDevice(mapping_.paintBoxHeight - (mm + cornerY) / mapping_.mmPerUnitY);
        case PlotSurface::ViewBox:
            break;
    }
    // The view box is laid out without the margin offset.
    return ToDevice(mapping_.paintBoxHeight - mm);
}

std::int32_t PlotFrame::DevLen(double mm) const {
    return ToDevice(mapping_.surface == PlotSurface::ViewBox ? mm : mm / mapping_.mmPerUnitY);
}

Colour PlotFrame::PenFor(int kind, std::int32_t layer) const {
    if (kind < 1 || kind > kPenKinds) {
        throw RangeError("Pen kind out of range: " + std::to_string(kind));
    }
    const PenTableRows& rows = settings_.PenTable;
    Colour result = kNotPlotted;
    // Rows 10 to 12 are kept in the settings but never consulted.
    for (int row = 1; row <= 9 && result == kNotPlotted; ++row) {
        if (rows[row].layer == layer) {
            result = rows[row].colour[kind];
        }
    }
    // Row 0 fills every gap, also where a layer row says "not plotted".
    if (result == kNotPlotted) {
        result = rows[0].colour[kind];
    }
    return result;
}

void PlotFrame::SetColour(Colour colour) {
    canvas_.SetPenColour(colour);
    canvas_.SetTextColour(colour);
}

void PlotFrame::SetPenWidth(double width) {
    const double used = settings_.MinLineWidth >= width ? settings_.MinLineWidth : width;
    canvas_.SetPenWidth(DevLen(used));
}

void PlotFrame::SetPenStyle(PenStyle style) {
    canvas_.SetPenStyle(style);
}

void PlotFrame::SetFillStyle(FillStyle style) {
    canvas_.SetFillStyle(style);
}

void PlotFrame::MoveTo(double x, double y) {
    canvas_.MoveTo(DevX(x), DevY(y));
}

void PlotFrame::LineTo(double x, double y) {
    canvas_.LineTo(DevX(x), DevY(y));
}

void PlotFrame::Arc(double bx1, double by1, double bx2, double by2, double sx, double sy, double ex,
                    double ey) {
    canvas_.Arc(DevX(bx1), DevY(by1), DevX(bx2), DevY(by2), DevX(sx), DevY(sy), DevX(ex), DevY(ey));
}

void PlotFrame::Circle(double cx, double cy, double r, double width) {
    const std::int32_t saved = canvas_.PenWidth();
    SetPenWidth(width);
    // Two half circles between opposite corners of the box: a single arc with equal rays would
    // depend on the surface drawing a full turn.
    Arc(cx - r, cy - r, cx + r, cy + r, cx + r, cy + r, cx - r, cy - r);
    Arc(cx - r, cy - r, cx + r, cy + r, cx - r, cy - r, cx + r, cy + r);
    canvas_.SetPenWidth(saved);
}

void PlotFrame::FilledCircle(double x1, double y1, double x2, double y2, double d) {
    const Colour savedFill = canvas_.FillColour();
    canvas_.SetFillColour(canvas_.PenColour());
    canvas_.SetPenWidth(1);
    const std::int32_t corner = DevLen(d * placement_.unitFactor * placement_.scale);
    canvas_.RoundRect(DevX(x1), DevY(y1), DevX(x2), DevY(y2), corner, corner);
    canvas_.SetFillColour(savedFill);
}

void PlotFrame::AddPolygonPoint(int n, double x, double y) {
    if (n < 1) {
        throw RangeError("Polygon point out of range: " + std::to_string(n));
    }
    if (n > kPolygonPoints) {
        return;
    }
    const DevicePoint point{DevX(x), DevY(y)};
    if (n == 1) {
        polygon_.fill(point);
    } else {
        polygon_[static_cast<std::size_t>(n - 1)] = point;
    }
}

void PlotFrame::FillPolygon() {
    const Colour savedFill = canvas_.FillColour();
    canvas_.SetFillColour(canvas_.PenColour());
    canvas_.SetPenWidth(1);
    canvas_.Polygon(polygon_);
    canvas_.SetFillColour(savedFill);
}

void PlotFrame::PageMoveTo(double x, double y) {
    canvas_.MoveTo(PageDevX(x), PageDevY(y));
}

void PlotFrame::PageLineTo(double x, double y) {
    canvas_.LineTo(PageDevX(x), PageDevY(y));
}

void PlotFrame::PageText(std::string_view text, double size, double y, double x,
                         std::string_view fontName, TextAlign align) {
    canvas_.Text(PageDevX(x), PageDevY(y + size), text, fontName, DevLen(size), align);
}

void PlotFrame::StrokeText(const StrokeFont& font, bool mirror, std::string_view text, double x,
                           double y, double rotation, double size, double lineWidth) {
    SetPenWidth(lineWidth * placement_.scale);
    DrawStrokeText(font, *this, mirror, text, x, y, rotation, size);
}

}  // namespace zantor

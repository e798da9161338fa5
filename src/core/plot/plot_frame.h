#pragma once

// The plot frame: the one place that turns library coordinates and page millimetres into device
// units, picks pens from the pen table, and offers the drawing primitives in library and page
// coordinates. Two values drive the conversion: the device mapping, fixed for the surface a job
// draws on and given when the frame is made, and the decal placement, which the jobs set for
// every page frame and every decal they draw. The drawing code reads them and calls the
// primitives. Nothing outside the frame rounds or flips a coordinate.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/user_messages.h"
#include "font/stroke_font.h"
#include "font/stroke_text.h"
#include "plot/plot_canvas.h"
#include "shell/plot_settings.h"

namespace zantor {

// Where the page is drawn. The printer works in 0.01 mm units with y pointing up from the top
// edge; the two on-screen surfaces work in pixels with y pointing down.
enum class PlotSurface : std::uint8_t { Printer = 0, PreviewWindow = 1, ViewBox = 2 };

inline constexpr int kPolygonPoints = 1024;

// How page millimetres become device units on one surface. The printer's device units are
// 0.01 mm with y counted up from the printable area's top edge (negative down the page); the
// preview window's are pixels of its paint box, y down; the view box takes its pixels as the
// millimetres of its page.
struct DeviceMapping {
    PlotSurface surface = PlotSurface::Printer;
    double mmPerUnitX = 0.01;  // millimetres per device unit
    double mmPerUnitY = 0.01;
    double pageHeight = 0;            // the printable height in mm: the printer's y = 0
    std::int32_t paintBoxHeight = 0;  // pixels; the on-screen surfaces only
};

// A point of the page in millimetres.
struct PagePoint {
    double x = 0;
    double y = 0;
};

// Where the frame's drawing goes on the page. Page drawing (frames, title block, tables) is in
// millimetres from `corner`, the frame's bottom-left corner on the printable area; a decal is
// drawn at `scale` with its origin at `origin`, millimetres from that corner, each library unit
// `unitFactor` millimetres long. The default places nothing: scale 1, millimetre units.
struct DecalPlacement {
    PagePoint corner;
    double unitFactor = 1;
    double scale = 1;
    PagePoint origin;
};

// Page drawing alone: the frame's corner at `corner`, no decal placed.
inline DecalPlacement FrameAt(PagePoint corner) {
    DecalPlacement placement;
    placement.corner = corner;
    return placement;
}

class PlotFrame : public StrokeSink {
  public:
    PlotFrame(PlotCanvas& canvas, const DeviceMapping& mapping, const PlotSettings& settings,
              UserMessages& messages);

    const DeviceMapping& Mapping() const { return mapping_; }
    const DecalPlacement& Placement() const { return placement_; }
    // Everything drawn from here on goes where `placement` says.
    void Place(const DecalPlacement& placement) { placement_ = placement; }

    PlotCanvas& Canvas() const { return canvas_; }
    const PlotSettings& Settings() const { return settings_; }
    UserMessages& Messages() const { return messages_; }

    // Coordinate transform. Results are rounded to the nearest device unit, ties to even; a
    // result outside 32 bits is a RangeError.
    std::int32_t DevX(double x) const;
    std::int32_t DevY(double y) const;
    std::int32_t PageDevX(double mm) const;
    std::int32_t PageDevY(double mm) const;
    std::int32_t DevLen(double mm) const;

    // The colour of item kind `kind` (1 to 11, else RangeError) on `layer`; kNotPlotted means the
    // item is not drawn.
    Colour PenFor(int kind, std::int32_t layer) const;
    // Pen and text colour.
    void SetColour(Colour colour);
    // `width` in page millimetres; never thinner than the settings' MinLineWidth.
    void SetPenWidth(double width);
    void SetPenStyle(PenStyle style);
    void SetFillStyle(FillStyle style);

    // Primitives in library coordinates.
    void MoveTo(double x, double y) override;
    void LineTo(double x, double y) override;
    // The ellipse in the box (bx1, by1)-(bx2, by2), counter-clockwise on the page from the ray
    // towards (sx, sy) to the ray towards (ex, ey); the current position does not move.
    void Arc(double bx1, double by1, double bx2, double by2, double sx, double sy, double ex,
             double ey);
    // An open circle drawn with a pen of `width` mm; the pen width before the call is restored.
    void Circle(double cx, double cy, double r, double width);
    // A disc (or a rounded box) in the pen colour with a one-unit border; `d` is the corner size
    // in library units. The pen width stays at one device unit afterwards.
    void FilledCircle(double x1, double y1, double x2, double y2, double d);
    // Point n (1 to 1024) of the polygon buffer. Point 1 starts a new polygon and fills every
    // entry with itself, so entries not set afterwards close the outline back to it. Points
    // beyond 1024 are dropped.
    void AddPolygonPoint(int n, double x, double y);
    // The polygon of all 1024 buffer entries in the pen colour with a one-unit border; the pen
    // width stays at one device unit afterwards.
    void FillPolygon();

    // Primitives in page millimetres (no scale, no unit factor, only the second origin).
    void PageMoveTo(double x, double y);
    void PageLineTo(double x, double y);
    // Text of `size` mm in the system font `fontName`; y is the lower edge of the text line.
    void PageText(std::string_view text, double size, double y, double x, std::string_view fontName,
                  TextAlign align = TextAlign::Left);

    // Stroke font text at library position (x, y) with a line width of `lineWidth` mm at scale 1.
    void StrokeText(const StrokeFont& font, bool mirror, std::string_view text, double x, double y,
                    double rotation, double size, double lineWidth);

  private:
    PlotCanvas& canvas_;
    const DeviceMapping mapping_;
    DecalPlacement placement_;
    const PlotSettings& settings_;
    UserMessages& messages_;
    std::array<DevicePoint, kPolygonPoints> polygon_{};
};

}  // namespace zantor

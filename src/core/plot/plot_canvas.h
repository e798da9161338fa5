#pragma once

// The drawing surface of the plot engine. Everything here is in device units: the plot frame has
// already turned library and page coordinates into whole device numbers, so a canvas only draws.
// The pen, fill and text state lives in the base class; an implementation reads it when it draws.

#include <cstdint>
#include <span>
#include <string_view>

namespace zantor {

// Colours are 0x00BBGGRR, the form the pen table stores.
using Colour = std::int32_t;

struct DevicePoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    friend bool operator==(const DevicePoint&, const DevicePoint&) = default;
};

enum class PenStyle : std::uint8_t { Solid, Dash, Dot, DashDot, DashDotDot, Clear };
// Which point of a text line its x position gives.
enum class TextAlign { Left, Centre, Right };

enum class FillStyle : std::uint8_t { Solid, None };

class PlotCanvas {
  public:
    virtual ~PlotCanvas() = default;

    // Pen: colour, width in device units (0 = the thinnest line the device draws), style.
    void SetPenColour(Colour colour) { penColour_ = colour; }
    void SetPenWidth(std::int32_t width) { penWidth_ = width; }
    void SetPenStyle(PenStyle style) { penStyle_ = style; }
    // Fill of rounded rectangles and polygons.
    void SetFillColour(Colour colour) { fillColour_ = colour; }
    void SetFillStyle(FillStyle style) { fillStyle_ = style; }
    // Colour of Text().
    void SetTextColour(Colour colour) { textColour_ = colour; }

    Colour PenColour() const { return penColour_; }
    std::int32_t PenWidth() const { return penWidth_; }
    PenStyle PenStyleNow() const { return penStyle_; }
    Colour FillColour() const { return fillColour_; }
    FillStyle FillStyleNow() const { return fillStyle_; }
    Colour TextColour() const { return textColour_; }

    // The current position: MoveTo sets it, LineTo draws from it and moves it.
    virtual void MoveTo(std::int32_t x, std::int32_t y) = 0;
    virtual void LineTo(std::int32_t x, std::int32_t y) = 0;
    // The outline of the ellipse inscribed in the box (x1, y1)-(x2, y2), from the ray from the
    // box centre towards (sx, sy) to the ray towards (ex, ey), running counter-clockwise as seen
    // on the page. Equal rays give the whole ellipse. The current position is left alone.
    virtual void Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                     std::int32_t sx, std::int32_t sy, std::int32_t ex, std::int32_t ey) = 0;
    // A filled and outlined rectangle whose corners are quarter ellipses of the given width and
    // height (a disc or an ellipse when they equal the box).
    virtual void RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                           std::int32_t cornerWidth, std::int32_t cornerHeight) = 0;
    // A filled and outlined polygon, closed from the last point back to the first (even-odd
    // fill).
    virtual void Polygon(std::span<const DevicePoint> points) = 0;
    // Text in a system font whose em height is `height` device units. The top of the text line
    // is at y; x is its left end, its centre or its right end by `align`. A font that is not
    // installed is replaced by a similar one.
    virtual void Text(std::int32_t x, std::int32_t y, std::string_view text,
                      std::string_view fontName, std::int32_t height,
                      TextAlign align = TextAlign::Left) = 0;

  private:
    Colour penColour_ = 0;
    std::int32_t penWidth_ = 0;
    PenStyle penStyle_ = PenStyle::Solid;
    Colour fillColour_ = 0;
    FillStyle fillStyle_ = FillStyle::Solid;
    Colour textColour_ = 0;
};

}  // namespace zantor

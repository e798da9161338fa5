#pragma once

// The canvas over a QPainter: the one drawing path for the printer, PDF, SVG and PNG files, the
// preview window and the view box.

#include <QBrush>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QTransform>
#include <memory>

#include "plot/plot_canvas.h"
#include "plot/text_fonts.h"

namespace zantor {

enum class CanvasMapping : std::uint8_t {
    // Device units of 0.01 mm with y pointing up from the top edge of the painter's area, so
    // that positions on the page are negative: the printer's mapping.
    Hundredths,
    // Device units are the painter's own units (pixels), y pointing down.
    Pixels,
};

class QPainterCanvas : public PlotCanvas {
  public:
    // `painter` must be active on its device. The canvas draws through the painter's transform
    // as it is now (a page offset or a zoom set by the caller), with Hundredths the 0.01 mm
    // mapping from the device's resolution on top; the painter's transform is given back when
    // the canvas goes. Texts take their fonts from `fonts` (kept by the caller for a whole job,
    // and for longer than the canvas); without it the canvas keeps its own.
    //
    // The painter's pen, brush, transform and font are set only when a drawing needs them other
    // than they are: vector devices (PDF, SVG) write every change of state into the file.
    QPainterCanvas(QPainter& painter, CanvasMapping mapping, TextFonts* fonts = nullptr);
    ~QPainterCanvas() override;
    QPainterCanvas(const QPainterCanvas&) = delete;
    QPainterCanvas& operator=(const QPainterCanvas&) = delete;

    void MoveTo(std::int32_t x, std::int32_t y) override;
    void LineTo(std::int32_t x, std::int32_t y) override;
    void Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::int32_t sx,
             std::int32_t sy, std::int32_t ex, std::int32_t ey) override;
    void RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                   std::int32_t cornerWidth, std::int32_t cornerHeight) override;
    void Polygon(std::span<const DevicePoint> points) override;
    void Text(std::int32_t x, std::int32_t y, std::string_view text, std::string_view fontName,
              std::int32_t height, TextAlign align = TextAlign::Left) override;

  private:
    // The pen of the canvas's state, with the geometry's transform.
    void UsePen();
    // Also the brush: the fill of the canvas's state, or none.
    void UsePenAndFill(bool fill);
    void UseTransform(const QTransform& transform);
    void UsePenOf(Colour colour, std::int32_t width, PenStyle style);
    void UseBrush(const QBrush& brush);

    QPainter& painter_;
    CanvasMapping mapping_;
    QTransform callerTransform_;
    QTransform transform_;
    QPointF position_;
    std::unique_ptr<TextFonts> ownFonts_;
    TextFonts& fonts_;
    // What was last given to the painter, to tell a change from a repetition without building
    // a new pen or brush for every drawing.
    QPen pen_;
    Colour penColour_ = 0;
    std::int32_t penWidth_ = -1;
    PenStyle penStyle_ = PenStyle::Solid;
    QBrush fill_;
    Colour fillColour_ = 0;
    const TextFont* font_ = nullptr;
    QFont painterFont_;
    QPolygonF polygon_;
};

}  // namespace zantor

#include "plot/qpainter_canvas.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPolygonF>
#include <QString>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace zantor {
namespace {

QColor ToQColor(Colour colour) {
    const auto value = static_cast<std::uint32_t>(colour);
    return QColor(static_cast<int>(value & 0xFF), static_cast<int>((value >> 8) & 0xFF),
                  static_cast<int>((value >> 16) & 0xFF));
}

Qt::PenStyle ToQtStyle(PenStyle style) {
    switch (style) {
        case PenStyle::Solid:
            return Qt::SolidLine;
        case PenStyle::Dash:
            return Qt::DashLine;
        case PenStyle::Dot:
            return Qt::DotLine;
        case PenStyle::DashDot:
            return Qt::DashDotLine;
        case PenStyle::DashDotDot:
            return Qt::DashDotDotLine;
        case PenStyle::Clear:
            return Qt::NoPen;
    }
    return Qt::SolidLine;
}

QRectF Box(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2) {
    return QRectF(QPointF(std::min(x1, x2), std::min(y1, y2)),
                  QPointF(std::max(x1, x2), std::max(y1, y2)));
}

// Angles in degrees into (0, 360]: equal rays mean a whole turn.
double TurnFrom(double degrees) {
    double turn = std::fmod(degrees, 360.0);
    if (turn <= 0) {
        turn += 360.0;
    }
    return turn;
}

// The angle QPainterPath uses for the point of the ellipse in `box` on the ray from the box
// centre towards `towards`. Qt counts angles with y pointing down in the painter's units
// (positive turns from 3 o'clock towards smaller y) and along the ellipse's parameter.
double QtAngleOfRay(const QRectF& box, QPointF towards) {
    const QPointF d = towards - box.center();
    const double rx = box.width() > 0 ? box.width() / 2 : 1.0;
    const double ry = box.height() > 0 ? box.height() / 2 : 1.0;
    return std::atan2(-d.y() / ry, d.x() / rx) * 180.0 / std::numbers::pi;
}

}  // namespace

QPainterCanvas::QPainterCanvas(QPainter& painter, CanvasMapping mapping, TextFonts* fonts)
    : painter_(painter),
      mapping_(mapping),
      callerTransform_(painter.worldTransform()),
      transform_(callerTransform_),
      ownFonts_(fonts == nullptr ? std::make_unique<TextFonts>() : nullptr),
      fonts_(fonts != nullptr ? *fonts : *ownFonts_) {
    if (mapping_ == CanvasMapping::Hundredths) {
        const QPaintDevice* device = painter_.device();
        const double sx = device != nullptr ? device->logicalDpiX() / 2540.0 : 1.0;
        const double sy = device != nullptr ? device->logicalDpiY() / 2540.0 : 1.0;
        transform_ = QTransform::fromScale(sx, -sy) * callerTransform_;
    }
    if (!painter_.testRenderHint(QPainter::Antialiasing)) {
        painter_.setRenderHint(QPainter::Antialiasing, true);
    }
}

QPainterCanvas::~QPainterCanvas() {
    if (painter_.isActive()) {
        UseTransform(callerTransform_);
    }
}

void QPainterCanvas::UseTransform(const QTransform& transform) {
    if (painter_.worldTransform() != transform) {
        painter_.setWorldTransform(transform);
    }
}

void QPainterCanvas::UsePenOf(Colour colour, std::int32_t width, PenStyle style) {
    if (colour != penColour_ || width != penWidth_ || style != penStyle_) {
        pen_ = QPen(ToQColor(colour), width, ToQtStyle(style), Qt::RoundCap, Qt::RoundJoin);
        pen_.setCosmetic(false);
        penColour_ = colour;
        penWidth_ = width;
        penStyle_ = style;
    }
    if (painter_.pen() != pen_) {
        painter_.setPen(pen_);
    }
}

void QPainterCanvas::UseBrush(const QBrush& brush) {
    if (painter_.brush() != brush) {
        painter_.setBrush(brush);
    }
}

void QPainterCanvas::UsePen() {
    UseTransform(transform_);
    UsePenOf(PenColour(), PenWidth(), PenStyleNow());
}

void QPainterCanvas::UsePenAndFill(bool fill) {
    UsePen();
    if (!fill) {
        UseBrush(QBrush(Qt::NoBrush));
        return;
    }
    if (fill_.style() != Qt::SolidPattern || FillColour() != fillColour_) {
        fill_ = QBrush(ToQColor(FillColour()));
        fillColour_ = FillColour();
    }
    UseBrush(fill_);
}

void QPainterCanvas::MoveTo(std::int32_t x, std::int32_t y) {
    position_ = QPointF(x, y);
}

void QPainterCanvas::LineTo(std::int32_t x, std::int32_t y) {
    // A line is never filled: whatever brush the painter holds stays.
    UsePen();
    const QPointF to(x, y);
    painter_.drawLine(position_, to);
    position_ = to;
}

void QPainterCanvas::Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                         std::int32_t sx, std::int32_t sy, std::int32_t ex, std::int32_t ey) {
    const QRectF box = Box(x1, y1, x2, y2);
    const double start = QtAngleOfRay(box, QPointF(sx, sy));
    const double end = QtAngleOfRay(box, QPointF(ex, ey));
    // Counter-clockwise on the page: with y down Qt's positive turn is it; with the y-up
    // mapping the page is Qt's picture upside down, so the turn runs the other way.
    const double span =
        mapping_ == CanvasMapping::Pixels ? TurnFrom(end - start) : -TurnFrom(start - end);
    QPainterPath path;
    path.arcMoveTo(box, start);
    path.arcTo(box, start, span);
    UsePenAndFill(false);
    painter_.drawPath(path);
}

void QPainterCanvas::RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                               std::int32_t cornerWidth, std::int32_t cornerHeight) {
    const QRectF box = Box(x1, y1, x2, y2);
    const double rx = std::clamp(std::abs(cornerWidth) / 2.0, 0.0, box.width() / 2);
    const double ry = std::clamp(std::abs(cornerHeight) / 2.0, 0.0, box.height() / 2);
    UsePenAndFill(FillStyleNow() == FillStyle::Solid);
    painter_.drawRoundedRect(box, rx, ry, Qt::AbsoluteSize);
}

void QPainterCanvas::Polygon(std::span<const DevicePoint> points) {
    if (points.empty()) {
        return;
    }
    const std::size_t count = points.size();
    polygon_.clear();
    polygon_.reserve(static_cast<qsizetype>(count));
    for (const DevicePoint& point : points.first(count)) {
        polygon_ << QPointF(point.x, point.y);
    }
    UsePenAndFill(FillStyleNow() == FillStyle::Solid);
    painter_.drawPolygon(polygon_.constData(), static_cast<int>(polygon_.size()), Qt::OddEvenFill);
}

void QPainterCanvas::Text(std::int32_t x, std::int32_t y, std::string_view text,
                          std::string_view fontName, std::int32_t height, TextAlign align) {
    // Text is laid out in the device's own pixels so that it stays upright on the y-up mapping.
    const QPointF topLeft = transform_.map(QPointF(x, y));
    const double pixels = std::abs(height) * std::hypot(transform_.m21(), transform_.m22());
    TextFont& font =
        fonts_.Get(fontName, std::max(1, static_cast<int>(std::lround(pixels))), painter_.device());

    UseTransform(QTransform());
    if (font_ != &font || painter_.font() != painterFont_) {
        painter_.setFont(font.Font());
        font_ = &font;
        painterFont_ = painter_.font();
    }
    // Text is filled in the pen's colour; nothing else of the pen counts for it.
    const QPen& pen = painter_.pen();
    if (pen.style() == Qt::NoPen || pen.brush().style() != Qt::SolidPattern ||
        pen.color() != ToQColor(TextColour())) {
        UsePenOf(TextColour(), PenWidth(), PenStyle::Solid);
    }
    const QString line = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    double left = topLeft.x();
    if (align != TextAlign::Left) {
        const double width = font.Width(line);
        left -= align == TextAlign::Centre ? width / 2 : width;
    }
    painter_.drawText(QPointF(left, topLeft.y() + font.Ascent()), line);
}

}  // namespace zantor

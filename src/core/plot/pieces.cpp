#include "plot/pieces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <string_view>

namespace zantor {
namespace {

enum class Shape { Polyline, FilledPolygon, Circles, FilledCircles, Nothing };

struct PieceKind {
    std::string_view keyword;
    int pen;
    Shape shape;
};

constexpr std::array<PieceKind, 17> kPieceKinds{{
    {"OPEN", kPenOutline, Shape::Polyline},
    {"CLOSED", kPenOutline, Shape::Polyline},
    {"CIRCLE", kPenOutline, Shape::Circles},
    {"COPOPN", kPenCopper, Shape::Polyline},
    {"COPCLS", kPenCopper, Shape::FilledPolygon},
    {"COPCIR", kPenCopper, Shape::FilledCircles},
    {"COPCUT", kPenCutout, Shape::Polyline},
    {"CIRCUT", kPenCutout, Shape::Circles},
    {"KPTCLS", kPenKeepout, Shape::FilledPolygon},
    {"KPTCIR", kPenKeepout, Shape::FilledCircles},
    {"ARWLN1", kPenOutline, Shape::Polyline},
    {"ARWLN2", kPenOutline, Shape::Polyline},
    {"ARWHD1", kPenOutline, Shape::Polyline},
    {"ARWHD2", kPenOutline, Shape::Polyline},
    {"EXTLN1", kPenOutline, Shape::Polyline},
    {"EXTLN2", kPenOutline, Shape::Polyline},
    {"BASPNT", kPenOutline, Shape::Polyline},
}};

// Kinds that files after version 4 use in decals as well: grouping brackets round copper with its
// cutouts or round dimensions (nothing to draw), board outline circles and board cutouts, and
// copper cutout circles.
constexpr std::array<PieceKind, 5> kNewerPieceKinds{{
    {"TAG", kPenOutline, Shape::Nothing},
    {"BRDCIR", kPenOutline, Shape::Circles},
    {"BRDCUT", kPenOutline, Shape::Polyline},
    {"BRDCCO", kPenOutline, Shape::Circles},
    {"COPCCO", kPenCutout, Shape::Circles},
}};

// The extents count a different set of circles than the drawing in versions 3 and 4: CIRCUT by
// its corners only, and COPCCO (which their drawing rejects) as a circle.
constexpr std::array<std::string_view, 4> kExtentCircles{"CIRCLE", "COPCIR", "COPCCO", "KPTCIR"};

// Filled polygons are drawn with a fixed thin border whatever width the file gives.
constexpr double kFilledPieceWidth = 0.25;
// An arc of a filled piece becomes chords of at most this many degrees.
constexpr double kDegreesPerChord = 10;

std::optional<PieceKind> Classify(std::string_view keyword, bool newerKinds) {
    for (const PieceKind& kind : kPieceKinds) {
        if (kind.keyword == keyword) {
            return kind;
        }
    }
    if (newerKinds) {
        for (const PieceKind& kind : kNewerPieceKinds) {
            if (kind.keyword == keyword) {
                return kind;
            }
        }
    }
    return std::nullopt;
}

// Libraries keep 0 for the dotted style of old releases; PCB files write 0 for an ordinary solid
// line (the same decal has -1 in its library and 0 in a board).
PenStyle StyleOfLine(std::optional<std::int32_t> lineStyle, PieceLayout layout) {
    const std::int32_t style = lineStyle.value_or(-1);
    if (style == 0 && layout == PieceLayout::LayerThenLineStyle) {
        return PenStyle::Dot;
    }
    switch (style) {
        case -2:
            return PenStyle::Dash;
        case -3:
            return PenStyle::Dot;
        case -4:
            return PenStyle::DashDot;
        case -5:
            return PenStyle::DashDotDot;
        default:
            return PenStyle::Solid;
    }
}

// The circle of an arc's box.
struct ArcCircle {
    double cx, cy, r;
};

ArcCircle CircleOfBox(const PieceCorner& corner) {
    return {(corner.x1 + corner.x2) / 2, (corner.y1 + corner.y2) / 2,
            (std::fabs(corner.x2 - corner.x1) + std::fabs(corner.y2 - corner.y1)) / 4};
}

// The arc from `from` (which starts it) to `to`. The frame's arc runs counter-clockwise only; a
// clockwise arc is the same arc with its ends exchanged. A whole turn goes round in two halves so
// that it does not hang on the two ends meeting exactly.
void DrawArc(PlotFrame& frame, const PieceCorner& from, const PieceCorner& to, bool wholeTurns) {
    if (wholeTurns && std::fabs(from.sweep) >= 359.99) {
        const ArcCircle circle = CircleOfBox(from);
        const double ox = 2 * circle.cx - from.x;
        const double oy = 2 * circle.cy - from.y;
        frame.Arc(from.x1, from.y1, from.x2, from.y2, from.x, from.y, ox, oy);
        frame.Arc(from.x1, from.y1, from.x2, from.y2, ox, oy, from.x, from.y);
        return;
    }
    if (from.sweep >= 0) {
        frame.Arc(from.x1, from.y1, from.x2, from.y2, from.x, from.y, to.x, to.y);
    } else {
        frame.Arc(from.x1, from.y1, from.x2, from.y2, to.x, to.y, from.x, from.y);
    }
}

// Polygon points along the arc that `from` starts, between its ends: a filled piece of a later
// file keeps its rounded corners round.
void AddArcPoints(PlotFrame& frame, const PieceCorner& from, int& point) {
    const ArcCircle circle = CircleOfBox(from);
    const double start = std::atan2(from.y - circle.cy, from.x - circle.cx);
    const double sweep = std::clamp(from.sweep, -360.0, 360.0) * std::numbers::pi / 180;
    const int chords =
        std::max(1, static_cast<int>(std::ceil(std::fabs(from.sweep) / kDegreesPerChord)));
    for (int i = 1; i < chords && point < kPolygonPoints; ++i) {
        const double angle = start + sweep * i / chords;
        frame.AddPolygonPoint(++point, circle.cx + circle.r * std::cos(angle),
                              circle.cy + circle.r * std::sin(angle));
    }
}

// A line or polygon piece: arcs are drawn between corners of open outlines. Filled outlines use
// straight chords through the polygon buffer: between corners in versions 3 and 4, along the arc
// in later files.
void DrawOutline(PlotFrame& frame, const DecalPiece& piece, bool newer, bool filled) {
    const PieceCorner* previous = nullptr;
    int point = 0;
    int n = 0;
    for (const PieceCorner& corner : piece.corners) {
        ++n;
        RaiseIfAny(corner.fault);
        if (filled) {
            if (newer && previous != nullptr && previous->StartsArc()) {
                AddArcPoints(frame, *previous, point);
            }
            frame.AddPolygonPoint(newer ? ++point : n, corner.x, corner.y);
        } else if (previous == nullptr) {
            frame.MoveTo(corner.x, corner.y);
        } else if (previous->StartsArc()) {
            DrawArc(frame, *previous, corner, newer);
            frame.MoveTo(corner.x, corner.y);
        } else {
            frame.LineTo(corner.x, corner.y);
        }
        previous = &corner;
    }
    if (filled) {
        frame.FillPolygon();
    }
}

// Circle pieces: every corner after the first makes a circle with the first.
void DrawCircles(PlotFrame& frame, const DecalPiece& piece, bool diameter, bool filled,
                 double width) {
    double x1 = 0;
    double y1 = 0;
    int n = 0;
    for (const PieceCorner& corner : piece.corners) {
        ++n;
        RaiseIfAny(corner.fault);
        if (n == 1) {
            x1 = corner.x;
            y1 = corner.y;
            continue;
        }
        const double cx = (x1 + corner.x) / 2;
        const double cy = (y1 + corner.y) / 2;
        double r = 0;
        if (diameter) {
            r = std::hypot(corner.x - x1, corner.y - y1) / 2;
        } else {
            // Two corners on a horizontal or a vertical diameter give the exact circle.
            r = std::fabs(cx - x1) >= std::fabs(cy - y1) ? std::fabs(x1 - corner.x) / 2
                                                         : std::fabs(y1 - corner.y) / 2;
        }
        if (filled) {
            frame.FilledCircle(cx - r, cy - r, cx + r, cy + r, 2 * r);
        } else {
            frame.Circle(cx, cy, r, width);
        }
    }
}

bool IsExtentCircle(std::string_view keyword, const FileDialect& dialect) {
    if (dialect.circleRule == CircleRule::AxisDistance) {
        return std::find(kExtentCircles.begin(), kExtentCircles.end(), keyword) !=
               kExtentCircles.end();
    }
    const std::optional<PieceKind> kind = Classify(keyword, true);
    return kind && (kind->shape == Shape::Circles || kind->shape == Shape::FilledCircles);
}

}  // namespace

bool UnknownPieceReports::FirstTime(std::string_view keyword) {
    return reported_.emplace(keyword).second;
}

void DrawPieces(PlotFrame& frame, const Decal& decal, bool outlinesOnly, UserMessages& messages,
                UnknownPieceReports& reports) {
    const FileDialect& dialect = decal.header.dialect;
    for (const DecalPiece& piece : decal.pieces) {
        const std::optional<PieceKind> kind = Classify(piece.keyword, dialect.newerPieceKinds);
        if (!kind && !dialect.newerPieceKinds) {
            messages.ShowError("Unknown drawing item: " + piece.keyword);
            return;
        }
        RaiseIfAny(piece.countFault);
        if (!kind || kind->shape == Shape::Nothing) {
            if (!kind && reports.FirstTime(piece.keyword)) {
                messages.ShowError("Unknown drawing item: " + piece.keyword);
            }
            continue;
        }
        RaiseIfAny(piece.fieldFault);
        // Copper and cutouts may belong to a pin; outlines and keepouts never do.
        const bool readPin = kind->pen != kPenOutline && kind->pen != kPenKeepout;
        if (readPin) {
            RaiseIfAny(piece.pinFault);
        }
        const bool filledPolygon = kind->shape == Shape::FilledPolygon;
        const double width =
            filledPolygon ? kFilledPieceWidth
                          : piece.width * frame.Placement().unitFactor * frame.Placement().scale;
        int pen = kind->pen;
        if (readPin && piece.pin && *piece.pin >= 0) {
            pen = kPenPads;  // copper of a pin takes the pad colour
        }

        const Colour colour = frame.PenFor(pen, piece.layer);
        const bool drawn = (outlinesOnly == (pen == kPenOutline)) && colour != kNotPlotted;
        // The colour is set even for a piece this pass leaves to the other one.
        if (colour != kNotPlotted) {
            frame.SetColour(colour);
        }
        frame.SetPenWidth(width);
        frame.SetFillStyle(FillStyle::Solid);

        if (drawn) {
            const PenStyle before = frame.Canvas().PenStyleNow();
            const bool styled = piece.lineStyle && kind->pen == kPenOutline;
            if (styled) {
                frame.SetPenStyle(StyleOfLine(piece.lineStyle, dialect.pieceLayout));
            }
            switch (kind->shape) {
                case Shape::Polyline:
                case Shape::FilledPolygon:
                    DrawOutline(frame, piece, dialect.newerPieceKinds, filledPolygon);
                    break;
                case Shape::Circles:
                case Shape::FilledCircles:
                    DrawCircles(frame, piece, dialect.circleRule == CircleRule::Diameter,
                                kind->shape == Shape::FilledCircles, width);
                    break;
                case Shape::Nothing:
                    break;
            }
            if (styled) {
                frame.SetPenStyle(before);
            }
        }
    }
    frame.SetFillStyle(FillStyle::Solid);
}

void DrawPieces(PlotFrame& frame, const Decal& decal, bool outlinesOnly, UserMessages& messages) {
    UnknownPieceReports reports;
    DrawPieces(frame, decal, outlinesOnly, messages, reports);
}

void PieceExtents(const Decal& decal, DecalExtents& extents) {
    const FileDialect& dialect = decal.header.dialect;
    const bool diameter = dialect.circleRule == CircleRule::Diameter;
    for (const DecalPiece& piece : decal.pieces) {
        RaiseIfAny(piece.countFault);
        const bool circle = IsExtentCircle(piece.keyword, dialect);
        double firstX = 0;
        double firstY = 0;
        int n = 0;
        for (const PieceCorner& corner : piece.corners) {
            ++n;
            RaiseIfAny(corner.fault);
            extents.Widen(corner.x, corner.y);
            if (corner.StartsArc()) {
                extents.Widen(corner.x1, corner.y1);
                extents.Widen(corner.x2, corner.y2);
            }
            if (circle && n == 1) {
                firstX = corner.x;
                firstY = corner.y;
            } else if (circle && diameter) {
                const double r = std::hypot(corner.x - firstX, corner.y - firstY) / 2;
                const double cx = (firstX + corner.x) / 2;
                const double cy = (firstY + corner.y) / 2;
                extents.Widen(cx - r, cy - r);
                extents.Widen(cx + r, cy + r);
            } else if (circle && n == 2) {
                // The whole distance, not the radius: a circle on a horizontal diameter keeps
                // its full diameter free above and below its second corner.
                const double d = std::fabs(firstX - corner.x);
                extents.WidenY(corner.y + d);
                extents.WidenY(corner.y - d);
            }
        }
    }
}

}  // namespace zantor

#include "plot/pieces.h"

#include <array>
#include <cmath>
#include <optional>
#include <string_view>

#include "plot/record_fields.h"

namespace zantor {
namespace {

enum class Shape { Polyline, FilledPolygon, Circles, FilledCircles };

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

// The extents count a different set of circles than the drawing: CIRCUT by its corners only, and
// COPCCO (which the drawing rejects) as a circle.
constexpr std::array<std::string_view, 4> kExtentCircles{"CIRCLE", "COPCIR", "COPCCO", "KPTCIR"};

// Filled polygons are drawn with a fixed thin border whatever width the file gives.
constexpr double kFilledPieceWidth = 0.25;

std::optional<PieceKind> Classify(std::string_view keyword) {
    for (const PieceKind& kind : kPieceKinds) {
        if (kind.keyword == keyword) {
            return kind;
        }
    }
    return std::nullopt;
}

// A line or polygon piece: arcs are drawn between corners of open outlines, filled outlines use
// straight chords through the polygon buffer.
void DrawOutline(PlotFrame& frame, const DecalRecord& record, std::size_t first, int corners,
                 bool filled) {
    PieceCorner previous;
    for (int n = 1; n <= corners && first + (n - 1) < record.lines.size(); ++n) {
        const PieceCorner corner = ReadPieceCorner(record, first + (n - 1));
        if (filled) {
            frame.AddPolygonPoint(n, corner.x, corner.y);
        } else if (n == 1) {
            frame.MoveTo(corner.x, corner.y);
        } else if (previous.StartsArc()) {
            // The frame's arc runs counter-clockwise only; a clockwise arc is the same arc
            // with its ends exchanged.
            if (previous.sweep >= 0) {
                frame.Arc(previous.x1, previous.y1, previous.x2, previous.y2, previous.x,
                          previous.y, corner.x, corner.y);
            } else {
                frame.Arc(previous.x1, previous.y1, previous.x2, previous.y2, corner.x, corner.y,
                          previous.x, previous.y);
            }
            frame.MoveTo(corner.x, corner.y);
        } else {
            frame.LineTo(corner.x, corner.y);
        }
        previous = corner;
    }
    if (filled) {
        frame.FillPolygon();
    }
}

// Circle pieces: every corner after the first makes a circle with the first.
void DrawCircles(PlotFrame& frame, const DecalRecord& record, std::size_t first, int corners,
                 bool filled, double width) {
    double x1 = 0;
    double y1 = 0;
    for (int n = 1; n <= corners && first + (n - 1) < record.lines.size(); ++n) {
        const PieceCorner corner = ReadPieceCorner(record, first + (n - 1));
        if (n == 1) {
            x1 = corner.x;
            y1 = corner.y;
            continue;
        }
        const double cx = (x1 + corner.x) / 2;
        const double cy = (y1 + corner.y) / 2;
        // Two corners on a horizontal or a vertical diameter give the exact circle.
        const double r = std::fabs(cx - x1) >= std::fabs(cy - y1) ? std::fabs(x1 - corner.x) / 2
                                                                  : std::fabs(y1 - corner.y) / 2;
        if (filled) {
            frame.FilledCircle(cx - r, cy - r, cx + r, cy + r, 2 * r);
        } else {
            frame.Circle(cx, cy, r, width);
        }
    }
}

}  // namespace

void DrawPieces(PlotFrame& frame, const DecalRecord& record, bool outlinesOnly,
                UserMessages& messages) {
    if (record.counts.pieces == 0) {
        return;
    }
    std::size_t at = record.firstPiece;
    for (int piece = 0; piece < record.counts.pieces && at < record.lines.size(); ++piece) {
        const std::string keyword = ReadPieceKeyword(record, at);
        const std::optional<PieceKind> kind = Classify(keyword);
        if (!kind) {
            messages.ShowError("Unknown drawing item: " + keyword);
            return;
        }
        const bool readPin = kind->pen != kPenOutline && kind->pen != kPenKeepout;
        const PieceHeader header = ReadPieceHeader(record, at, readPin);
        const bool filledPolygon = kind->shape == Shape::FilledPolygon;
        const double width =
            filledPolygon ? kFilledPieceWidth : header.width * frame.UnitFactor * frame.Scale;
        int pen = kind->pen;
        if (header.pin && *header.pin >= 0) {
            pen = kPenPads;  // copper of a pin takes the pad colour
        }

        const Colour colour = frame.PenFor(pen, header.layer);
        const bool drawn = (outlinesOnly == (pen == kPenOutline)) && colour != kNotPlotted;
        // The colour is set even for a piece this pass leaves to the other one.
        if (colour != kNotPlotted) {
            frame.SetColour(colour);
        }
        frame.SetPenWidth(width);
        frame.SetFillStyle(FillStyle::Solid);

        const std::size_t firstCorner = at + 1;
        if (drawn) {
            switch (kind->shape) {
                case Shape::Polyline:
                case Shape::FilledPolygon:
                    DrawOutline(frame, record, firstCorner, header.corners, filledPolygon);
                    break;
                case Shape::Circles:
                case Shape::FilledCircles:
                    DrawCircles(frame, record, firstCorner, header.corners,
                                kind->shape == Shape::FilledCircles, width);
                    break;
            }
        }
        at = firstCorner + static_cast<std::size_t>(header.corners > 0 ? header.corners : 0);
    }
    frame.SetFillStyle(FillStyle::Solid);
}

void PieceExtents(const DecalRecord& record, DecalExtents& extents) {
    std::size_t at = record.firstPiece;
    for (int piece = 0; piece < record.counts.pieces && at < record.lines.size(); ++piece) {
        const PieceHeader header = ReadPieceCornerCount(record, at);
        bool circle = false;
        for (std::string_view keyword : kExtentCircles) {
            circle = circle || keyword == header.keyword;
        }
        ++at;
        double firstX = 0;
        for (int n = 1; n <= header.corners && at < record.lines.size(); ++n, ++at) {
            const PieceCorner corner = ReadPieceCorner(record, at);
            extents.Widen(corner.x, corner.y);
            if (corner.StartsArc()) {
                extents.Widen(corner.x1, corner.y1);
                extents.Widen(corner.x2, corner.y2);
            }
            if (circle && n == 1) {
                firstX = corner.x;
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

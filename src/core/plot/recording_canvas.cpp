#include "plot/recording_canvas.h"

#include <cstdio>
#include <initializer_list>
#include <string>

namespace zantor {
namespace {

std::string ColourText(Colour colour) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%06X", static_cast<unsigned>(colour) & 0xFFFFFFu);
    return buffer;
}

const char* PenStyleName(PenStyle style) {
    switch (style) {
        case PenStyle::Solid:
            return "solid";
        case PenStyle::Dash:
            return "dash";
        case PenStyle::Dot:
            return "dot";
        case PenStyle::DashDot:
            return "dashdot";
        case PenStyle::DashDotDot:
            return "dashdotdot";
        case PenStyle::Clear:
            return "clear";
    }
    return "solid";
}

std::string Quoted(std::string_view text) {
    std::string out = "\"";
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 32) {
            char buffer[8];
            std::snprintf(buffer, sizeof buffer, "\\x%02X", byte);
            out += buffer;
        } else {
            out += c;
        }
    }
    out += '"';
    return out;
}

void AppendNumbers(std::string& line, std::initializer_list<std::int32_t> numbers) {
    for (std::int32_t n : numbers) {
        line += ' ';
        line += std::to_string(n);
    }
}

}  // namespace

std::string RecordingCanvas::PenText() const {
    return "pen=" + ColourText(PenColour()) + "/" + std::to_string(PenWidth()) + "/" +
           PenStyleName(PenStyleNow());
}

std::string RecordingCanvas::FillText() const {
    return "fill=" + ColourText(FillColour()) + "/" +
           (FillStyleNow() == FillStyle::Solid ? "solid" : "none");
}

void RecordingCanvas::MoveTo(std::int32_t x, std::int32_t y) {
    std::string line = "move";
    AppendNumbers(line, {x, y});
    lines_.push_back(std::move(line));
}

void RecordingCanvas::LineTo(std::int32_t x, std::int32_t y) {
    std::string line = "line";
    AppendNumbers(line, {x, y});
    lines_.push_back(line + " " + PenText());
}

void RecordingCanvas::Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                          std::int32_t sx, std::int32_t sy, std::int32_t ex, std::int32_t ey) {
    std::string line = "arc";
    AppendNumbers(line, {x1, y1, x2, y2, sx, sy, ex, ey});
    lines_.push_back(line + " " + PenText());
}

void RecordingCanvas::RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                                std::int32_t cornerWidth, std::int32_t cornerHeight) {
    std::string line = "roundrect";
    AppendNumbers(line, {x1, y1, x2, y2, cornerWidth, cornerHeight});
    lines_.push_back(line + " " + PenText() + " " + FillText());
}

void RecordingCanvas::Polygon(std::span<const DevicePoint> points) {
    std::string line = "polygon " + std::to_string(points.size());
    for (const DevicePoint& point : points) {
        AppendNumbers(line, {point.x, point.y});
    }
    lines_.push_back(line + " " + PenText() + " " + FillText());
}

void RecordingCanvas::Text(std::int32_t x, std::int32_t y, std::string_view text,
                           std::string_view fontName, std::int32_t height, TextAlign align) {
    std::string line = align == TextAlign::Left     ? "text"
                       : align == TextAlign::Centre ? "text-centre"
                                                    : "text-right";
    AppendNumbers(line, {x, y, height});
    lines_.push_back(line + " " + Quoted(fontName) + " " + Quoted(text) +
                     " colour=" + ColourText(TextColour()));
}

std::string RecordingCanvas::Trace() const {
    std::string out;
    for (const std::string& line : lines_) {
        out += line;
        out += '\n';
    }
    return out;
}

}  // namespace zantor

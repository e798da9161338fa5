#include "font/stroke_text.h"

#include <cmath>
#include <numbers>

#include "common/errors.h"

namespace zantor {
namespace {

constexpr std::size_t kTextLimit = 80;
constexpr double kUnitsPerSize = 30.4;

}  // namespace

void DrawStrokeText(const StrokeFont& font, StrokeSink& sink, bool mirror, std::string_view text,
                    double x, double y, double rotation, double size) {
    // A height unit of 0 would send inf or NaN coordinates to the page; such a font is treated
    // like one whose glyphs point outside it.
    const int h6 = font.H6();
    if (h6 == 0) {
        throw RangeError("Font file height unit (byte 6) is 0");
    }
    // 16 / H6 here against 19 / H6 when measuring: the drawn text is narrower than the room the
    // extent reserves, which is how the font was meant to be used.
    double fx = (16.0 / h6) * size * (1 / kUnitsPerSize);
    const double fy = size * (1 / kUnitsPerSize);
    if (mirror) {
        fx = -fx;
    }
    const double angle = std::numbers::pi * rotation / 180;
    const double cosA = std::cos(angle);
    const double sinA = std::sin(angle);

    double penX = 0;
    double penY = 0;
    for (const char c : text.substr(0, kTextLimit)) {
        const int code = font.MapChar(static_cast<unsigned char>(c));
        bool penDown = false;
        font.ForEachPair(code, [&](std::uint8_t px, std::uint8_t py) {
            if (px == 255) {
                if (py == 254) {
                    penDown = false;
                }
                return;
            }
            const double dx = px * fx;
            const double dy = (py - 8) * fy;
            const double atX = x + penX + dx * cosA - dy * sinA;
            const double atY = y + penY + dx * sinA + dy * cosA;
            if (penDown) {
                sink.LineTo(atX, atY);
            } else {
                sink.MoveTo(atX, atY);
            }
            penDown = true;
        });
        // Drawing steps 4 units further than the advance; measuring does not.
        const double step = (font.Advance16(code) + 4) * fx;
        penX += step * cosA;
        penY += step * sinA;
    }
}

}  // namespace zantor

#pragma once

// Conversion of a Hershey font in James Hurt's .jhf text format into a PADS stroke font file, the
// format the program draws its library text with. Pure functions: text in, bytes out.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zantor::hershey {

// One Hershey glyph in its own coordinates (x to the right, y downward, 0 at the glyph's centre).
struct Glyph {
    struct Point {
        int x = 0;
        int y = 0;
        bool operator==(const Point&) const = default;
    };
    int left = 0;  // the glyph's left and right bounds: its spacing
    int right = 0;
    // The strokes in order; nullopt is a pen up between two strokes.
    std::vector<std::optional<Point>> points;
};

// The glyphs of a .jhf text in file order. A glyph's line may run on over following lines (the
// vertex count says how many pairs to read). FormatError (with `fileName` and the line) when a
// line is not a glyph.
std::vector<Glyph> ParseJhf(std::string_view text, const std::string& fileName = {});

// How Hershey coordinates become font units: y measured up from `baseline`, scaled by `up` above
// it and by `down` below it; x scaled by `up` from the glyph's left bound.
struct Scaling {
    int baseline = 0;
    double up = 1;
    double down = 1;
};

// The scaling for the glyphs of codes 32 upward: see the comment at its definition.
Scaling ChooseScaling(const std::vector<Glyph>& glyphs);

// The font file for the glyphs of codes 32 upward (at most up to code 126). FormatError when a
// glyph does not fit the file's bytes or the file would outgrow the 32001 bytes a font may use.
std::vector<std::uint8_t> WriteFont(const std::vector<Glyph>& glyphs, const Scaling& scaling);

// ParseJhf, ChooseScaling and WriteFont in one.
std::vector<std::uint8_t> ConvertJhf(std::string_view text, const std::string& fileName = {});

// The font file's height unit (header byte 6): with 16 the drawn text keeps the proportions of
// the font units, since the program scales x by 16 / H6.
inline constexpr int kHeightUnit = 16;

}  // namespace zantor::hershey

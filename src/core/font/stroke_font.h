#pragma once

// The PADS stroke font (ROMANSIM.FNT format): the file's bytes held whole, with the glyph
// directory read from them on demand.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/user_messages.h"

namespace zantor {

struct GlyphMetrics {
    double maxX = 0;  // largest x of any point, font units, floored at 0
    double maxY = 0;  // largest (y - 8) of any point, floored at 0
    int advance = 0;  // the directory's advance byte (low byte only)
};

struct TextExtent {
    double width = 0;
    double height = 0;
};

class StrokeFont {
  public:
    // LoadFont: "FONT-file missing." through `messages` and false when no file is at `path`;
    // IoError when it exists but cannot be read. Replaces any font held before (a failed load
    // keeps it). A path without a folder names a font shipped with the program
    // (ResolveFontfile, font/font_location.h).
    bool Load(const std::string& path, UserMessages& messages);
    // For tests and converters: takes the bytes of a font file as they are.
    void LoadBytes(std::vector<std::uint8_t> bytes);
    // FreeFont.
    void Free();
    bool Empty() const { return bytes_.empty(); }

    int H6() const;        // header byte 6
    int LastChar() const;  // header byte 24
    // Codes outside 32..LastChar map to '_'.
    int MapChar(unsigned char c) const;

    // Throw RangeError when a position lies past the font's bytes or past index 32000.
    GlyphMetrics Metrics(int code) const;
    TextExtent Extent(std::string_view text, double size) const;

    // For drawing: the absolute position of a glyph's point list, its 16-bit advance, and the byte
    // at a position (range-checked).
    std::size_t PointListPosition(int code) const;
    int Advance16(int code) const;
    std::uint8_t Byte(std::size_t index) const;
    // The same for a byte of character `code`'s glyph: the error names the character.
    std::uint8_t GlyphByte(std::size_t index, int code) const;

    // Calls visit(x, y) for every pair of the glyph's point list before its end mark (255, 255),
    // pen-up and ignored pairs included. A list without an end mark runs into the range check.
    template <typename Visit>
    void ForEachPair(int code, Visit&& visit) const {
        for (std::size_t p = PointListPosition(code);; p += 2) {
            const std::uint8_t x = GlyphByte(p, code);
            const std::uint8_t y = GlyphByte(p + 1, code);
            if (x == 255 && y == 255) {
                return;
            }
            visit(x, y);
        }
    }

  private:
    std::vector<std::uint8_t> bytes_;
};

}  // namespace zantor

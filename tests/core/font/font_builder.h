#pragma once

// Small stroke fonts built byte by byte, for exact numbers in the font tests.

#include <cstdint>
#include <map>
#include <vector>

namespace zantor::test {

struct TestGlyph {
    int advance = 0;                  // 16-bit, directory bytes 2-3
    std::vector<std::uint8_t> pairs;  // the point list as written, end mark included or not
};

// Header with H6 and LastChar, the directory of codes 32..lastChar and the glyphs' point lists.
// Codes without a glyph point at an end mark (an empty glyph) at the start of the stroke data.
inline std::vector<std::uint8_t> BuildFont(int h6, int lastChar,
                                           const std::map<int, TestGlyph>& glyphs) {
    const std::size_t strokeBase = 28 + 4 * static_cast<std::size_t>(lastChar - 30);
    std::vector<std::uint8_t> bytes(strokeBase, 0);
    bytes[6] = static_cast<std::uint8_t>(h6);
    bytes[24] = static_cast<std::uint8_t>(lastChar);
    bytes.push_back(255);
    bytes.push_back(255);
    for (const auto& [code, glyph] : glyphs) {
        const std::size_t entry = 28 + 4 * static_cast<std::size_t>(code - 32);
        const std::size_t offset = bytes.size() - strokeBase;
        bytes[entry] = static_cast<std::uint8_t>(offset & 0xFF);
        bytes[entry + 1] = static_cast<std::uint8_t>(offset >> 8);
        bytes[entry + 2] = static_cast<std::uint8_t>(glyph.advance & 0xFF);
        bytes[entry + 3] = static_cast<std::uint8_t>(glyph.advance >> 8);
        bytes.insert(bytes.end(), glyph.pairs.begin(), glyph.pairs.end());
    }
    return bytes;
}

// The font most tests use, LastChar 126.
//  'A': advance 0x112 (8-bit 0x12), two strokes: (0,8)-(5,28)-(10,8), pen up, (2,16)-(8,16)
//  'B': advance 6, (0,8) then an ignored pair (255,7) then (4,12)
//  'g': advance 8, (0,3)-(6,20): reaches below the baseline
//  '_': advance 14, (0,6)-(12,6): wholly below the baseline
//  ' ': advance 10, no points
inline std::vector<std::uint8_t> SampleFont(int h6) {
    return BuildFont(h6, 126,
                     {
                         {' ', {10, {255, 255}}},
                         {'A', {0x112, {0, 8, 5, 28, 10, 8, 255, 254, 2, 16, 8, 16, 255, 255}}},
                         {'B', {6, {0, 8, 255, 7, 4, 12, 255, 255}}},
                         {'_', {14, {0, 6, 12, 6, 255, 255}}},
                         {'g', {8, {0, 3, 6, 20, 255, 255}}},
                     });
}

}  // namespace zantor::test

#include "hershey2fnt/hershey_font.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

#include "common/errors.h"

namespace zantor::hershey {
namespace {

// In .jhf text a coordinate is a character, 'R' being 0.
constexpr int kOrigin = 'R';

// PADS font file layout.
constexpr std::size_t kH6Offset = 6;
constexpr std::size_t kLastCharOffset = 24;
constexpr std::size_t kDirectoryStart = 28;
constexpr int kFirstChar = 32;
constexpr int kLastChar = 126;
constexpr int kBaselineY = 8;
constexpr int kPenUp = 254;
constexpr int kEndMark = 255;
constexpr int kLargestCoordinate = 254;  // 255 marks pen-up and end pairs
constexpr std::size_t kFontBytes = 32001;
// The program draws a text of size s with s / 30.4 per font unit vertically.
constexpr double kUnitsPerSize = 30.4;
// A space between letters the program adds to every advance when it draws.
constexpr int kLetterGap = 4;

int ParseField(std::string_view field, const std::string& fileName, long line) {
    while (!field.empty() && field.front() == ' ') {
        field.remove_prefix(1);
    }
    int value = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error != std::errc() || end != field.data() + field.size()) {
        throw FormatError("Not a glyph line: expected a number in \"" + std::string(field) + "\"",
                          fileName, line);
    }
    return value;
}

Glyph ParseGlyph(std::string_view data) {
    Glyph glyph;
    glyph.left = data[0] - kOrigin;
    glyph.right = data[1] - kOrigin;
    for (std::size_t i = 2; i + 1 < data.size(); i += 2) {
        if (data[i] == ' ' && data[i + 1] == 'R') {
            glyph.points.emplace_back(std::nullopt);
        } else {
            glyph.points.emplace_back(Glyph::Point{data[i] - kOrigin, data[i + 1] - kOrigin});
        }
    }
    return glyph;
}

// The value most glyphs share (the smallest of equally common ones).
int MostCommon(const std::vector<int>& values) {
    std::map<int, int> counts;
    for (const int value : values) {
        ++counts[value];
    }
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

int Round(double value) {
    return static_cast<int>(std::lround(value));
}

void PutWord(std::vector<std::uint8_t>& bytes, std::size_t at, int value) {
    bytes[at] = static_cast<std::uint8_t>(value & 0xFF);
    bytes[at + 1] = static_cast<std::uint8_t>((value >> 8) & 0xFF);
}

std::string GlyphName(int code) {
    return std::string("glyph '") + static_cast<char>(code) + "'";
}

// A glyph's x origin: its left bound, or its leftmost point should one stick out.
int XOrigin(const Glyph& glyph) {
    int origin = glyph.left;
    for (const auto& point : glyph.points) {
        if (point && point->x < origin) {
            origin = point->x;
        }
    }
    return origin;
}

}  // namespace

std::vector<Glyph> ParseJhf(std::string_view text, const std::string& fileName) {
    std::vector<Glyph> glyphs;
    long lineNo = 0;
    auto nextLine = [&text, &lineNo]() {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        ++lineNo;
        return line;
    };
    while (!text.empty()) {
        const std::string_view line = nextLine();
        if (line.find_first_not_of(' ') == std::string_view::npos) {
            continue;
        }
        const long glyphLine = lineNo;
        if (line.size() < 8) {
            throw FormatError("Not a glyph line: too short", fileName, glyphLine);
        }
        ParseField(line.substr(0, 5), fileName, glyphLine);  // the Hershey number, unused
        const int count = ParseField(line.substr(5, 3), fileName, glyphLine);
        if (count < 1) {
            throw FormatError("Glyph without its left and right bounds", fileName, glyphLine);
        }
        const std::size_t wanted = 2 * static_cast<std::size_t>(count);
        std::string data(line.substr(8));
        while (data.size() < wanted && !text.empty()) {
            data += nextLine();
        }
        if (data.size() < wanted) {
            throw FormatError("Glyph ends early: " + std::to_string(count) + " pairs expected",
                              fileName, glyphLine);
        }
        if (data.find_first_not_of(' ', wanted) != std::string::npos) {
            throw FormatError("Glyph has more than its " + std::to_string(count) + " pairs",
                              fileName, glyphLine);
        }
        data.resize(wanted);
        glyphs.push_back(ParseGlyph(data));
    }
    return glyphs;
}

// The program's text size is the height of a capital letter, as in the CAD system, so the
// capitals are scaled to 30.4 font units (a capital drawn at size s is s tall). The baseline and
// the capital height are measured from the data: the bottom and top most capitals share (Q and J
// reach below). The font keeps its baseline at y = 8 and its y in a byte, so descenders at that
// scale would fall below 0: below the baseline the scale is reduced to fit the deepest point
// into those 8 units. Descenders come out a little shorter (in Roman Simplex about four fifths)
// in exchange for capitals of the right height. x uses the upper scale: with H6 = 16 the drawn
// letters keep their Hershey proportions.
Scaling ChooseScaling(const std::vector<Glyph>& glyphs) {
    std::vector<int> bottoms;
    std::vector<int> tops;
    for (int code = 'A'; code <= 'Z'; ++code) {
        const std::size_t index = static_cast<std::size_t>(code - kFirstChar);
        if (index >= glyphs.size()) {
            break;
        }
        int bottom = 0;
        int top = 0;
        bool any = false;
        for (const auto& point : glyphs[index].points) {
            if (point) {
                bottom = any ? std::max(bottom, point->y) : point->y;
                top = any ? std::min(top, point->y) : point->y;
                any = true;
            }
        }
        if (any) {
            bottoms.push_back(bottom);
            tops.push_back(top);
        }
    }
    if (bottoms.empty()) {
        throw FormatError("The font has no capital letters to measure its baseline from");
    }
    Scaling scaling;
    scaling.baseline = MostCommon(bottoms);
    const int capHeight = scaling.baseline - MostCommon(tops);
    if (capHeight <= 0) {
        throw FormatError("The font's capital letters have no height");
    }
    scaling.up = kUnitsPerSize / capHeight;
    scaling.down = scaling.up;
    int depth = 0;
    for (const auto& glyph : glyphs) {
        for (const auto& point : glyph.points) {
            if (point) {
                depth = std::max(depth, point->y - scaling.baseline);
            }
        }
    }
    if (depth > 0) {
        scaling.down = std::min(scaling.up, static_cast<double>(kBaselineY) / depth);
    }
    return scaling;
}

std::vector<std::uint8_t> WriteFont(const std::vector<Glyph>& glyphs, const Scaling& scaling) {
    if (glyphs.empty()) {
        throw FormatError("The font has no glyphs");
    }
    const int lastChar = std::min(kLastChar, kFirstChar + static_cast<int>(glyphs.size()) - 1);
    // The stroke data start one directory entry past the last one.
    const std::size_t strokeBase = kDirectoryStart + 4 * static_cast<std::size_t>(lastChar - 30);
    std::vector<std::uint8_t> bytes(strokeBase, 0);
    bytes[kH6Offset] = kHeightUnit;
    bytes[kLastCharOffset] = static_cast<std::uint8_t>(lastChar);

    for (int code = kFirstChar; code <= lastChar; ++code) {
        const Glyph& glyph = glyphs[static_cast<std::size_t>(code - kFirstChar)];
        const int origin = XOrigin(glyph);
        // Drawn, a letter takes its advance plus the gap; together they make the Hershey width.
        const int advance = std::max(0, Round((glyph.right - origin) * scaling.up) - kLetterGap);
        const std::size_t entry = kDirectoryStart + 4 * static_cast<std::size_t>(code - kFirstChar);
        PutWord(bytes, entry, static_cast<int>(bytes.size() - strokeBase));
        PutWord(bytes, entry + 2, advance);
        if (advance > 255) {
            throw FormatError(GlyphName(code) + " is too wide for the font file");
        }
        for (const auto& point : glyph.points) {
            if (!point) {
                bytes.push_back(kEndMark);
                bytes.push_back(kPenUp);
                continue;
            }
            const int height = scaling.baseline - point->y;
            const int x = Round((point->x - origin) * scaling.up);
            const int y = kBaselineY + Round(height * (height >= 0 ? scaling.up : scaling.down));
            if (x > kLargestCoordinate || y < 0 || y > kLargestCoordinate) {
                throw FormatError(GlyphName(code) + " does not fit the font file's coordinates");
            }
            bytes.push_back(static_cast<std::uint8_t>(x));
            bytes.push_back(static_cast<std::uint8_t>(y));
        }
        bytes.push_back(kEndMark);
        bytes.push_back(kEndMark);
    }
    if (bytes.size() > kFontBytes) {
        throw FormatError("The glyphs need " + std::to_string(bytes.size()) +
                          " bytes; a font file may use " + std::to_string(kFontBytes));
    }
    return bytes;
}

std::vector<std::uint8_t> ConvertJhf(std::string_view text, const std::string& fileName) {
    const std::vector<Glyph> glyphs = ParseJhf(text, fileName);
    return WriteFont(glyphs, ChooseScaling(glyphs));
}

}  // namespace zantor::hershey

#include "font/stroke_font.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "common/errors.h"
#include "font/font_location.h"

namespace zantor {
namespace {

// Font files are read as an array of bytes 0..32000; anything past it is not font data even when
// the file is longer.
constexpr std::size_t kLastFontIndex = 32000;
constexpr std::size_t kH6Offset = 6;
constexpr std::size_t kLastCharOffset = 24;
constexpr long kDirectoryStart = 28;
constexpr int kFirstChar = 32;
constexpr int kUnderscore = '_';
constexpr std::size_t kTextLimit = 80;
constexpr double kUnitsPerSize = 30.4;

std::string CharacterName(int code) {
    if (code >= 32 && code < 127) {
        return std::string("character '") + static_cast<char>(code) + "'";
    }
    return "character code " + std::to_string(code);
}

[[noreturn]] void OutOfRange(std::size_t index, const std::string& what) {
    throw RangeError("Font file data out of range at byte " + std::to_string(index) + " (" + what +
                     ")");
}

}  // namespace

bool StrokeFont::Load(const std::string& path, UserMessages& messages) {
    const std::filesystem::path file = ResolveFontfile(path);
    std::error_code error;
    if (file.empty() || !std::filesystem::exists(file, error)) {
        messages.ShowError("FONT-file missing.");
        return false;
    }
    // The bytes are kept as they are; whatever they hold is checked when a glyph is read. Bytes
    // past index 32000 can never be read, so a huge file chosen by mistake is not held whole.
    const std::uintmax_t fileSize = std::filesystem::file_size(file, error);
    std::ifstream in(file, std::ios::binary);
    if (error || !in) {
        throw IoError("Cannot read the font file.", file.string());
    }
    const std::uintmax_t size = std::min<std::uintmax_t>(fileSize, kLastFontIndex + 1);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    if (!in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size))) {
        throw IoError("Cannot read the font file.", file.string());
    }
    bytes_ = std::move(bytes);
    return true;
}

void StrokeFont::LoadBytes(std::vector<std::uint8_t> bytes) {
    bytes_ = std::move(bytes);
}

void StrokeFont::Free() {
    bytes_.clear();
    bytes_.shrink_to_fit();
}

std::uint8_t StrokeFont::Byte(std::size_t index) const {
    if (index > kLastFontIndex || index >= bytes_.size()) {
        OutOfRange(index, "font header");
    }
    return bytes_[index];
}

std::uint8_t StrokeFont::GlyphByte(std::size_t index, int code) const {
    if (index > kLastFontIndex || index >= bytes_.size()) {
        OutOfRange(index, CharacterName(code));
    }
    return bytes_[index];
}

int StrokeFont::H6() const {
    return Byte(kH6Offset);
}

int StrokeFont::LastChar() const {
    return Byte(kLastCharOffset);
}

int StrokeFont::MapChar(unsigned char c) const {
    return c >= kFirstChar && c <= LastChar() ? c : kUnderscore;
}

namespace {

// The directory entry of `code`; negative for codes below 32, which the range check refuses.
long EntryPosition(int code) {
    return kDirectoryStart + 4L * (code - kFirstChar);
}

std::size_t CheckedEntry(int code) {
    const long entry = EntryPosition(code);
    if (entry < 0) {
        throw RangeError("Font file has no glyph for " + CharacterName(code));
    }
    return static_cast<std::size_t>(entry);
}

}  // namespace

std::size_t StrokeFont::PointListPosition(int code) const {
    const std::size_t entry = CheckedEntry(code);
    // The stroke data start one directory entry past the last one; the sum is kept in 16 bits
    // the way the file format was laid out, so a LastChar below 30 wraps around.
    const auto strokeBase = static_cast<std::uint16_t>(kDirectoryStart + 4L * (LastChar() - 30));
    const std::size_t offset = GlyphByte(entry, code) + 256U * GlyphByte(entry + 1, code);
    const std::size_t position = strokeBase + offset;
    if (position >= 65536) {
        throw RangeError("Font file glyph position " + std::to_string(position) +
                         " out of range (" + CharacterName(code) + ")");
    }
    return position;
}

int StrokeFont::Advance16(int code) const {
    const std::size_t entry = CheckedEntry(code);
    return GlyphByte(entry + 2, code) + 256 * GlyphByte(entry + 3, code);
}

GlyphMetrics StrokeFont::Metrics(int code) const {
    GlyphMetrics metrics;
    ForEachPair(code, [&metrics](std::uint8_t x, std::uint8_t y) {
        if (x == 255) {
            return;
        }
        if (x > metrics.maxX) {
            metrics.maxX = x;
        }
        if (y - 8 > metrics.maxY) {
            metrics.maxY = y - 8;
        }
    });
    metrics.advance = GlyphByte(CheckedEntry(code) + 2, code);
    return metrics;
}

TextExtent StrokeFont::Extent(std::string_view text, double size) const {
    // A height unit of 0 would turn every width into inf or NaN; a font like that is as broken
    // as one whose glyphs point outside it, so it ends the operation the same way.
    const int h6 = H6();
    if (h6 == 0) {
        throw RangeError("Font file height unit (byte 6) is 0");
    }
    // Measuring scales by 19 / H6 and the 8-bit advance, while drawing uses 16 / H6 and the
    // 16-bit advance plus 4. The two disagree on purpose: the extent only reserves room.
    const double fx = size * (1 / kUnitsPerSize) / (h6 / 19.0);
    const double fy = size * (1 / kUnitsPerSize);
    text = text.substr(0, kTextLimit);
    TextExtent extent;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const GlyphMetrics metrics = Metrics(MapChar(static_cast<unsigned char>(text[i])));
        if (metrics.maxY * fy > extent.height) {
            extent.height = metrics.maxY * fy;
        }
        // The width ends at the last character's ink, not at its advance.
        extent.width += (i + 1 < text.size() ? metrics.advance : metrics.maxX) * fx;
    }
    return extent;
}

}  // namespace zantor

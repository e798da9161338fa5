#include "font/stroke_font.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/errors.h"
#include "core/font/font_builder.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using test::BuildFont;
using test::SampleFont;

StrokeFont FontOf(std::vector<std::uint8_t> bytes) {
    StrokeFont font;
    font.LoadBytes(std::move(bytes));
    return font;
}

// At size 30.4 the vertical factor is 1; with H6 = 16 measuring stretches x by 19 / 16.
constexpr double kSize = 30.4;
constexpr double kFx = 19.0 / 16.0;

TEST(StrokeFontMetrics, LargestPointAndAdvanceByte) {
    const StrokeFont font = FontOf(SampleFont(16));
    EXPECT_EQ(font.H6(), 16);
    EXPECT_EQ(font.LastChar(), 126);

    const GlyphMetrics a = font.Metrics('A');
    EXPECT_EQ(a.maxX, 10);
    EXPECT_EQ(a.maxY, 20);
    EXPECT_EQ(a.advance, 0x12);  // the low byte of the 16-bit advance 0x112

    // The ignored (255, 7) pair is neither a point nor the end.
    const GlyphMetrics b = font.Metrics('B');
    EXPECT_EQ(b.maxX, 4);
    EXPECT_EQ(b.maxY, 4);
    EXPECT_EQ(b.advance, 6);

    const GlyphMetrics space = font.Metrics(' ');
    EXPECT_EQ(space.maxX, 0);
    EXPECT_EQ(space.maxY, 0);
    EXPECT_EQ(space.advance, 10);

    // Wholly below the baseline: the height stays floored at 0.
    const GlyphMetrics underscore = font.Metrics('_');
    EXPECT_EQ(underscore.maxX, 12);
    EXPECT_EQ(underscore.maxY, 0);

    EXPECT_EQ(font.Advance16('A'), 0x112);
    EXPECT_EQ(font.Advance16('g'), 8);
}

TEST(StrokeFontMapping, CodesOutsideTheFontBecomeUnderscore) {
    const StrokeFont font = FontOf(SampleFont(16));
    EXPECT_EQ(font.MapChar(32), 32);
    EXPECT_EQ(font.MapChar('A'), 'A');
    EXPECT_EQ(font.MapChar(126), 126);
    for (const int code : {0, 9, 31, 127, 128, 196, 255}) {
        EXPECT_EQ(font.MapChar(static_cast<unsigned char>(code)), '_') << code;
    }
    // LastChar bounds the range, not the directory's size.
    const StrokeFont upperOnly = FontOf(BuildFont(16, 'Z', {}));
    EXPECT_EQ(upperOnly.MapChar('Z'), 'Z');
    EXPECT_EQ(upperOnly.MapChar('a'), '_');

    // Through a string, whose char may be signed: a tab and a byte above 127 measure as '_'.
    const TextExtent underscore = font.Extent("A_", kSize);
    EXPECT_DOUBLE_EQ(font.Extent("A\t", kSize).width, underscore.width);
    EXPECT_DOUBLE_EQ(font.Extent("A\xC4", kSize).width, underscore.width);
    EXPECT_DOUBLE_EQ(font.Extent("A\xFF", kSize).width, underscore.width);
}

TEST(StrokeFontExtent, WidthEndsAtTheLastCharactersInk) {
    const StrokeFont font = FontOf(SampleFont(16));
    const TextExtent empty = font.Extent("", kSize);
    EXPECT_EQ(empty.width, 0);
    EXPECT_EQ(empty.height, 0);

    const TextExtent one = font.Extent("A", kSize);
    EXPECT_DOUBLE_EQ(one.width, 10 * kFx);
    EXPECT_DOUBLE_EQ(one.height, 20);

    // Advance byte for all but the last, the last one's maxX; a trailing space adds nothing.
    EXPECT_DOUBLE_EQ(font.Extent("AB", kSize).width, (0x12 + 4) * kFx);
    EXPECT_DOUBLE_EQ(font.Extent("A ", kSize).width, 0x12 * kFx);
    EXPECT_DOUBLE_EQ(font.Extent(" A", kSize).width, (10 + 10) * kFx);

    // Both factors follow the size; H6 = 19 makes x and y alike.
    const TextExtent doubled = font.Extent("A", 2 * kSize);
    EXPECT_DOUBLE_EQ(doubled.width, 20 * kFx);
    EXPECT_DOUBLE_EQ(doubled.height, 40);
    const StrokeFont h19 = FontOf(SampleFont(19));
    EXPECT_DOUBLE_EQ(h19.Extent("A", kSize).width, 10);
}

TEST(StrokeFontExtent, HeightIsTheTallestCharacterAboveTheBaseline) {
    const StrokeFont font = FontOf(SampleFont(16));
    EXPECT_DOUBLE_EQ(font.Extent("gA", kSize).height, 20);
    EXPECT_DOUBLE_EQ(font.Extent("Ag", kSize).height, 20);
    EXPECT_DOUBLE_EQ(font.Extent("g", kSize).height, 12);
    // Points below the baseline never count.
    EXPECT_EQ(font.Extent("__", kSize).height, 0);
    EXPECT_DOUBLE_EQ(font.Extent("__", kSize).width, (14 + 12) * kFx);
}

TEST(StrokeFontExtent, MeasuresTheFirst80Characters) {
    const StrokeFont font = FontOf(SampleFont(16));
    const std::string eighty(80, 'A');
    const TextExtent expected = font.Extent(eighty, kSize);
    EXPECT_DOUBLE_EQ(expected.width, (79 * 0x12 + 10) * kFx);
    // An 81st character, even a taller or wider one, changes nothing.
    const TextExtent cut = font.Extent(eighty + "g", kSize);
    EXPECT_DOUBLE_EQ(cut.width, expected.width);
    EXPECT_DOUBLE_EQ(font.Extent(std::string(80, '_') + "A", kSize).height, 0);
}

std::string RangeMessage(const StrokeFont& font, int code) {
    try {
        font.Metrics(code);
    } catch (const RangeError& error) {
        return error.message();
    }
    return "no RangeError";
}

TEST(StrokeFontRange, DirectoryPastTheFontsBytes) {
    auto bytes = SampleFont(16);
    bytes.resize(100);  // the directory entry of 'A' lies at 160
    const StrokeFont font = FontOf(bytes);
    EXPECT_EQ(RangeMessage(font, 'A'), "Font file data out of range at byte 160 (character 'A')");
    EXPECT_THROW(font.Extent("xA", 10), RangeError);
    EXPECT_THROW(font.Advance16('A'), RangeError);
}

TEST(StrokeFontRange, PointListPastTheEnd) {
    auto bytes = SampleFont(16);
    bytes[28 + 4 * ('A' - 32) + 1] = 0x10;  // offset 0x1000 + low byte: far past the file
    const StrokeFont font = FontOf(bytes);
    EXPECT_THROW(font.Metrics('A'), RangeError);
    EXPECT_NO_THROW(font.Metrics('B'));
}

TEST(StrokeFontRange, PointListWithoutEndMark) {
    // The last glyph's list runs into the end of the file.
    const StrokeFont font = FontOf(BuildFont(16, 126, {{'A', {5, {0, 8, 5, 28, 255, 254, 3}}}}));
    const std::string message = RangeMessage(font, 'A');
    EXPECT_NE(message.find("(character 'A')"), std::string::npos) << message;
}

TEST(StrokeFontRange, NothingPastIndex32000IsRead) {
    // A long file of zero pairs: the walk finds no end mark and must stop at index 32001 even
    // though the file goes on.
    auto bytes = BuildFont(16, 126, {});
    bytes.resize(40000, 0);
    bytes[28 + 4 * ('A' - 32)] = 2;  // 'A' starts right after the empty glyph
    const StrokeFont font = FontOf(bytes);
    EXPECT_EQ(RangeMessage(font, 'A'), "Font file data out of range at byte 32001 (character 'A')");
    EXPECT_EQ(font.Byte(32000), 0);
    EXPECT_THROW(font.Byte(32001), RangeError);
}

TEST(StrokeFontRange, GlyphPositionBeyond16Bits) {
    // LastChar 0 wraps the stroke base to 65444; every code maps to '_', whose entry is read
    // anyway and points 100 further.
    auto bytes = BuildFont(16, 126, {});
    bytes[24] = 0;
    bytes[28 + 4 * ('_' - 32)] = 100;
    const StrokeFont font = FontOf(bytes);
    EXPECT_EQ(font.MapChar('A'), '_');
    EXPECT_THROW(font.PointListPosition('_'), RangeError);
    EXPECT_THROW(font.Extent("A", 10), RangeError);
}

TEST(StrokeFontRange, HeightUnitZeroIsAnError) {
    const StrokeFont font = FontOf(SampleFont(0));
    EXPECT_THROW(font.Extent("A", 10), RangeError);
    EXPECT_THROW(font.Extent("", 10), RangeError);
}

TEST(StrokeFontRange, EmptyFontHasNoHeader) {
    const StrokeFont font;
    EXPECT_TRUE(font.Empty());
    EXPECT_THROW(font.H6(), RangeError);
    EXPECT_THROW(font.Extent("A", 10), RangeError);
}

TEST(StrokeFontLoad, MissingFileIsReportedAndKeepsTheFont) {
    test::TempDir dir;
    RecordingMessages messages;
    StrokeFont font;
    EXPECT_FALSE(font.Load((dir.Path() / "none.fnt").string(), messages));
    EXPECT_TRUE(font.Empty());
    ASSERT_EQ(messages.Entries().size(), 1U);
    EXPECT_EQ(messages.Entries()[0].kind, RecordingMessages::Kind::Error);
    EXPECT_EQ(messages.Entries()[0].text, "FONT-file missing.");

    font.LoadBytes(SampleFont(16));
    EXPECT_FALSE(font.Load((dir.Path() / "none.fnt").string(), messages));
    EXPECT_EQ(font.H6(), 16);
}

TEST(StrokeFontLoad, KeepsTheFilesBytesAsTheyAre) {
    test::TempDir dir;
    const auto bytes = SampleFont(19);
    const auto path = dir.WriteFile("font.fnt", std::string(bytes.begin(), bytes.end()));
    RecordingMessages messages;
    StrokeFont font;
    ASSERT_TRUE(font.Load(path.string(), messages));
    EXPECT_TRUE(messages.Entries().empty());
    EXPECT_EQ(font.H6(), 19);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        ASSERT_EQ(font.Byte(i), bytes[i]) << i;
    }
    EXPECT_THROW(font.Byte(bytes.size()), RangeError);

    // No header check: any file loads, and a second load replaces the first.
    const auto other = dir.WriteFile("other.fnt", "not a font");
    ASSERT_TRUE(font.Load(other.string(), messages));
    EXPECT_EQ(font.Byte(0), 'n');
    EXPECT_THROW(font.Byte(10), RangeError);

    font.Free();
    EXPECT_TRUE(font.Empty());
}

TEST(StrokeFontLoad, LongFileKeepsTheReadableBytes) {
    test::TempDir dir;
    std::string content(40000, '\x07');
    content[32000] = '\x2A';
    const auto path = dir.WriteFile("long.fnt", content);
    RecordingMessages messages;
    StrokeFont font;
    ASSERT_TRUE(font.Load(path.string(), messages));
    EXPECT_EQ(font.Byte(32000), 0x2A);
    EXPECT_THROW(font.Byte(32001), RangeError);
}

TEST(StrokeFontLoad, UnreadableFileIsAnIoError) {
    test::TempDir dir;
    std::filesystem::create_directory(dir.Path() / "folder.fnt");
    RecordingMessages messages;
    StrokeFont font;
    EXPECT_THROW(font.Load((dir.Path() / "folder.fnt").string(), messages), IoError);
    EXPECT_TRUE(messages.Entries().empty());
}

}  // namespace
}  // namespace zantor

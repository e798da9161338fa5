#include "font/stroke_font.h"
#include "support/recording_messages.h"

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

TEST(StrokeFontMetrics, LargestPointAboveTheBaselineAndTheAdvanceByte) {
    const StrokeFont font = FontOf(SampleFont(16));
    EXPECT_EQ(font.H6(), 16);
    EXPECT_EQ(font.LastChar(), 126);
    struct Case {
        int code, maxX, maxY, advance;
    };
    const Case cases[] = {
        {'A', 10, 20, 0x12},  // the low byte of the 16-bit advance 0x112
        {'B', 4, 4, 6},       // the ignored (255, 7) pair is neither a point nor the end
        {' ', 0, 0, 10},
        {'_', 12, 0, 14},  // wholly below the baseline: the height stays floored at 0
    };
    for (const Case& c : cases) {
        const GlyphMetrics m = font.Metrics(c.code);
        EXPECT_EQ(m.maxX, c.maxX) << c.code;
        EXPECT_EQ(m.maxY, c.maxY) << c.code;
        EXPECT_EQ(m.advance, c.advance) << c.code;
    }
    EXPECT_EQ(font.Advance16('A'), 0x112);
}

TEST(StrokeFontMapping, CodesOutsideTheFontBecomeUnderscore) {
    const StrokeFont font = FontOf(SampleFont(16));
    EXPECT_EQ(font.MapChar(32), 32);
    EXPECT_EQ(font.MapChar(126), 126);
    for (const int code : {0, 31, 127, 196, 255}) {
        EXPECT_EQ(font.MapChar(static_cast<unsigned char>(code)), '_') << code;
    }
    // LastChar bounds the range, not the directory's size.
    const StrokeFont upperOnly = FontOf(BuildFont(16, 'Z', {}));
    EXPECT_EQ(upperOnly.MapChar('Z'), 'Z');
    EXPECT_EQ(upperOnly.MapChar('a'), '_');
    // Through a string, whose char may be signed: a byte above 127 measures as '_'.
    EXPECT_DOUBLE_EQ(font.Extent("A\xC4", kSize).width, font.Extent("A_", kSize).width);
}

TEST(StrokeFontExtent, WidthEndsAtTheLastCharactersInkAndHeightIgnoresDescenders) {
    const StrokeFont font = FontOf(SampleFont(16));
    EXPECT_EQ(font.Extent("", kSize).width, 0);
    const TextExtent one = font.Extent("A", kSize);
    EXPECT_DOUBLE_EQ(one.width, 10 * kFx);
    EXPECT_DOUBLE_EQ(one.height, 20);
    // Advance byte for all but the last, the last one's maxX; a trailing space adds nothing.
    EXPECT_DOUBLE_EQ(font.Extent("AB", kSize).width, (0x12 + 4) * kFx);
    EXPECT_DOUBLE_EQ(font.Extent("A ", kSize).width, 0x12 * kFx);
    EXPECT_DOUBLE_EQ(font.Extent("A", 2 * kSize).height, 40);
    EXPECT_DOUBLE_EQ(FontOf(SampleFont(19)).Extent("A", kSize).width, 10);

    EXPECT_DOUBLE_EQ(font.Extent("gA", kSize).height, 20);
    EXPECT_DOUBLE_EQ(font.Extent("g", kSize).height, 12);
    EXPECT_EQ(font.Extent("__", kSize).height, 0);

    // Only the first 80 characters count, even if the 81st is wider or taller.
    const std::string eighty(80, 'A');
    EXPECT_DOUBLE_EQ(font.Extent(eighty + "g", kSize).width, (79 * 0x12 + 10) * kFx);
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

TEST(StrokeFontRange, ReadsPastTheDataAreRangeErrors) {
    auto cut = SampleFont(16);
    cut.resize(100);  // the directory entry of 'A' lies at 160
    const StrokeFont directoryCut = FontOf(cut);
    EXPECT_EQ(RangeMessage(directoryCut, 'A'),
              "Font file data out of range at byte 160 (character 'A')");
    EXPECT_THROW(directoryCut.Extent("xA", 10), RangeError);
    EXPECT_THROW(directoryCut.Advance16('A'), RangeError);

    auto far = SampleFont(16);
    far[28 + 4 * ('A' - 32) + 1] = 0x10;  // offset 0x1000 + low byte: far past the file
    EXPECT_THROW(FontOf(far).Metrics('A'), RangeError);
    EXPECT_NO_THROW(FontOf(far).Metrics('B'));

    // The last glyph's list runs into the end of the file.
    const StrokeFont noEnd = FontOf(BuildFont(16, 126, {{'A', {5, {0, 8, 5, 28, 255, 254, 3}}}}));
    EXPECT_NE(RangeMessage(noEnd, 'A').find("(character 'A')"), std::string::npos);

    EXPECT_THROW(FontOf(SampleFont(0)).Extent("", 10), RangeError);  // H6 = 0
    const StrokeFont empty;
    EXPECT_THROW(empty.H6(), RangeError);
    EXPECT_THROW(empty.Extent("A", 10), RangeError);
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

    // LastChar 0 wraps the stroke base to 65444; every code maps to '_', whose entry is read
    // anyway and points 100 further.
    bytes = BuildFont(16, 126, {});
    bytes[24] = 0;
    bytes[28 + 4 * ('_' - 32)] = 100;
    const StrokeFont wrapped = FontOf(bytes);
    EXPECT_THROW(wrapped.PointListPosition('_'), RangeError);
    EXPECT_THROW(wrapped.Extent("A", 10), RangeError);
}

TEST(StrokeFontLoad, FilesLoadAsTheyAreOrAreReported) {
    test::TempDir dir;
    RecordingMessages messages;
    StrokeFont font;
    EXPECT_FALSE(font.Load((dir.Path() / "none.fnt").string(), messages));
    EXPECT_TRUE(font.Empty());
    ASSERT_EQ(messages.Entries().size(), 1U);
    EXPECT_EQ(messages.Entries()[0].kind, RecordingMessages::Kind::Error);
    EXPECT_EQ(messages.Entries()[0].text, "FONT-file missing.");

    // No header check: any file loads; bytes past 32000 are not kept.
    std::string content(40000, '\x07');
    content[32000] = '\x2A';
    ASSERT_TRUE(font.Load(dir.WriteFile("long.fnt", content).string(), messages));
    EXPECT_EQ(font.Byte(0), 7);
    EXPECT_EQ(font.Byte(32000), 0x2A);
    EXPECT_THROW(font.Byte(32001), RangeError);
    // A missing file keeps the font loaded before.
    EXPECT_FALSE(font.Load((dir.Path() / "none.fnt").string(), messages));
    EXPECT_EQ(font.Byte(32000), 0x2A);

    std::filesystem::create_directory(dir.Path() / "folder.fnt");
    EXPECT_THROW(font.Load((dir.Path() / "folder.fnt").string(), messages), IoError);
    EXPECT_EQ(messages.Entries().size(), 2U);
}

}  // namespace
}  // namespace zantor

#include "library/line_reader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "common/errors.h"
#include "support/test_support.h"

namespace zantor {
namespace {

std::vector<std::string> ReadAll(LineReader& reader) {
    std::vector<std::string> lines;
    std::string line;
    while (reader.ReadLine(line)) {
        lines.push_back(line);
    }
    return lines;
}

TEST(LineReader, StripsOnlyTheLineEndAndCountsLines) {
    // LF, CRLF and a CR alone (old Macintosh files) each end a line.
    std::istringstream in("first\r\nsecond\n\r\nfourth\r\n  \na\r\r\n\rb");
    LineReader reader(in, "memory");
    EXPECT_EQ(reader.LineNumber(), 0);
    EXPECT_EQ(ReadAll(reader),
              (std::vector<std::string>{"first", "second", "", "fourth", "  ", "a", "", "", "b"}));
    EXPECT_EQ(reader.LineNumber(), 9);
    EXPECT_TRUE(reader.AtEnd());
    std::string line = "old";
    EXPECT_FALSE(reader.ReadLine(line));
    EXPECT_EQ(line, "");
    EXPECT_EQ(reader.LineNumber(), 9);
}

TEST(LineReader, AtEndBeforeTheLastReadAndRewind) {
    test::TempDir dir;
    LineReader reader(dir.WriteFile("two.txt", "one\ntwo\n"));
    std::string line;
    reader.ReadLine(line);
    EXPECT_FALSE(reader.AtEnd());
    reader.ReadLine(line);
    EXPECT_TRUE(reader.AtEnd());
    reader.Rewind();
    EXPECT_EQ(reader.LineNumber(), 0);
    EXPECT_EQ(ReadAll(reader), (std::vector<std::string>{"one", "two"}));
    LineReader empty(dir.WriteFile("empty.d", ""));
    EXPECT_TRUE(empty.AtEnd());
}

TEST(LineReader, EveryLineIsReadAgainFromItsStart) {
    std::istringstream in("first\r\nsecond line\n\nfourth\r\nlast without end");
    LineReader reader(in, "text");
    std::vector<std::streamoff> starts;
    std::vector<std::string> lines;
    std::string line;
    while (reader.ReadLine(line)) {
        starts.push_back(reader.LineStart());
        lines.push_back(line);
    }
    EXPECT_EQ(starts, (std::vector<std::streamoff>{0, 7, 19, 20, 28}));
    for (std::size_t i = lines.size(); i-- > 0;) {
        reader.SeekLine(starts[i], static_cast<long>(i) + 1);
        ASSERT_TRUE(reader.ReadLine(line));
        EXPECT_EQ(line, lines[i]);
        EXPECT_EQ(reader.LineNumber(), static_cast<long>(i) + 1);
    }
    reader.Rewind();
    reader.ReadLine(line);
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(reader.LineStart(), 7);
}

TEST(LineReader, OverlongLinesAreCutNotHeld) {
    std::istringstream in(std::string(LineReader::kMaxLineLength + 10, 'x') + "\nnext\n");
    LineReader reader(in, "memory");
    std::string line;
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(line.size(), LineReader::kMaxLineLength);
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(line, "next");
    EXPECT_EQ(reader.LineNumber(), 2);
}

// Lines of the given lengths, each ended by `end` (the last one too when `finalEnd`).
std::string Text(const std::vector<std::size_t>& lengths, const std::string& end, bool finalEnd) {
    std::string text;
    char letter = 'a';
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        text.append(lengths[i], letter);
        letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1);
        if (i + 1 < lengths.size() || finalEnd) {
            text += end;
        }
    }
    return text;
}

TEST(LineReader, LineEndsAcrossBlockBoundaries) {
    // Line ends placed on every side of the boundaries of the blocks the reader takes, a CRLF
    // split over two blocks included.
    constexpr std::size_t block = LineReader::kBlockSize;
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        for (std::size_t first = block - 3; first <= block + 1; ++first) {
            for (bool finalEnd : {true, false}) {
                const std::vector<std::size_t> lengths{first, block - 1, 0, 5, 2 * block + 7, 1};
                std::istringstream in(Text(lengths, end, finalEnd));
                LineReader reader(in, "memory");
                std::vector<std::string> lines;
                std::vector<std::streamoff> starts;
                std::string line;
                while (reader.ReadLine(line)) {
                    lines.push_back(line);
                    starts.push_back(reader.LineStart());
                }
                SCOPED_TRACE("line end " + std::to_string(end.size()) + " bytes, first line " +
                             std::to_string(first));
                ASSERT_EQ(lines.size(), lengths.size());
                std::streamoff start = 0;
                for (std::size_t i = 0; i < lengths.size(); ++i) {
                    EXPECT_EQ(lines[i].size(), lengths[i]);
                    EXPECT_EQ(starts[i], start);
                    start += static_cast<std::streamoff>(lengths[i] + end.size());
                }
                EXPECT_TRUE(reader.AtEnd());
                // Back to a line of an earlier block.
                reader.SeekLine(starts[1], 2);
                ASSERT_TRUE(reader.ReadLine(line));
                EXPECT_EQ(line, lines[1]);
                ASSERT_TRUE(reader.ReadLine(line));
                EXPECT_EQ(line, "");
                EXPECT_EQ(reader.LineNumber(), 3);
            }
        }
    }
}

TEST(LineReader, ACarriageReturnAtTheEndOfABlockEndsOneLine) {
    // "x...x\r" fills the block exactly; the next block starts with the LF of the CRLF, or with
    // a CR of its own (an empty line), or with the next line.
    const std::string full(LineReader::kBlockSize - 1, 'x');
    const std::vector<std::pair<std::string, std::vector<std::string>>> cases{
        {full + "\r\nnext", {full, "next"}},
        {full + "\r\rnext\n", {full, "", "next"}},
        {full + "\rnext\r", {full, "next"}},
        {full + "\r", {full}},
    };
    for (const auto& [text, expected] : cases) {
        std::istringstream in(text);
        LineReader reader(in, "memory");
        EXPECT_EQ(ReadAll(reader), expected);
    }
}

TEST(LineReader, OpenFailuresNameTheFileAndTheReason) {
    test::TempDir dir;
    auto missing = dir.Path() / "missing.d";
    try {
        LineReader reader(missing);
        FAIL() << "no error";
    } catch (const IoError& error) {
        EXPECT_EQ(error.file(), missing.string());
        EXPECT_EQ(error.message(), "cannot open the file: No such file or directory");
    }
    try {
        LineReader reader(dir.Path());
        FAIL() << "no error";
    } catch (const IoError& error) {
        EXPECT_EQ(error.message(), "cannot open the file: it is a folder, not a file");
    }
}

}  // namespace
}  // namespace zantor

#include "library/line_reader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
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

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

TEST(LineReader, StripsCrLfAndLfAlikeAndCountsLines) {
    std::istringstream in("first\r\nsecond\n\r\nfourth\r\n  \nlast");
    LineReader reader(in, "memory");
    EXPECT_EQ(reader.LineNumber(), 0);
    std::string line;
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(line, "first");
    EXPECT_EQ(reader.LineNumber(), 1);
    EXPECT_EQ(ReadAll(reader), (std::vector<std::string>{"second", "", "fourth", "  ", "last"}));
    EXPECT_EQ(reader.LineNumber(), 6);
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_FALSE(reader.ReadLine(line));
    EXPECT_EQ(line, "");
    EXPECT_EQ(reader.LineNumber(), 6);
}

TEST(LineReader, OnlyTheLineEndIsRemoved) {
    std::istringstream in("a\r\r\n\rb\n\n");
    LineReader reader(in, "memory");
    EXPECT_EQ(ReadAll(reader), (std::vector<std::string>{"a\r", "\rb", ""}));
}

TEST(LineReader, AtEndBeforeTheLastReadAndRewind) {
    test::TempDir dir;
    LineReader reader(dir.WriteFile("two.txt", "one\ntwo\n"));
    std::string line;
    EXPECT_FALSE(reader.AtEnd());
    reader.ReadLine(line);
    EXPECT_FALSE(reader.AtEnd());
    reader.ReadLine(line);
    EXPECT_TRUE(reader.AtEnd());
    reader.Rewind();
    EXPECT_EQ(reader.LineNumber(), 0);
    EXPECT_EQ(ReadAll(reader), (std::vector<std::string>{"one", "two"}));
}

TEST(LineReader, AnEmptyFileHasNoLine) {
    test::TempDir dir;
    LineReader reader(dir.WriteFile("empty.d", ""));
    EXPECT_TRUE(reader.AtEnd());
    std::string line = "old";
    EXPECT_FALSE(reader.ReadLine(line));
    EXPECT_EQ(line, "");
}

TEST(LineReader, OverlongLinesAreCutNotHeld) {
    std::string longLine(LineReader::kMaxLineLength + 10, 'x');
    std::istringstream in(longLine + "\nnext\n");
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

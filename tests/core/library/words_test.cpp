#include "library/words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"

namespace zantor {
namespace {

TEST(TakeWord, SkipsLeadingBlanksAndRemovesWordAndOneBlank) {
    std::string line = "   CLOSED 5  0.1 26";
    EXPECT_EQ(TakeWord(line), "CLOSED");
    EXPECT_EQ(line, "5  0.1 26");
    EXPECT_EQ(TakeWord(line), "5");
    EXPECT_EQ(line, " 0.1 26");
    EXPECT_EQ(TakeWord(line), "0.1");
    EXPECT_EQ(TakeWord(line), "26");
    EXPECT_EQ(TakeWord(line), "");
    std::string blanks = "    ";
    EXPECT_EQ(TakeWord(blanks), "");
    EXPECT_EQ(blanks, "");
    // Other separators keep empty parts and blanks.
    std::string_view list = "DIP14:: X";
    EXPECT_EQ(TakeWord(list, ':'), "DIP14");
    EXPECT_EQ(TakeWord(list, ':'), "");
    EXPECT_EQ(TakeWord(list, ':'), " X");
    EXPECT_TRUE(list.empty());
}

TEST(WholeNumber, ConvertsDecimalWholeNumbersOnly) {
    EXPECT_EQ(WholeNumber(""), 0);
    EXPECT_EQ(WholeNumber("-2"), -2);
    EXPECT_EQ(WholeNumber("+7"), 7);
    EXPECT_EQ(WholeNumber(" 12 "), 12);
    EXPECT_EQ(WholeNumber("007"), 7);
    for (const char* word : {"1.5", "12a", "x", "-", "+", "0x10", "1e3", "--1", "+-1"}) {
        EXPECT_THROW(WholeNumber(word), ConversionError) << word;
    }
    EXPECT_THROW(WholeNumber("99999999999999999999"), RangeError);
    try {
        WholeNumber("abc", {"lib.d", 17});
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.file(), "lib.d");
        EXPECT_EQ(error.line(), 17);
        EXPECT_STREQ(error.what(), "lib.d:17: \"abc\" is not a whole number");
    }
}

TEST(RealNumber, UsesAPointWhateverTheLocaleAndIsFinite) {
    EXPECT_DOUBLE_EQ(RealNumber(""), 0.0);
    EXPECT_DOUBLE_EQ(RealNumber("-0.635"), -0.635);
    EXPECT_DOUBLE_EQ(RealNumber("+2.5"), 2.5);
    EXPECT_DOUBLE_EQ(RealNumber(".5"), 0.5);
    EXPECT_DOUBLE_EQ(RealNumber("5."), 5.0);
    EXPECT_DOUBLE_EQ(RealNumber("1e3"), 1000.0);
    for (const char* word : {"1,5", "-", ".", "1.2.3", "inf", "nan", "abc", "0x1p3", "1.5mm"}) {
        EXPECT_THROW(RealNumber(word), ConversionError) << word;
    }
    EXPECT_THROW(RealNumber("1e999"), RangeError);
}

TEST(TrimBlanks, RemovesBlanksAndControlCharactersAtBothEnds) {
    EXPECT_EQ(TrimBlanks(" \t PAD 0 3 \r"), "PAD 0 3");
    EXPECT_EQ(TrimBlanks("   "), "");
    EXPECT_TRUE(IsBlankLine(" \t\r"));
    EXPECT_FALSE(IsBlankLine(" x "));
    EXPECT_EQ(CutTo("abcdef", 4), "abcd");
    EXPECT_EQ(CutTo("ab", 4), "ab");
}

}  // namespace
}  // namespace zantor

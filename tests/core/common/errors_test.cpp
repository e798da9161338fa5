#include <gtest/gtest.h>

#include "common/errors.h"
#include "common/user_messages.h"
#include "support/recording_messages.h"

namespace zantor {
namespace {

TEST(Errors, WhatNamesFileAndLineWhenKnown) {
    EXPECT_STREQ(ConversionError("bad number").what(), "bad number");
    EXPECT_STREQ(IoError("cannot open", "lib.d").what(), "lib.d: cannot open");
    FormatError error("count is not a number", "lib.d", 12);
    EXPECT_STREQ(error.what(), "lib.d:12: count is not a number");
    EXPECT_EQ(error.message(), "count is not a number");
    EXPECT_EQ(error.line(), 12);
    // Every kind is caught where an operation starts as the one base class.
    EXPECT_THROW(throw RangeError("x"), Error);
}

TEST(RecordingMessages, KeepsOrderAndAnswersFromQueue) {
    RecordingMessages messages;
    messages.QueueYesNo(true);
    messages.QueueText(std::string("Manufacturer"));
    messages.ShowInfo("Number too large.");
    EXPECT_TRUE(messages.AskYesNo("Erase current attribute-list?"));
    EXPECT_FALSE(messages.AskYesNo("again?"));  // no reply left: No
    EXPECT_EQ(messages.AskText("New attribute name", "", 4), "Manu");
    EXPECT_EQ(messages.AskText("New attribute name", "", 32), std::nullopt);
    ASSERT_EQ(messages.Entries().size(), 5u);
    EXPECT_EQ(messages.Entries()[0].kind, RecordingMessages::Kind::Info);
    EXPECT_EQ(messages.Texts()[1], "Erase current attribute-list?");
}

}  // namespace
}  // namespace zantor

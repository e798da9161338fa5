#include "library/number_check.h"
#include "support/recording_messages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"

namespace zantor {
namespace {

TEST(CheckNumber, TheFirstFailingCheckSpeaks) {
    struct Case {
        const char* text;
        int maxLength, decimals;
        double maximum, minimum;
        const char* message;  // empty: accepted
    };
    const Case cases[] = {
        // A layer cell: 3 characters, no decimals, 0 to 250.
        {"250", 3, 0, 250, 0, ""},
        {"", 3, 0, 250, 0, ""},
        {"12.", 3, 0, 250, 0, ""},  // a trailing point has no decimals after it
        {"251", 3, 0, 250, 0, "Number too large."},
        {"1000", 3, 0, 250, 0, "Too many digits in number."},
        {"1.5", 3, 0, 250, 0, "Too many decimals in number."},
        {"-1", 3, 0, 250, 0, "Negative number not allowed."},
        {"Any", 3, 0, 250, 0, "Illegal character in number."},
        // Too long wins over an illegal character, an illegal character over decimals and sign.
        {"1a2b", 3, 0, 250, 0, "Too many digits in number."},
        {"1.5x", 5, 0, 250, 0, "Illegal character in number."},
        {"-1.55", 6, 1, 250, 0, "Too many decimals in number."},
        {"-300", 6, 0, 250, 0, "Negative number not allowed."},
        {"1,5", 5, 2, 250, 0, "Illegal character in number."},
        {"+5", 5, 2, 250, 0, "Illegal character in number."},
        {"1e3", 5, 2, 5000, 0, "Illegal character in number."},
        {" 5", 5, 2, 250, 0, "Illegal character in number."},
        // Signs where the minimum is negative.
        {"5-3", 5, 0, 100, -100, "Sign misplaced."},
        {"--3", 5, 0, 100, -100, "Sign misplaced."},
        {"-100", 5, 0, 100, -100, ""},
        {"-101", 5, 0, 100, -100, "Number too small."},
        // Bounds are included; decimals count before the range.
        {"2.54", 6, 2, 2.54, 0.5, ""},
        {".5", 6, 2, 2.54, 0.5, ""},
        {"2.541", 6, 3, 2.54, 0.5, "Number too large."},
        {"0.49", 6, 2, 2.54, 0.5, "Number too small."},
        {"0.499", 6, 2, 2.54, 0.5, "Too many decimals in number."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        RecordingMessages messages;
        const bool accepted =
            CheckNumber(c.text, c.maxLength, c.decimals, c.maximum, c.minimum, messages);
        const std::string message = c.message;
        EXPECT_EQ(accepted, message.empty());
        EXPECT_EQ(messages.Texts(),
                  message.empty() ? std::vector<std::string>{} : std::vector{message});
        for (const auto& entry : messages.Entries()) {
            EXPECT_EQ(entry.kind, RecordingMessages::Kind::Info);
        }
    }
}

TEST(CheckNumber, TextsThatAreNoNumberFailTheConversion) {
    RecordingMessages messages;
    EXPECT_THROW(CheckNumber(".", 3, 0, 250, 0, messages), ConversionError);
    EXPECT_THROW(CheckNumber("-", 3, 0, 250, -5, messages), ConversionError);
    EXPECT_THROW(CheckNumber("1.2.3", 9, 5, 250, 0, messages), ConversionError);
    EXPECT_TRUE(messages.Entries().empty());
}

}  // namespace
}  // namespace zantor

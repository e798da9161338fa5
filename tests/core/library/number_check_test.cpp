#include "library/number_check.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"

namespace zantor {
namespace {

// The check with the bounds of a layer cell: 3 characters, no decimals, 0 to 250.
struct Outcome {
    bool accepted;
    std::vector<std::string> messages;
};

Outcome Check(const std::string& text, int maxLength, int decimals, double maximum,
              double minimum) {
    RecordingMessages messages;
    bool accepted = CheckNumber(text, maxLength, decimals, maximum, minimum, messages);
    for (const auto& entry : messages.Entries()) {
        EXPECT_EQ(entry.kind, RecordingMessages::Kind::Info);
    }
    return {accepted, messages.Texts()};
}

Outcome LayerCell(const std::string& text) {
    return Check(text, 3, 0, 250, 0);
}

void ExpectRejected(const Outcome& outcome, const std::string& message) {
    EXPECT_FALSE(outcome.accepted);
    EXPECT_EQ(outcome.messages, std::vector<std::string>{message});
}

void ExpectAccepted(const Outcome& outcome) {
    EXPECT_TRUE(outcome.accepted);
    EXPECT_TRUE(outcome.messages.empty());
}

TEST(CheckNumber, LayerCellBounds) {
    ExpectAccepted(LayerCell("250"));
    ExpectAccepted(LayerCell("0"));
    ExpectAccepted(LayerCell(""));
    ExpectRejected(LayerCell("251"), "Number too large.");
    ExpectRejected(LayerCell("1000"), "Too many digits in number.");
    ExpectRejected(LayerCell("1.5"), "Too many decimals in number.");
    ExpectRejected(LayerCell("-1"), "Negative number not allowed.");
    ExpectRejected(LayerCell("Any"), "Illegal character in number.");
    // A trailing point has no decimals after it.
    ExpectAccepted(LayerCell("12."));
}

TEST(CheckNumber, ChecksRunInOrderAndTheFirstFailureSpeaks) {
    // Too long wins over an illegal character, an illegal character over decimals and sign.
    ExpectRejected(Check("1a2b", 3, 0, 250, 0), "Too many digits in number.");
    ExpectRejected(Check("1.5x", 5, 0, 250, 0), "Illegal character in number.");
    ExpectRejected(Check("-1.55", 6, 1, 250, 0), "Too many decimals in number.");
    ExpectRejected(Check("-300", 6, 0, 250, 0), "Negative number not allowed.");
    ExpectRejected(Check("1,5", 5, 2, 250, 0), "Illegal character in number.");
    ExpectRejected(Check("+5", 5, 2, 250, 0), "Illegal character in number.");
    ExpectRejected(Check("1e3", 5, 2, 5000, 0), "Illegal character in number.");
    ExpectRejected(Check(" 5", 5, 2, 250, 0), "Illegal character in number.");
}

TEST(CheckNumber, SignWithANegativeMinimum) {
    ExpectRejected(Check("5-3", 5, 0, 100, -100), "Sign misplaced.");
    ExpectRejected(Check("--3", 5, 0, 100, -100), "Sign misplaced.");
    ExpectAccepted(Check("-3", 5, 0, 100, -100));
    ExpectRejected(Check("-101", 5, 0, 100, -100), "Number too small.");
    ExpectAccepted(Check("-100", 5, 0, 100, -100));
}

TEST(CheckNumber, RangeBoundsAreIncludedAndDecimalsCount) {
    ExpectAccepted(Check("2.54", 6, 2, 2.54, 0.5));
    ExpectRejected(Check("2.541", 6, 3, 2.54, 0.5), "Number too large.");
    ExpectRejected(Check("0.49", 6, 2, 2.54, 0.5), "Number too small.");
    ExpectRejected(Check("0.499", 6, 2, 2.54, 0.5), "Too many decimals in number.");
    ExpectAccepted(Check(".5", 6, 2, 2.54, 0.5));
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

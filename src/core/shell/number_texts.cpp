#include "shell/number_texts.h"

#include <array>

#include "common/errors.h"

namespace zantor {
namespace {

using NumberTable = std::array<std::string, kNumberTextCount>;

NumberTable MakeNumberTable() {
    NumberTable table;
    for (int number = 1; number <= kNumberTextCount; ++number) {
        table[static_cast<std::size_t>(number - 1)] = std::to_string(number);
    }
    return table;
}

}  // namespace

const std::string& NumberText(int number) {
    // Built once on first use and never changed afterwards.
    static const NumberTable table = MakeNumberTable();
    if (number < 1 || number > kNumberTextCount) {
        throw RangeError("Pin number " + std::to_string(number) + " is outside 1 to " +
                         std::to_string(kNumberTextCount));
    }
    return table[static_cast<std::size_t>(number - 1)];
}

}  // namespace zantor

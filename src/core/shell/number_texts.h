#pragma once

// The decimal texts of the numbers 1 to 2048, which the parttype run uses to name pins that
// have no name of their own.

#include <string>

namespace zantor {

inline constexpr int kNumberTextCount = 2048;

// The text of `number` ("1" to "2048"); a number outside 1 to 2048 throws RangeError.
const std::string& NumberText(int number);

}  // namespace zantor

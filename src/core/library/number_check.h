#pragma once

// The check of a number typed into a grid cell (the layer numbers of the decal setup): length,
// characters, decimals, sign and range, in that order, with one message for the first failure.

#include <string_view>

#include "common/user_messages.h"

namespace zantor {

// True when `text` is acceptable: an empty text always is. Otherwise exactly one information
// message says what is wrong and the result is false. A text that passes the character checks
// but is no number ("-", ".") is a ConversionError from the number conversion.
bool CheckNumber(std::string_view text, int maxLength, int decimals, double maximum, double minimum,
                 UserMessages& messages);

}  // namespace zantor

#pragma once

// Numbers as the settings store keeps them in text. The text never depends on the locale: the
// decimal separator is always ".", so a store written under one language reads the same under
// any other.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zantor {

// A real number with blanks around it allowed; nullopt for anything else, also for infinities
// and NaN, which no setting can use.
std::optional<double> ParseSettingsReal(std::string_view text);

// A whole number in the range of a signed 32-bit integer, blanks around it allowed.
std::optional<std::int32_t> ParseSettingsInteger(std::string_view text);

// The shortest text that reads back as exactly `value` ("4", "2.5", "1.4285714285714286").
std::string FormatSettingsReal(double value);

}  // namespace zantor

#include "shell/settings_numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

namespace zantor {
namespace {

std::string_view TrimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    const auto last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

}  // namespace

std::optional<double> ParseSettingsReal(std::string_view text) {
    const std::string_view number = TrimBlanks(text);
    if (number.empty()) {
        return std::nullopt;
    }
    double value = 0;
    const char* end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::int32_t> ParseSettingsInteger(std::string_view text) {
    const std::string_view number = TrimBlanks(text);
    if (number.empty()) {
        return std::nullopt;
    }
    std::int32_t value = 0;
    const char* end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

std::string FormatSettingsReal(double value) {
    // Large enough for the longest shortest form of a double ("-2.2250738585072014e-308").
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc()) {
        return "0";  // cannot happen with the buffer above
    }
    return std::string(text.data(), end);
}

}  // namespace zantor

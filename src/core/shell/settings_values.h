#pragma once

// How the settings record's kinds of values live in the store, for one section at a time:
// texts as strings (cut to their field's capacity when read), reals as locale-free text, flags as
// booleans, integers as integers or, for a few, as text, and letters as one-character strings.
// A stored value that cannot be used ends the load with an error that names it.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "shell/settings_store.h"

namespace zantor {

// The values a number setting can take: from `min` (or, with `aboveMin`, anything above it) up to
// `max`. A stored number outside them would make pages that cannot be drawn.
struct NumberRange {
    double min = 0;
    double max = 0;
    bool aboveMin = false;
    bool Holds(double value) const {
        return (aboveMin ? value > min : value >= min) && value <= max;
    }
};

class SettingsReader {
  public:
    SettingsReader(const SettingsStore& store, std::string_view section)
        : store_(store), section_(section) {}

    std::string Text(std::string_view name, std::string_view fallback) const;
    std::string Text(std::string_view name, std::string_view fallback, std::size_t capacity) const;
    // A stored text that is not a number throws ConversionError.
    double Real(std::string_view name, double fallback) const;
    double Real(std::string_view name, std::string_view fallbackText) const;
    std::int32_t Integer(std::string_view name, std::int32_t fallback) const;
    // An integer kept as text; a text that is not a whole number throws ConversionError.
    std::int32_t TextInteger(std::string_view name, std::int32_t fallback) const;
    // The same, and a number outside `range` throws RangeError naming the setting and the range.
    double Real(std::string_view name, double fallback, const NumberRange& range) const;
    std::int32_t Integer(std::string_view name, std::int32_t fallback,
                         const NumberRange& range) const;
    std::int32_t TextInteger(std::string_view name, std::int32_t fallback,
                             const NumberRange& range) const;
    bool Flag(std::string_view name, bool fallback) const;
    // The first character of the stored text; an empty text throws RangeError.
    char Letter(std::string_view name, char fallback) const;

  private:
    // `value` when `range` holds it, else the RangeError.
    double InRange(std::string_view name, double value, const NumberRange& range) const;

    const SettingsStore& store_;
    std::string section_;
};

class SettingsWriter {
  public:
    SettingsWriter(SettingsStore& store, std::string_view section)
        : store_(store), section_(section) {}

    void Text(std::string_view name, std::string_view value);
    void Real(std::string_view name, double value);
    void Integer(std::string_view name, std::int32_t value);
    void TextInteger(std::string_view name, std::int32_t value);
    void Flag(std::string_view name, bool value);
    void Letter(std::string_view name, char value);

  private:
    SettingsStore& store_;
    std::string section_;
};

}  // namespace zantor

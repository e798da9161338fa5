#include "shell/settings_values.h"

#include "common/errors.h"
#include "shell/plot_settings.h"
#include "shell/settings_numbers.h"

namespace zantor {

std::string SettingsReader::Text(std::string_view name, std::string_view fallback) const {
    return store_.ReadString(section_, name, fallback);
}

std::string SettingsReader::Text(std::string_view name, std::string_view fallback,
                                 std::size_t capacity) const {
    return CutToCapacity(Text(name, fallback), capacity);
}

double SettingsReader::Real(std::string_view name, double fallback) const {
    return Real(name, FormatSettingsReal(fallback));
}

double SettingsReader::Real(std::string_view name, std::string_view fallbackText) const {
    const std::string text = Text(name, fallbackText);
    if (const auto value = ParseSettingsReal(text)) {
        return *value;
    }
    throw ConversionError(SettingsValueMessage(section_, name, "is not a number", text),
                          store_.Location());
}

std::int32_t SettingsReader::Integer(std::string_view name, std::int32_t fallback) const {
    return store_.ReadInteger(section_, name, fallback);
}

std::int32_t SettingsReader::TextInteger(std::string_view name, std::int32_t fallback) const {
    const std::string text = Text(name, std::to_string(fallback));
    if (const auto value = ParseSettingsInteger(text)) {
        return *value;
    }
    throw ConversionError(SettingsValueMessage(section_, name, "is not a whole number", text),
                          store_.Location());
}

double SettingsReader::Real(std::string_view name, double fallback,
                            const NumberRange& range) const {
    return InRange(name, Real(name, fallback), range);
}

std::int32_t SettingsReader::Integer(std::string_view name, std::int32_t fallback,
                                     const NumberRange& range) const {
    return static_cast<std::int32_t>(InRange(name, Integer(name, fallback), range));
}

std::int32_t SettingsReader::TextInteger(std::string_view name, std::int32_t fallback,
                                         const NumberRange& range) const {
    return static_cast<std::int32_t>(InRange(name, TextInteger(name, fallback), range));
}

double SettingsReader::InRange(std::string_view name, double value,
                               const NumberRange& range) const {
    if (range.Holds(value)) {
        return value;
    }
    const std::string limits = (range.aboveMin ? "above " : "from ") +
                               FormatSettingsReal(range.min) + " up to " +
                               FormatSettingsReal(range.max);
    throw RangeError(SettingsValueMessage(section_, name, "is out of range (" + limits + ")",
                                          Text(name, FormatSettingsReal(value))),
                     store_.Location());
}

bool SettingsReader::Flag(std::string_view name, bool fallback) const {
    return store_.ReadBool(section_, name, fallback);
}

char SettingsReader::Letter(std::string_view name, char fallback) const {
    const std::string text = Text(name, std::string_view(&fallback, 1));
    if (text.empty()) {
        throw RangeError(SettingsValueMessage(section_, name, "is not a letter", text),
                         store_.Location());
    }
    return text.front();
}

void SettingsWriter::Text(std::string_view name, std::string_view value) {
    store_.WriteString(section_, name, value);
}

void SettingsWriter::Real(std::string_view name, double value) {
    store_.WriteString(section_, name, FormatSettingsReal(value));
}

void SettingsWriter::Integer(std::string_view name, std::int32_t value) {
    store_.WriteInteger(section_, name, value);
}

void SettingsWriter::TextInteger(std::string_view name, std::int32_t value) {
    store_.WriteString(section_, name, std::to_string(value));
}

void SettingsWriter::Flag(std::string_view name, bool value) {
    store_.WriteBool(section_, name, value);
}

void SettingsWriter::Letter(std::string_view name, char value) {
    store_.WriteString(section_, name, std::string_view(&value, 1));
}

}  // namespace zantor

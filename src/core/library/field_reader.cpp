#include "library/field_reader.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "library/words.h"

namespace zantor {
namespace {

// from_chars takes a leading "-" but not a "+"; PADS writers and users type both.
std::string_view WithoutPlus(std::string_view word) {
    if (word.size() > 1 && word.front() == '+' && word[1] != '-' && word[1] != '+') {
        word.remove_prefix(1);
    }
    return word;
}

}  // namespace

std::string BadFieldMessage(const FieldPlace& place, std::string_view field,
                            std::string_view expected, std::string_view found) {
    std::string message = "the " + std::string(field);
    if (!place.item.empty()) {
        message += " of " + std::string(place.item);
        if (place.number > 0) {
            message += " " + std::to_string(place.number);
        }
        if (!place.partOf.empty()) {
            message +=
                " of " + std::string(place.partOf) + " " + std::to_string(place.partOfNumber);
        }
    }
    message += " of decal " + std::string(place.decal) + " is not " + std::string(expected) +
               ": \"" + std::string(found) + "\"";
    return message;
}

FieldFault FieldFault::Of(const Error& error) {
    FieldFault fault;
    if (dynamic_cast<const ConversionError*>(&error) != nullptr) {
        fault.kind_ = Kind::Conversion;
    } else if (dynamic_cast<const RangeError*>(&error) != nullptr) {
        fault.kind_ = Kind::Range;
    }
    fault.message_ = error.message();
    fault.file_ = error.file();
    fault.line_ = error.line();
    return fault;
}

void FieldFault::Raise() const {
    switch (kind_) {
        case Kind::Conversion:
            throw ConversionError(message_, file_, line_);
        case Kind::Range:
            throw RangeError(message_, file_, line_);
        case Kind::Format:
            break;
    }
    throw FormatError(message_, file_, line_);
}

std::string_view FieldReader::Word() {
    return TakeWord(rest_);
}

bool FieldReader::HasWord() const {
    return !TrimBlanks(rest_).empty();
}

bool FieldReader::NextIsNumber() const {
    std::string_view rest = rest_;
    const std::string_view word = WithoutPlus(TakeWord(rest));
    double value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return !word.empty() && error == std::errc() && end == word.data() + word.size() &&
           std::isfinite(value);
}

double FieldReader::Real(std::string_view field) {
    const std::string_view word = Word();
    const std::string_view number = WithoutPlus(TrimBlanks(word));
    if (number.empty()) {
        return 0.0;
    }
    double value = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        Fail(FieldFault::Kind::Range, field, "a number within the range of numbers", word);
    }
    // "inf" and "nan" convert, but no coordinate or size of a library is either.
    if (error != std::errc() || end != number.data() + number.size() || !std::isfinite(value)) {
        Fail(FieldFault::Kind::Conversion, field, "a number", word);
    }
    return value;
}

long long FieldReader::WholeIn(std::string_view field, long long low, long long high) {
    const std::string_view word = Word();
    const std::string_view number = WithoutPlus(TrimBlanks(word));
    long long value = 0;
    if (number.empty()) {
        return 0;
    }
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    const auto outOfRange = [&] {
        Fail(FieldFault::Kind::Range, field,
             "a whole number from " + std::to_string(low) + " to " + std::to_string(high), word);
    };
    if (error == std::errc::result_out_of_range) {
        outOfRange();
    }
    if (error != std::errc() || end != number.data() + number.size()) {
        Fail(FieldFault::Kind::Conversion, field, "a whole number", word);
    }
    if (value < low || value > high) {
        outOfRange();
    }
    return value;
}

std::int32_t FieldReader::Whole(std::string_view field) {
    return static_cast<std::int32_t>(WholeIn(field, std::numeric_limits<std::int32_t>::min(),
                                             std::numeric_limits<std::int32_t>::max()));
}

std::optional<std::int32_t> FieldReader::OptionalWhole(std::string_view field) {
    if (!HasWord()) {
        return std::nullopt;
    }
    return Whole(field);
}

std::string_view FieldReader::Rest() const {
    std::string_view rest = rest_;
    while (!rest.empty() && static_cast<unsigned char>(rest.back()) <= ' ') {
        rest.remove_suffix(1);
    }
    return rest;
}

void FieldReader::Fail(FieldFault::Kind kind, std::string_view field, std::string_view expected,
                       std::string_view found) const {
    const std::string message = BadFieldMessage(place_, field, expected, found);
    const std::string file(place_.file);
    switch (kind) {
        case FieldFault::Kind::Conversion:
            throw ConversionError(message, file, place_.line);
        case FieldFault::Kind::Range:
            throw RangeError(message, file, place_.line);
        case FieldFault::Kind::Format:
            break;
    }
    throw FormatError(message, file, place_.line);
}

}  // namespace zantor

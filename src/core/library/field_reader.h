#pragma once

// Reading the fields of one body line of a decal record, and the one wording of a field that does
// not read:
//
//     lib.d:42: the size of a pad stack line of decal SO8 is not a number: "3x5"
//
// (file and line, the field and the item it belongs to, what was expected, what was found). Every
// reader of record lines in library/ takes its words off with a FieldReader, so that a bad number
// reads the same wherever it stands.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "common/errors.h"

namespace zantor {

// Where a line stands and what it belongs to, for the messages of its fields: "piece 2",
// "a corner of piece 2", "terminal 3", "a pad stack". Only a message puts the words together.
struct FieldPlace {
    std::string_view file;    // "" when unknown
    long line = 0;            // 0 when unknown
    std::string_view decal;   // the decal's name
    std::string_view item;    // "" for the decal itself
    int number = 0;           // of the item, when it has one (> 0)
    std::string_view partOf;  // the item it is part of, with its number
    int partOfNumber = 0;
};

// The message of a field that is not what it should be: "the <field> of <item> of decal <decal>
// is not <expected>: "<found>"".
std::string BadFieldMessage(const FieldPlace& place, std::string_view field,
                            std::string_view expected, std::string_view found);

// An error of a field kept for later: a model item whose field does not read fails only when it
// is drawn or measured, with the error it would have thrown while being read.
class FieldFault {
  public:
    enum class Kind { Conversion, Range, Format };

    // The fault of `error` (a ConversionError, RangeError or FormatError; anything else counts as
    // a FormatError).
    static FieldFault Of(const Error& error);

    // Throws the error again, of its kind.
    [[noreturn]] void Raise() const;

    const std::string& Message() const { return message_; }
    friend bool operator==(const FieldFault&, const FieldFault&) = default;

  private:
    Kind kind_ = Kind::Format;
    std::string message_;
    std::string file_;
    long line_ = 0;
};

// Raises `fault` when there is one.
inline void RaiseIfAny(const std::optional<FieldFault>& fault) {
    if (fault) {
        fault->Raise();
    }
}

// Takes blank-separated words off the front of a line and converts them. A missing word reads
// as 0; a number that does not convert is a ConversionError (one beyond its type's range a
// RangeError) in the wording of BadFieldMessage.
class FieldReader {
  public:
    FieldReader(std::string_view line, const FieldPlace& place) : rest_(line), place_(place) {}

    std::string_view Word();
    // Whether a word is left on the line.
    bool HasWord() const;
    // Whether the next word reads as a number (without taking it).
    bool NextIsNumber() const;
    double Real(std::string_view field);
    std::int32_t Whole(std::string_view field);
    // A whole number within `low` to `high`.
    long long WholeIn(std::string_view field, long long low, long long high);
    // The whole number of the next word, or nullopt when the line has no word left.
    std::optional<std::int32_t> OptionalWhole(std::string_view field);
    // What is left of the line after the last word and the one blank after it, without trailing
    // blanks (blanks after that first one stay).
    std::string_view Rest() const;

    const FieldPlace& Place() const { return place_; }
    // Throws the error of `kind` for a field whose word is not what `expected` says.
    [[noreturn]] void Fail(FieldFault::Kind kind, std::string_view field, std::string_view expected,
                           std::string_view found) const;

  private:
    std::string_view rest_;
    FieldPlace place_;
};

}  // namespace zantor

#pragma once

// Word operations on library text lines. A PADS line is a row of fields separated by blanks; every
// reader of library text takes its fields off the front of a line with these, so that the rules
// for blanks, empty fields and numbers are the same everywhere.

#include <cstddef>
#include <string>
#include <string_view>

namespace zantor {

// Where a word came from, for the error message of a failed conversion (file "" and line 0 when
// unknown).
struct TextPlace {
    std::string_view file;
    long line = 0;
};

// Takes the next word off the front of `line`: leading separators (blanks) are skipped when the
// separator is a blank, the word ends at the first separator, and the word and that separator are
// removed from the line. Without a separator the whole rest is the word and the line becomes
// empty. With another separator (":" in decal lists) nothing is skipped, so "a::b" yields "a",
// "" and "b".
std::string_view TakeWord(std::string_view& line, char separator = ' ');
std::string TakeWord(std::string& line, char separator = ' ');

// The whole number of a word: 0 for an empty word. A word that is not a whole number in decimal
// (an optional sign, then digits only) is a ConversionError, one outside the 64-bit range a
// RangeError.
long long WholeNumber(std::string_view word, const TextPlace& place = {});

// The real number of a word, always with "." as the decimal point whatever the locale: 0 for an
// empty word. Text that is not a finite number is a ConversionError, a number beyond the range of
// a double a RangeError.
double RealNumber(std::string_view word, const TextPlace& place = {});

// `text` without the blanks and control characters (codes up to 32) at both ends.
std::string_view TrimBlanks(std::string_view text);
// Whether `text` is empty after TrimBlanks: the end of a record.
bool IsBlankLine(std::string_view text);

// At most the first `maxLength` characters of `text`.
std::string_view CutTo(std::string_view text, std::size_t maxLength);

}  // namespace zantor

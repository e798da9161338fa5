#include "library/words.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "common/errors.h"

namespace zantor {
namespace {

bool IsBlankOrControl(char c) {
    return static_cast<unsigned char>(c) <= ' ';
}

// from_chars accepts a leading "-" but not a "+"; PADS writers and users type both.
std::string_view WithoutPlus(std::string_view word) {
    if (word.size() > 1 && word.front() == '+' && word[1] != '-' && word[1] != '+') {
        word.remove_prefix(1);
    }
    return word;
}

std::string Quoted(std::string_view word) {
    return "\"" + std::string(word) + "\"";
}

}  // namespace

std::string_view TakeWord(std::string_view& line, char separator) {
    if (separator == ' ') {
        std::size_t start = line.find_first_not_of(' ');
        line.remove_prefix(start == std::string_view::npos ? line.size() : start);
    }
    std::size_t end = line.find(separator);
    std::string_view word = line.substr(0, end);
    line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    return word;
}

std::string TakeWord(std::string& line, char separator) {
    std::string_view rest = line;
    std::string word(TakeWord(rest, separator));
    line.erase(0, line.size() - rest.size());
    return word;
}

long long WholeNumber(std::string_view word, const TextPlace& place) {
    word = WithoutPlus(TrimBlanks(word));
    if (word.empty()) {
        return 0;
    }
    long long value = 0;
    auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error == std::errc::result_out_of_range) {
        throw RangeError(Quoted(word) + " is too large for a whole number", std::string(place.file),
                         place.line);
    }
    if (error != std::errc() || end != word.data() + word.size()) {
        throw ConversionError(Quoted(word) + " is not a whole number", std::string(place.file),
                              place.line);
    }
    return value;
}

double RealNumber(std::string_view word, const TextPlace& place) {
    word = WithoutPlus(TrimBlanks(word));
    if (word.empty()) {
        return 0.0;
    }
    double value = 0.0;
    auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error == std::errc::result_out_of_range) {
        throw RangeError(Quoted(word) + " is out of the range of numbers", std::string(place.file),
                         place.line);
    }
    // "inf" and "nan" convert, but no coordinate or size of a library is either.
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(value)) {
        throw ConversionError(Quoted(word) + " is not a number", std::string(place.file),
                              place.line);
    }
    return value;
}

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlankOrControl(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlankOrControl(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool IsBlankLine(std::string_view text) {
    return TrimBlanks(text).empty();
}

std::string_view CutTo(std::string_view text, std::size_t maxLength) {
    return text.substr(0, maxLength);
}

}  // namespace zantor

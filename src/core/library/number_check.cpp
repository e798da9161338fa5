#include "library/number_check.h"

#include <string>

#include "library/words.h"

namespace zantor {
namespace {

bool Fails(UserMessages& messages, const char* text) {
    messages.ShowInfo(text);
    return false;
}

}  // namespace

bool CheckNumber(std::string_view text, int maxLength, int decimals, double maximum, double minimum,
                 UserMessages& messages) {
    if (maxLength < 0 || text.size() > static_cast<std::size_t>(maxLength)) {
        return Fails(messages, "Too many digits in number.");
    }
    if (text.empty()) {
        return true;
    }
    if (text.find_first_not_of("0123456789.-") != std::string_view::npos) {
        return Fails(messages, "Illegal character in number.");
    }
    std::size_t point = text.find('.');
    if (point != std::string_view::npos) {
        std::size_t after = text.size() - point - 1;
        if (decimals < 0 || after > static_cast<std::size_t>(decimals)) {
            return Fails(messages, "Too many decimals in number.");
        }
    }
    if (minimum < 0) {
        if (text.find('-', 1) != std::string_view::npos) {
            return Fails(messages, "Sign misplaced.");
        }
    } else if (text.find('-') != std::string_view::npos) {
        return Fails(messages, "Negative number not allowed.");
    }
    double value = RealNumber(text);
    if (value > maximum) {
        return Fails(messages, "Number too large.");
    }
    if (value < minimum) {
        return Fails(messages, "Number too small.");
    }
    return true;
}

}  // namespace zantor

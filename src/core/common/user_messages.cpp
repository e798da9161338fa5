#include "common/user_messages.h"

#include <iostream>

namespace zantor {

void StderrMessages::ShowError(const std::string& text) {
    hadError_ = true;
    std::cerr << text << '\n';
}

void StderrMessages::ShowInfo(const std::string& text) {
    std::cerr << text << '\n';
}

bool StderrMessages::AskYesNo(const std::string& question) {
    std::cerr << question << " (answered No: no terminal dialog)\n";
    return false;
}

std::optional<std::string> StderrMessages::AskText(const std::string& prompt,
                                                   const std::string& /*initial*/,
                                                   std::size_t /*maxLength*/) {
    std::cerr << prompt << " (cancelled: no terminal dialog)\n";
    return std::nullopt;
}

}  // namespace zantor

#pragma once

// User messages of a command-line command: written to the command's error stream, so that a
// caller (and a test) decides where they go. Questions take the safe answer.

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>

#include "common/user_messages.h"

namespace zantor {

class StreamMessages : public UserMessages {
  public:
    explicit StreamMessages(std::ostream& err) : err_(err) {}

    void ShowError(const std::string& text) override {
        hadError_ = true;
        err_ << "zantor: " << text << '\n';
    }
    void ShowInfo(const std::string& text) override { err_ << "zantor: " << text << '\n'; }
    bool AskYesNo(const std::string& question) override {
        err_ << "zantor: " << question << " (answered No: no dialog on the command line)\n";
        return false;
    }
    std::optional<std::string> AskText(const std::string& prompt, const std::string& /*initial*/,
                                       std::size_t /*maxLength*/) override {
        err_ << "zantor: " << prompt << " (cancelled: no dialog on the command line)\n";
        return std::nullopt;
    }

    // Whether an error message has been shown: the command then ends with a failure status.
    bool HadError() const { return hadError_; }

  private:
    std::ostream& err_;
    bool hadError_ = false;
};

}  // namespace zantor

#pragma once

// Messages and questions for the user. The GUI shows them in message boxes, the command line
// writes them to stderr, tests record them.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zantor {

class UserMessages {
  public:
    virtual ~UserMessages() = default;

    // An error box with an OK button ("Unknown drawing item: ...", "FONT-file missing.").
    virtual void ShowError(const std::string& text) = 0;
    // An information box ("Number too large.").
    virtual void ShowInfo(const std::string& text) = 0;
    // A yes/no question; only Yes proceeds.
    virtual bool AskYesNo(const std::string& question) = 0;
    // A text input box; nullopt when the user cancels. The answer is at most maxLength long.
    virtual std::optional<std::string> AskText(const std::string& prompt,
                                               const std::string& initial,
                                               std::size_t maxLength) = 0;
};

// For the command line: messages go to stderr, questions take the safe answer (No, cancel).
class StderrMessages : public UserMessages {
  public:
    void ShowError(const std::string& text) override;
    void ShowInfo(const std::string& text) override;
    bool AskYesNo(const std::string& question) override;
    std::optional<std::string> AskText(const std::string& prompt, const std::string& initial,
                                       std::size_t maxLength) override;

    // Whether any error has been shown, for the exit status.
    bool HadError() const { return hadError_; }

  private:
    bool hadError_ = false;
};

}  // namespace zantor

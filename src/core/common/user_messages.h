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

// Keeps every message and question in order; answers questions from scripted replies.
class RecordingMessages : public UserMessages {
public:
    enum class Kind { Error, Info, YesNo, Text };
    struct Entry {
        Kind kind;
        std::string text;
    };

    void ShowError(const std::string& text) override;
    void ShowInfo(const std::string& text) override;
    bool AskYesNo(const std::string& question) override;
    std::optional<std::string> AskText(const std::string& prompt, const std::string& initial,
                                       std::size_t maxLength) override;

    // Replies used by the next questions, first in first out; with none left, yes/no answers
    // No and text input is cancelled.
    void QueueYesNo(bool answer) { yesNoReplies_.push_back(answer); }
    void QueueText(std::optional<std::string> answer) { textReplies_.push_back(std::move(answer)); }

    const std::vector<Entry>& Entries() const { return entries_; }
    // The texts of all entries, in order.
    std::vector<std::string> Texts() const;
    void Clear() { entries_.clear(); }

private:
    std::vector<Entry> entries_;
    std::vector<bool> yesNoReplies_;
    std::vector<std::optional<std::string>> textReplies_;
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

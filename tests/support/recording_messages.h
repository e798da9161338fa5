#pragma once

// The message sink of the tests: keeps every message and question in order and answers the
// questions from scripted replies.

#include <optional>
#include <string>
#include <vector>

#include "common/user_messages.h"
#include "support/recording_messages.h"

namespace zantor {

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

}  // namespace zantor

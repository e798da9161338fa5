#include "common/user_messages.h"

#include <iostream>

namespace zantor {

void RecordingMessages::ShowError(const std::string& text) {
    entries_.push_back({Kind::Error, text});
}

void RecordingMessages::ShowInfo(const std::string& text) {
    entries_.push_back({Kind::Info, text});
}

bool RecordingMessages::AskYesNo(const std::string& question) {
    entries_.push_back({Kind::YesNo, question});
    if (yesNoReplies_.empty()) {
        return false;
    }
    bool answer = yesNoReplies_.front();
    yesNoReplies_.erase(yesNoReplies_.begin());
    return answer;
}

std::optional<std::string> RecordingMessages::AskText(const std::string& prompt,
                                                      const std::string& /*initial*/,
                                                      std::size_t maxLength) {
    entries_.push_back({Kind::Text, prompt});
    if (textReplies_.empty()) {
        return std::nullopt;
    }
    std::optional<std::string> answer = textReplies_.front();
    textReplies_.erase(textReplies_.begin());
    if (answer && answer->size() > maxLength) {
        answer->resize(maxLength);
    }
    return answer;
}

std::vector<std::string> RecordingMessages::Texts() const {
    std::vector<std::string> texts;
    texts.reserve(entries_.size());
    for (const Entry& entry : entries_) {
        texts.push_back(entry.text);
    }
    return texts;
}

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

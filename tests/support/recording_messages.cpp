#include "support/recording_messages.h"

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

}  // namespace zantor

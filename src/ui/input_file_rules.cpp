#include "ui/input_file_rules.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "shell/identification.h"

namespace zantor {
namespace {

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

PrintButtons EnabledPrintButtons(const std::string& text) {
    PrintButtons buttons;
    std::error_code error;
    if (text.find('*') != std::string::npos || !std::filesystem::is_regular_file(text, error)) {
        return buttons;
    }
    const std::string name = Trimmed(text);
    buttons.decal = HasDecalName(name);
    buttons.index = buttons.decal;
    buttons.parttype = HasParttypeName(name);
    return buttons;
}

void AddToRecentFiles(std::vector<std::string>& recent, const std::string& name) {
    if (name.empty() || std::find(recent.begin(), recent.end(), name) != recent.end()) {
        return;
    }
    if (recent.size() >= kMaxRecentFiles) {
        recent.resize(kMaxRecentFiles - 1);
    }
    recent.insert(recent.begin(), name);
}

}  // namespace zantor

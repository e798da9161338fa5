#include "cli/terminal_progress.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#if !defined(_WIN32)
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace zantor {
namespace {

constexpr std::size_t kLongestBar = 30;
constexpr std::size_t kShortestBar = 10;
constexpr std::size_t kNameField = 24;

// "0:42", "12:05", "1:02:03".
std::string Duration(long long seconds) {
    const long long hours = seconds / 3600;
    const long long minutes = seconds / 60 % 60;
    const long long rest = seconds % 60;
    char text[32];
    if (hours > 0) {
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", hours, minutes, rest);
    } else {
        std::snprintf(text, sizeof text, "%lld:%02lld", minutes, rest);
    }
    return text;
}

}  // namespace

TerminalProgress::TerminalProgress(std::ostream& err, int width, Clock clock)
    : err_(err), width_(static_cast<std::size_t>(std::max(width, 10))), clock_(std::move(clock)) {}

void TerminalProgress::Started(int total) {
    total_ = total;
    item_ = 0;
    start_ = clock_();
}

void TerminalProgress::Looking(const std::string& name) {
    ++item_;
    Show(Line(name));
}

void TerminalProgress::Finished(const std::string& text) {
    Show(text.substr(0, width_ - 1));
    err_ << '\n' << std::flush;
}

std::string TerminalProgress::Line(const std::string& name) const {
    // The last column stays free: a terminal that wraps there would break the line in two.
    const std::size_t room = width_ - 1;
    const std::string label =
        "Printing " + std::to_string(item_) + " of " + std::to_string(total_) + ": ";

    // The bar, the share and the time left count what is done: the items before this one.
    const int done = std::clamp(item_ - 1, 0, std::max(total_, 0));
    const double share = total_ > 0 ? static_cast<double>(done) / total_ : 0.0;
    std::string eta = "--:--";
    if (done > 0) {
        const double seconds = std::chrono::duration<double>(clock_() - start_).count();
        eta = Duration(static_cast<long long>(seconds / done * (total_ - done) + 0.5));
    }
    char percent[8];
    std::snprintf(percent, sizeof percent, "%3d%%", static_cast<int>(share * 100));
    // The estimate takes the room of "9:59:59", so that the bar keeps its place.
    const std::string tail = std::string(" ") + percent + " ETA " +
                             std::string(eta.size() < 7 ? 7 - eta.size() : 0, ' ') + eta;
    // The label as wide as its longest count, for the same reason.
    const std::size_t labelField = std::max(
        label.size(),
        ("Printing " + std::to_string(total_) + " of " + std::to_string(total_) + ": ").size());

    // The name gets at least a few columns before the bar shrinks, and the bar goes before the
    // name would vanish.
    const std::size_t fixed = labelField + tail.size() + 3;  // " [" and "]"
    const std::size_t minimumName = std::min<std::size_t>(name.size(), 12);
    std::size_t bar = 0;
    if (room > fixed + minimumName + kShortestBar) {
        bar = std::min(kLongestBar, room - fixed - minimumName);
    }
    std::string line = label;
    if (bar == 0) {
        line += name;
        return line.substr(0, room);
    }
    // Names up to kNameField long keep the bar in one place from line to line.
    const std::size_t nameRoom = std::min(room - fixed - bar, std::max(name.size(), kNameField)) +
                                 (labelField - label.size());
    line += name.size() <= nameRoom ? name + std::string(nameRoom - name.size(), ' ')
                                    : name.substr(0, nameRoom);
    const auto filled = static_cast<std::size_t>(share * static_cast<double>(bar));
    line += " [" + std::string(filled, '#') + std::string(bar - filled, '.') + "]" + tail;
    return line;
}

void TerminalProgress::Show(const std::string& text) {
    const std::size_t blanks = shown_ > text.size() ? shown_ - text.size() : 0;
    err_ << '\r' << text << std::string(blanks, ' ') << std::flush;
    shown_ = text.size();
}

int StandardErrorWidth() {
#if !defined(_WIN32)
    winsize size{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
#endif
    if (const char* columns = std::getenv("COLUMNS")) {
        const int width = std::atoi(columns);
        if (width > 0) {
            return width;
        }
    }
    return 80;
}

}  // namespace zantor

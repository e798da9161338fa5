#include "output/interrupt_cleanup.h"

#if defined(__unix__) || defined(__APPLE__)

#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <mutex>

namespace zantor {
namespace {

// The handler may only call async-signal-safe functions, so the paths wait in a fixed table
// that it reads without locks: a slot's path is complete before the slot is marked in use.
constexpr std::size_t kSlots = 1024;
constexpr std::size_t kPathBytes = 1024;

enum SlotState : int { kFree = 0, kFilling = 1, kInUse = 2 };

struct Slot {
    std::atomic<int> state{kFree};
    char path[kPathBytes];
};

std::array<Slot, kSlots> gSlots;

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};
std::array<struct sigaction, 3> gPrevious;
std::array<bool, 3> gInstalled{};
std::once_flag gInstallOnce;

extern "C" void RemoveTemporariesAndStop(int signalNumber) {
    const int savedErrno = errno;
    for (Slot& slot : gSlots) {
        if (slot.state.load(std::memory_order_acquire) == kInUse) {
            unlink(slot.path);
        }
    }
    // The action that was there before, and the signal again: after this handler returns it
    // ends the process with the signal's own status (or reaches the earlier handler).
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        if (kSignals[i] == signalNumber && gInstalled[i]) {
            sigaction(signalNumber, &gPrevious[i], nullptr);
        }
    }
    raise(signalNumber);
    errno = savedErrno;
}

void InstallHandlers() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        struct sigaction previous {};
        if (sigaction(kSignals[i], nullptr, &previous) != 0 || previous.sa_handler == SIG_IGN) {
            continue;  // nohup and friends: the signal stays ignored
        }
        struct sigaction action {};
        action.sa_handler = RemoveTemporariesAndStop;
        sigfillset(&action.sa_mask);
        action.sa_flags = 0;
        gPrevious[i] = previous;
        gInstalled[i] = sigaction(kSignals[i], &action, nullptr) == 0;
    }
}

}  // namespace

int GuardTemporary(const std::filesystem::path& temporary) noexcept {
    const std::string& text = temporary.native();
    if (text.size() >= kPathBytes) {
        return -1;
    }
    try {
        std::call_once(gInstallOnce, InstallHandlers);
    } catch (...) {
        return -1;
    }
    for (std::size_t i = 0; i < kSlots; ++i) {
        int expected = kFree;
        if (gSlots[i].state.compare_exchange_strong(expected, kFilling,
                                                    std::memory_order_acq_rel)) {
            std::memcpy(gSlots[i].path, text.c_str(), text.size() + 1);
            gSlots[i].state.store(kInUse, std::memory_order_release);
            return static_cast<int>(i);
        }
    }
    return -1;
}

void ReleaseTemporary(int slot) noexcept {
    if (slot >= 0 && static_cast<std::size_t>(slot) < kSlots) {
        gSlots[static_cast<std::size_t>(slot)].state.store(kFree, std::memory_order_release);
    }
}

}  // namespace zantor

#else

namespace zantor {

int GuardTemporary(const std::filesystem::path& /*temporary*/) noexcept {
    return -1;
}

void ReleaseTemporary(int /*slot*/) noexcept {}

}  // namespace zantor

#endif

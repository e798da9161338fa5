#pragma once

// A full disk for as long as the object lives: no file of this process can grow beyond `bytes`
// (writes past it fail as on a full file system, SIGXFSZ being ignored meanwhile). Only where
// the system has such limits; elsewhere Available() is false and the test is skipped.

#include <cstddef>

#if defined(__unix__) || defined(__APPLE__)
#include <sys/resource.h>
#include <csignal>
#endif

namespace zantor::test {

class FileSizeLimit {
  public:
    explicit FileSizeLimit(std::size_t bytes) {
#if defined(__unix__) || defined(__APPLE__)
        if (getrlimit(RLIMIT_FSIZE, &saved_) != 0) {
            return;
        }
        savedHandler_ = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limited = saved_;
        limited.rlim_cur = bytes;
        active_ = setrlimit(RLIMIT_FSIZE, &limited) == 0;
#else
        (void)bytes;
#endif
    }
    ~FileSizeLimit() {
#if defined(__unix__) || defined(__APPLE__)
        if (active_) {
            setrlimit(RLIMIT_FSIZE, &saved_);
        }
        std::signal(SIGXFSZ, savedHandler_);
#endif
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

    bool Available() const {
        return active_;
    }

  private:
    bool active_ = false;
#if defined(__unix__) || defined(__APPLE__)
    rlimit saved_{};
    void (*savedHandler_)(int) = SIG_DFL;
#endif
};

}  // namespace zantor::test

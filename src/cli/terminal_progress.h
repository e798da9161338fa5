#pragma once

// The progress window's label and bar as one line of a terminal that is written over:
// "Printing 12 of 500: NAME [######......]  40% ETA 1:23", kept within the terminal's width.

#include <chrono>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

#include "jobs/print_progress.h"

namespace zantor {

class TerminalProgress : public PrintProgress {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    // Writes to `err`, a terminal `width` columns wide; `clock` times the run for the estimate
    // of the time left.
    TerminalProgress(
        std::ostream& err, int width,
        Clock clock = [] { return std::chrono::steady_clock::now(); });

    void Started(int total) override;
    void Looking(const std::string& name) override;
    void Position(int /*printed*/) override {}
    void Finished(const std::string& text) override;

  private:
    std::string Line(const std::string& name) const;
    void Show(const std::string& text);

    std::ostream& err_;
    std::size_t width_;
    Clock clock_;
    std::chrono::steady_clock::time_point start_;
    int total_ = 0;
    int item_ = 0;
    std::size_t shown_ = 0;
};

// The number of columns of the terminal on standard error; 80 when it does not say.
int StandardErrorWidth();

}  // namespace zantor

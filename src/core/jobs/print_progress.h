#pragma once

// What a print job tells the window that shows its progress: the bar's maximum, the name of the
// decal it is looking for, the bar's position, and the closing text. The progress window shows
// them; the command line writes them to a terminal; tests record them.

#include <string>

namespace zantor {

// The progress label when a printer run has ended.
inline constexpr const char* kPrintingCompleted = "Printing completed.";

class PrintProgress {
  public:
    virtual ~PrintProgress() = default;

    // The run starts: the bar's maximum is the number of selected names, its position 0, the
    // label empty.
    virtual void Started(int total) = 0;
    // The run looks for the decal `name` next.
    virtual void Looking(const std::string& name) = 0;
    // `printed` decals are drawn so far.
    virtual void Position(int printed) = 0;
    // The run has ended; `text` is kPrintingCompleted.
    virtual void Finished(const std::string& text) = 0;
};

}  // namespace zantor

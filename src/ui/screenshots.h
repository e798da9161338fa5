#pragma once

// Pictures of the program's windows for people to look at: the main window, the selection
// dialog with a decal in its view box, the preview of a decal page and of an index page, and the
// progress window, as PNG files in a folder.

#include <string>

namespace zantor {

class TMainForm;
struct WindowServices;

// Shows each window over `window` in turn and writes main.png, select_decals.png,
// preview_decal.png, preview_index.png and progress.png into `folder`. The input file is the
// one in the main window's box. Returns the exit status: 0 when every picture was written.
int TakeScreenshots(TMainForm& window, WindowServices& services, const std::string& folder);

}  // namespace zantor

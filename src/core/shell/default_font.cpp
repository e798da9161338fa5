#include "shell/default_font.h"

namespace zantor {

std::string DefaultFontfile() {
#if defined(_WIN32)
    // Where PADS installs its own font: a Windows user with PADS gets the CAD system's text.
    return "c:\\padspwr\\powerpcb\\romansim.fnt";
#else
    // The stroke font that ships with the program, by name alone: the font loader looks it up
    // next to the executable. A full path would go stale when the program moves or is
    // reinstalled, and would not fit the setting's 60 characters in a deep build or install
    // folder. Users with PADS point the setting at their own ROMANSIM.FNT.
    return "romans.fnt";
#endif
}

}  // namespace zantor

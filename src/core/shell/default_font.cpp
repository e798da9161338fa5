#include "shell/default_font.h"

namespace zantor {

std::string DefaultFontfile() {
    return "c:\\padspwr\\powerpcb\\romansim.fnt";
}

}  // namespace zantor

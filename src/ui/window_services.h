#pragma once

// What every window of the desktop program works with: the program's context (settings, print
// kind, output target, stroke font, attribute list), the one printer the program keeps while it
// runs, and the dialogs and message boxes of the system, which tests replace.

#include <QPrinter>

#include "common/user_messages.h"
#include "jobs/plot_context.h"
#include "ui/dialog_services.h"

namespace zantor {

struct WindowServices {
    PlotContext& context;
    // The printer and paper chosen in printer setup and in the print dialog: the next run
    // prints there.
    QPrinter& printer;
    DialogServices& dialogs;
    UserMessages& messages;
};

}  // namespace zantor

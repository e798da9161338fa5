#pragma once

// `zantor print FILE [--kind decal|index] [--select NAME]... (--output OUT | --printer QUEUE)
// [--paper SIZE]`: the decal or index job of the GUI, run headless with the user's settings.

#include <ostream>
#include <string>
#include <vector>

#include "cli/command_arguments.h"

namespace zantor {

// The lines of `zantor --help` that describe the command.
extern const char* const kPrintCommandHelp;

// Its options that take a value.
extern const std::vector<std::string> kPrintCommandOptions;
// `args` are the arguments after "print". The files written go to `out`, one per line; messages
// to `err`, and the progress too when `err` is the program's standard error and that is a
// terminal. Returns the exit status.
int RunPrintCommand(const CommandArguments& args, std::ostream& out, std::ostream& err);

}  // namespace zantor

#pragma once

// `zantor list FILE [--kind decal|index|parttype] [--search TEXT] [--pins N] [--contents N]`:
// the catalogue of a file, as the selection dialog lists it.

#include <ostream>
#include <string>
#include <vector>

#include "cli/command_arguments.h"

namespace zantor {

// The lines of `zantor --help` that describe the command.
extern const char* const kListCommandHelp;

// Its options that take a value.
extern const std::vector<std::string> kListCommandOptions;
// `args` are the arguments after "list". The names go to `out`, one per line; the status text
// and any messages to `err`. Returns the exit status.
int RunListCommand(const CommandArguments& args, std::ostream& out, std::ostream& err);

}  // namespace zantor

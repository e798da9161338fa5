#pragma once

// `zantor list FILE [--kind decal|index|parttype] [--search TEXT] [--pins N] [--contents N]`:
// the catalogue of a file, as the selection dialog lists it.

#include <ostream>
#include <string>
#include <vector>

namespace zantor {

// The lines of `zantor --help` that describe the command.
extern const char* const kListCommandHelp;

// `args` are the arguments after "list". The names go to `out`, one per line; the status text
// and any messages to `err`. Returns the exit status.
int RunListCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace zantor

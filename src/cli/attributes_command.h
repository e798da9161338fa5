#pragma once

// `zantor attributes FILE [--kind decal|parttype]`: the attribute names the setup dialog's
// "Scan file" finds in a file, one per line.

#include <ostream>
#include <string>
#include <vector>

#include "cli/command_arguments.h"

namespace zantor {

// The lines of `zantor --help` that describe the command.
extern const char* const kAttributesCommandHelp;

// Its options that take a value.
extern const std::vector<std::string> kAttributesCommandOptions;
// `args` are the arguments after "attributes". The names go to `out`, messages to `err`.
int RunAttributesCommand(const CommandArguments& args, std::ostream& out, std::ostream& err);

}  // namespace zantor

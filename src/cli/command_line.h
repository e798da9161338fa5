#pragma once

// The command line of the zantor program: commands, usage and exit status.

#include <cstddef>
#include <exception>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace zantor {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;  // an operation failed (a file that cannot be read ...)
inline constexpr int kExitUsage = 2;    // the command line itself is wrong

// Runs the command given by `args` (the arguments after the program name) and returns the exit
// status. Results go to `out`; messages about failures and usage go to `err`.
int RunCommandLine(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// Whether `word` is the name of a command ("list", "print", "info").
bool NamesCommand(const std::string& word);

// For the commands: writes "zantor: " + `problem` and the usage hint to `err`; returns kExitUsage.
int ReportUsageError(std::ostream& err, const std::string& problem);

// Takes the option at args[i] apart: "--name=value", or "--name" followed by its value in the
// next argument (i then moves past it). Anything not starting with "--" is left whole with no
// value. Returns the problem when an option's value is missing.
std::optional<std::string> SplitOption(const std::vector<std::string>& args, std::size_t& i,
                                       std::string& option, std::optional<std::string>& value);
// For the commands: writes the message of a failed operation to `err`; returns kExitFailure.
int ReportFailure(std::ostream& err, const std::exception& error);

}  // namespace zantor

#pragma once

// The command line of the zantor program: commands, usage and exit status.

#include <exception>
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

// Whether `word` is the name of a command ("attributes", "info", "list", "print").
bool NamesCommand(const std::string& word);

// For the commands: writes "zantor: " + `problem` and the usage hint to `err`; returns kExitUsage.
int ReportUsageError(std::ostream& err, const std::string& problem);

// For the commands: writes the message of a failed operation to `err`; returns kExitFailure.
int ReportFailure(std::ostream& err, const std::exception& error);

}  // namespace zantor

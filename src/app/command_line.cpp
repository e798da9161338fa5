#include "command_line.h"

#include <exception>

#include "common/errors.h"
#include "library/file_summary.h"

namespace zantor {
namespace {

constexpr const char* kUsage = "usage: zantor COMMAND ARGUMENTS (see zantor --help)\n";

constexpr const char* kHelp =
    "usage: zantor COMMAND ARGUMENTS\n"
    "\n"
    "Zantor prints PADS PowerPCB decal and parttype libraries as drawing sheets.\n"
    "\n"
    "Commands:\n"
    "  info FILE     Show what the reader sees in a PADS ASCII file: its kind (decal\n"
    "                library, parttype library, PCB ASCII file), format version and\n"
    "                units, then the name, unit letter and counts of every decal\n"
    "                record (attributes, labels, pieces, texts, terminals, pad stacks).\n"
    "  --help, -h    Show this help.\n"
    "\n"
    "Exit status: 0 when the command succeeded, 1 when it failed (the reason is\n"
    "written to standard error), 2 when the command line is wrong.\n";

bool IsHelp(const std::string& arg) {
    return arg == "--help" || arg == "-h";
}

int UsageError(std::ostream& err, const std::string& problem) {
    err << "zantor: " << problem << '\n' << kUsage;
    return kExitUsage;
}

int RunInfo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.size() == 2 && IsHelp(args[1])) {
        out << kHelp;
        return kExitOk;
    }
    if (args.size() != 2) {
        return UsageError(err, "info takes one FILE");
    }
    try {
        WriteFileSummary(args[1], out);
    } catch (const Error& error) {
        out.flush();
        err << "zantor: " << error.what() << '\n';
        return kExitFailure;
    } catch (const std::exception& error) {
        out.flush();
        err << "zantor: unexpected failure: " << error.what() << '\n';
        return kExitFailure;
    }
    return kExitOk;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.empty()) {
        return UsageError(err, "no command given");
    }
    const std::string& command = args[0];
    if (IsHelp(command)) {
        out << kHelp;
        return kExitOk;
    }
    if (command == "info") {
        return RunInfo(args, out, err);
    }
    return UsageError(err, "unknown command \"" + command + "\"");
}

}  // namespace zantor

#include "cli/command_line.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "cli/attributes_command.h"
#include "cli/list_command.h"
#include "cli/print_command.h"
#include "common/errors.h"
#include "library/file_summary.h"

namespace zantor {
namespace {

constexpr const char* kUsage = "usage: zantor COMMAND ARGUMENTS (see zantor --help)\n";

constexpr const char* kHelpIntroduction =
    "usage: zantor COMMAND ARGUMENTS\n"
    "       zantor [FILE]\n"
    "\n"
    "Zantor prints PADS PowerPCB decal and parttype libraries as drawing sheets.\n"
    "Without a command it opens the desktop program, with FILE as its input file.\n"
    "\n"
    "Commands:\n";

constexpr const char* kHelpEnd =
    "  --help, -h    Show this help.\n"
    "\n"
    "Exit status: 0 when the command succeeded, 1 when it failed (the reason is\n"
    "written to standard error), 2 when the command line is wrong.\n";

constexpr const char* kInfoHelp =
    "  info FILE     Show what the reader sees in a PADS ASCII file: its kind (decal\n"
    "                library, parttype library, PCB ASCII file), format version and\n"
    "                units, then the name, unit letter and counts of every decal\n"
    "                record (attributes, labels, pieces, texts, terminals, pad stacks).\n"
    "                A damaged record (its body does not hold what its header counts)\n"
    "                ends the table marked DAMAGED, and the error names its line.\n";

// A command gets the arguments after its name.
using CommandRunner = int (*)(const std::vector<std::string>& args, std::ostream& out,
                              std::ostream& err);

struct Command {
    std::string_view name;
    const char* help;  // its lines of `zantor --help`
    CommandRunner run;
};

int RunInfo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.size() != 1) {
        return ReportUsageError(err, "info takes one FILE");
    }
    try {
        WriteFileSummary(args[0], out);
    } catch (const std::exception& error) {
        out.flush();
        return ReportFailure(err, error);
    }
    return kExitOk;
}

// The commands in the order of the help text.
const Command kCommands[] = {
    {"attributes", kAttributesCommandHelp, RunAttributesCommand},
    {"info", kInfoHelp, RunInfo},
    {"list", kListCommandHelp, RunListCommand},
    {"print", kPrintCommandHelp, RunPrintCommand},
};

bool IsHelp(const std::string& arg) {
    return arg == "--help" || arg == "-h";
}

void WriteHelp(std::ostream& out) {
    out << kHelpIntroduction;
    for (const Command& command : kCommands) {
        out << command.help;
    }
    out << kHelpEnd;
}

}  // namespace

std::optional<std::string> SplitOption(const std::vector<std::string>& args, std::size_t& i,
                                       std::string& option, std::optional<std::string>& value) {
    option = args[i];
    value.reset();
    if (!option.starts_with("--")) {
        return std::nullopt;
    }
    const std::size_t equals = option.find('=');
    if (equals != std::string::npos) {
        value = option.substr(equals + 1);
        option.resize(equals);
    } else if (i + 1 < args.size()) {
        value = args[++i];
    } else {
        return option + " needs a value";
    }
    return std::nullopt;
}

int ReportUsageError(std::ostream& err, const std::string& problem) {
    err << "zantor: " << problem << '\n' << kUsage;
    return kExitUsage;
}

int ReportFailure(std::ostream& err, const std::exception& error) {
    if (dynamic_cast<const Error*>(&error) != nullptr) {
        err << "zantor: " << error.what() << '\n';
    } else {
        err << "zantor: unexpected failure: " << error.what() << '\n';
    }
    return kExitFailure;
}

bool NamesCommand(const std::string& word) {
    return std::any_of(std::begin(kCommands), std::end(kCommands),
                       [&word](const Command& command) { return command.name == word; });
}

int RunCommandLine(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.empty()) {
        return ReportUsageError(err, "no command given");
    }
    if (std::any_of(args.begin(), args.end(), IsHelp)) {
        WriteHelp(out);
        return kExitOk;
    }
    const std::string& name = args[0];
    for (const Command& command : kCommands) {
        if (command.name == name) {
            return command.run(std::vector<std::string>(std::next(args.begin()), args.end()), out,
                               err);
        }
    }
    return ReportUsageError(err, "unknown command \"" + name + "\"");
}

}  // namespace zantor

#include "cli/command_line.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QStringList>
#include <algorithm>
#include <iterator>
#include <string_view>

#include "cli/attributes_command.h"
#include "cli/command_arguments.h"
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
    "  --version     Show the version of Zantor.\n"
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

// A command gets the arguments after its name, read for the options it names.
using CommandRunner = int (*)(const CommandArguments& args, std::ostream& out, std::ostream& err);

struct Command {
    std::string_view name;
    const char* help;                         // its lines of `zantor --help`
    const std::vector<std::string>* options;  // its options that take a value, without "--"
    CommandRunner run;
};

const std::vector<std::string> kInfoOptions;

int RunInfo(const CommandArguments& args, std::ostream& out, std::ostream& err) {
    if (args.Files().size() != 1) {
        return ReportUsageError(err, "info takes one FILE");
    }
    try {
        WriteFileSummary(args.Files().front(), out);
    } catch (const std::exception& error) {
        out.flush();
        return ReportFailure(err, error);
    }
    return kExitOk;
}

// The commands in the order of the help text.
const Command kCommands[] = {
    {"attributes", kAttributesCommandHelp, &kAttributesCommandOptions, RunAttributesCommand},
    {"info", kInfoHelp, &kInfoOptions, RunInfo},
    {"list", kListCommandHelp, &kListCommandOptions, RunListCommand},
    {"print", kPrintCommandHelp, &kPrintCommandOptions, RunPrintCommand},
};

int WriteHelp(std::ostream& out) {
    out << kHelpIntroduction;
    for (const Command& command : kCommands) {
        out << command.help;
    }
    out << kHelpEnd;
    return kExitOk;
}

int RunCommand(const Command& command, const std::vector<std::string>& args, std::ostream& out,
               std::ostream& err) {
    CommandArguments arguments(std::string(command.name), *command.options);
    if (const std::optional<std::string> problem = arguments.Parse(args)) {
        return ReportUsageError(err, *problem);
    }
    if (arguments.HelpAsked()) {
        return WriteHelp(out);
    }
    return command.run(arguments, out, err);
}

}  // namespace

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
    // The program's own options come before the command; everything from the command on is the
    // command's.
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption version(QStringLiteral("version"));
    parser.addOption(help);
    parser.addOption(version);
    QStringList arguments{QStringLiteral("zantor")};
    for (const std::string& arg : args) {
        arguments.append(QString::fromLocal8Bit(arg.data(), static_cast<qsizetype>(arg.size())));
    }
    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        if (!unknown.isEmpty()) {
            const std::string name = unknown.front().toStdString();
            return ReportUsageError(
                err, "unknown option " + std::string(name.size() == 1 ? "-" : "--") + name);
        }
        return ReportUsageError(err, parser.errorText().toStdString());
    }
    if (parser.isSet(help)) {
        return WriteHelp(out);
    }
    if (parser.isSet(version)) {
        out << "zantor " << ZANTOR_VERSION << '\n';
        return kExitOk;
    }
    const qsizetype commandArgs = parser.positionalArguments().size();
    if (commandArgs == 0) {
        return ReportUsageError(err, "no command given");
    }
    // The command and its arguments are the last ones, as given.
    const auto first = args.end() - commandArgs;
    const std::string& name = *first;
    for (const Command& command : kCommands) {
        if (command.name == name) {
            return RunCommand(command, std::vector<std::string>(std::next(first), args.end()), out,
                              err);
        }
    }
    return ReportUsageError(err, "unknown command \"" + name + "\"");
}

}  // namespace zantor

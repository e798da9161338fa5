#include "cli/command_arguments.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QStringList>
#include <utility>

namespace zantor {
namespace {

QString FromArgument(const std::string& arg) {
    return QString::fromLocal8Bit(arg.data(), static_cast<qsizetype>(arg.size()));
}

// An option as it was written, without a value given with "=": "--colour", "-x".
std::string AsWritten(const std::string& arg) {
    return arg.substr(0, arg.find('='));
}

// The option name in an argument: "--kind=x" -> "kind"; empty for arguments that are no option.
std::string NameIn(const std::string& arg) {
    if (arg.size() < 2 || arg[0] != '-') {
        return "";
    }
    const std::string written = AsWritten(arg);
    const std::size_t start = written.find_first_not_of('-');
    return start == std::string::npos ? "" : written.substr(start);
}

}  // namespace

CommandArguments::CommandArguments(std::string command, std::vector<std::string> valueOptions)
    : command_(std::move(command)), valueOptions_(std::move(valueOptions)) {}

std::optional<std::string> CommandArguments::Parse(const std::vector<std::string>& args) {
    QCommandLineParser parser;
    // "-kind" is --kind, not -k -i -n -d.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    parser.addOption(help);
    for (const std::string& name : valueOptions_) {
        parser.addOption(
            QCommandLineOption(FromArgument(name), QString(), QStringLiteral("value")));
    }

    // Qt hands back text; the arguments go back to their own bytes through this table, so that
    // a file name reaches the command exactly as it was given.
    std::map<QString, std::string> original;
    QStringList arguments{QStringLiteral("zantor")};
    for (const std::string& arg : args) {
        arguments.append(FromArgument(arg));
        original.emplace(arguments.back(), arg);
        if (const std::size_t equals = arg.find('='); equals != std::string::npos) {
            const std::string value = arg.substr(equals + 1);
            original.emplace(FromArgument(value), value);
        }
    }
    const auto bytes = [&original](const QString& text) {
        const auto found = original.find(text);
        return found != original.end() ? found->second : text.toLocal8Bit().toStdString();
    };

    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        if (!unknown.isEmpty()) {
            const std::string name = unknown.front().toLocal8Bit().toStdString();
            for (const std::string& arg : args) {
                if (NameIn(arg) == name) {
                    return command_ + " has no option " + AsWritten(arg);
                }
            }
            return command_ + " has no option --" + name;
        }
        // An option that takes a value can only lack one at the end; one that takes none can
        // only be given one with "=".
        for (const std::string& arg : args) {
            const std::string name = NameIn(arg);
            if ((name == "help" || name == "h") && arg.find('=') != std::string::npos) {
                return AsWritten(arg) + " takes no value";
            }
        }
        if (!args.empty() && !NameIn(args.back()).empty()) {
            return args.back() + " needs a value";
        }
        return parser.errorText().toLocal8Bit().toStdString();
    }

    helpAsked_ = parser.isSet(help);
    files_.clear();
    for (const QString& file : parser.positionalArguments()) {
        files_.push_back(bytes(file));
    }
    values_.clear();
    for (const std::string& name : valueOptions_) {
        std::vector<std::string>& values = values_[name];
        for (const QString& value : parser.values(FromArgument(name))) {
            values.push_back(bytes(value));
        }
    }
    return std::nullopt;
}

std::vector<std::string> CommandArguments::Values(std::string_view option) const {
    const auto found = values_.find(option);
    return found != values_.end() ? found->second : std::vector<std::string>{};
}

std::optional<std::string> CommandArguments::Value(std::string_view option) const {
    const auto found = values_.find(option);
    if (found == values_.end() || found->second.empty()) {
        return std::nullopt;
    }
    return found->second.back();
}

}  // namespace zantor

#pragma once

// The arguments of one command, read with QCommandLineParser: the options the command knows,
// each with the values given to it in order, and the other arguments (its files).

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zantor {

class CommandArguments {
  public:
    // `command` names the command in messages ("print has no option --copies"); `valueOptions`
    // are the long names (without "--") of its options, each of which takes a value. Every
    // command also knows --help and -h.
    CommandArguments(std::string command, std::vector<std::string> valueOptions);

    // Reads the arguments that follow the command's name: "--name value", "--name=value", and
    // "--" before arguments that are files even if they start with "-". Returns the problem of a
    // wrong command line ("--kind needs a value", "list has no option --colour").
    std::optional<std::string> Parse(const std::vector<std::string>& args);

    bool HelpAsked() const { return helpAsked_; }
    // The arguments that are no options, in order.
    const std::vector<std::string>& Files() const { return files_; }
    // The values given to `option` (its long name), in order.
    std::vector<std::string> Values(std::string_view option) const;
    // The value given last to `option`, if any.
    std::optional<std::string> Value(std::string_view option) const;

  private:
    std::string command_;
    std::vector<std::string> valueOptions_;
    bool helpAsked_ = false;
    std::vector<std::string> files_;
    std::map<std::string, std::vector<std::string>, std::less<>> values_;
};

}  // namespace zantor

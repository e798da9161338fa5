#include "cli/attributes_command.h"

#include <exception>
#include <optional>

#include "cli/command_line.h"
#include "cli/stream_messages.h"
#include "library/attribute_scan.h"

namespace zantor {

const char* const kAttributesCommandHelp =
    "  attributes FILE [--kind decal|parttype]\n"
    "                List the attribute names the setup dialog's \"Scan file\" finds\n"
    "                in FILE for the decal job (the default) or the parttype job,\n"
    "                one per line, in the order they are found: from the records of\n"
    "                a library, from the ATTRIBUTE VALUES blocks of a PCB ASCII\n"
    "                file. The scan takes at most 32 names (a decal scan finishes\n"
    "                the decal it is reading). A file of the wrong kind is reported\n"
    "                (\"No decals found in file.\") with exit status 1.\n";

namespace {

// The list starts empty, so the dialog's question whether to empty it is answered Yes without
// being written out.
class ScanMessages : public StreamMessages {
  public:
    using StreamMessages::StreamMessages;
    bool AskYesNo(const std::string& /*question*/) override { return true; }
};

struct AttributesRequest {
    std::string file;
    PlotKind kind = PlotKind::Decal;
};

std::optional<std::string> ParseArguments(const CommandArguments& args,
                                          AttributesRequest& request) {
    for (const std::string& kind : args.Values("kind")) {
        if (kind == "decal") {
            request.kind = PlotKind::Decal;
        } else if (kind == "parttype") {
            request.kind = PlotKind::Parttype;
        } else {
            return "--kind takes decal or parttype, not \"" + kind + "\"";
        }
    }
    if (args.Files().empty()) {
        return "attributes needs a FILE";
    }
    if (args.Files().size() > 1) {
        return "attributes takes one FILE";
    }
    request.file = args.Files().front();
    return std::nullopt;
}

void WriteNames(const AttributeList& attributes, std::ostream& out) {
    for (const AttributeEntry& entry : attributes) {
        out << entry.name << '\n';
    }
    out.flush();
}

}  // namespace

const std::vector<std::string> kAttributesCommandOptions = {"kind"};

int RunAttributesCommand(const CommandArguments& args, std::ostream& out, std::ostream& err) {
    AttributesRequest request;
    if (std::optional<std::string> problem = ParseArguments(args, request)) {
        return ReportUsageError(err, *problem);
    }
    ScanMessages messages(err);
    ScanDisplay display;
    AttributeList attributes;
    try {
        ScanFileCommand(request.file, request.kind, attributes, messages, display);
    } catch (const std::exception& error) {
        // What was found before the damaged line is still the list the dialog would keep.
        WriteNames(attributes, out);
        return ReportFailure(err, error);
    }
    WriteNames(attributes, out);
    return messages.HadError() ? kExitFailure : kExitOk;
}

}  // namespace zantor

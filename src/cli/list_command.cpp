#include "cli/list_command.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <exception>
#include <optional>
#include <string_view>

#include "cli/command_line.h"
#include "cli/stream_messages.h"
#include "common/errors.h"
#include "library/catalogue.h"
#include "shell/input_check.h"

namespace zantor {

const char* const kListCommandHelp =
    "  list FILE [--kind decal|index|parttype] [--search TEXT] [--pins N] [--contents N]\n"
    "                List the names a print job offers from FILE, one per line, as\n"
    "                the selection dialog lists them: decals for the decal and index\n"
    "                jobs (the default kind is decal), parttypes for the parttype\n"
    "                job. A PCB ASCII file lists, sorted, only the decals its parts\n"
    "                use. The status line (\"Decals in file:    12\") and messages go\n"
    "                to standard error.\n"
    "                --search TEXT  names that contain TEXT (taken in upper case,\n"
    "                               at most 40 characters, as the dialog's box)\n"
    "                --pins N       decals with exactly N terminals (0: all)\n"
    "                --contents N   parttypes by their contents:\n"
    "                               0 All parts, 1 With pinnames,\n"
    "                               2 With attributes,\n"
    "                               3 With pinnames and attributes,\n"
    "                               4 With pinnames or attributes,\n"
    "                               5 With several decals,\n"
    "                               6 Where name <> decalname\n"
    "                FILE must be a source of the kind by its first line: a decal\n"
    "                library or PCB file for decals, a parttype library or PCB file\n"
    "                for parttypes.\n"
    "                A parttype with a damaged header is reported and left out; the\n"
    "                listing goes on, and the exit status is then 1.\n";

namespace {

constexpr std::size_t kMaxSearchLength = 40;

struct ListRequest {
    std::string file;
    PlotKind kind = PlotKind::Decal;
    CatalogueFilters filters;
    bool pinsGiven = false;
    bool contentsGiven = false;
};

std::optional<PlotKind> KindOf(std::string_view word) {
    if (word == "decal") {
        return PlotKind::Decal;
    }
    if (word == "index") {
        return PlotKind::Index;
    }
    if (word == "parttype") {
        return PlotKind::Parttype;
    }
    return std::nullopt;
}

std::optional<int> SmallNumber(std::string_view word, int highest) {
    int value = 0;
    auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (word.empty() || error != std::errc() || end != word.data() + word.size() || value < 0 ||
        value > highest) {
        return std::nullopt;
    }
    return value;
}

// The search box of the dialog turns what is typed into upper case and takes 40 characters.
std::string AsSearchBoxText(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    });
    return text.substr(0, kMaxSearchLength);
}

// Fills `request` from the arguments; the problem of a wrong command line otherwise.
std::optional<std::string> ParseArguments(const CommandArguments& args, ListRequest& request) {
    for (const std::string& value : args.Values("kind")) {
        std::optional<PlotKind> kind = KindOf(value);
        if (!kind) {
            return "--kind takes decal, index or parttype, not \"" + value + "\"";
        }
        request.kind = *kind;
    }
    for (const std::string& value : args.Values("search")) {
        request.filters.searchText = AsSearchBoxText(value);
    }
    for (const std::string& value : args.Values("pins")) {
        if (!SmallNumber(value, 65535)) {
            return "--pins takes a terminal count from 0 to 65535, not \"" + value + "\"";
        }
        request.filters.pinCountText = value;
        request.pinsGiven = true;
    }
    for (const std::string& value : args.Values("contents")) {
        std::optional<int> filter = SmallNumber(value, 6);
        if (!filter) {
            return "--contents takes a number from 0 to 6, not \"" + value + "\"";
        }
        request.filters.contentsFilter = *filter;
        request.contentsGiven = true;
    }
    if (args.Files().empty()) {
        return "list needs a FILE";
    }
    if (args.Files().size() > 1) {
        return "list takes one FILE";
    }
    request.file = args.Files().front();
    if (request.kind == PlotKind::Parttype && request.pinsGiven) {
        return "--pins filters decals; parttypes are filtered with --contents";
    }
    if (request.kind != PlotKind::Parttype && request.contentsGiven) {
        return "--contents filters parttypes (--kind parttype); decals are filtered with --pins";
    }
    return std::nullopt;
}

}  // namespace

const std::vector<std::string> kListCommandOptions = {"kind", "search", "pins", "contents"};

int RunListCommand(const CommandArguments& args, std::ostream& out, std::ostream& err) {
    ListRequest request;
    if (std::optional<std::string> problem = ParseArguments(args, request)) {
        return ReportUsageError(err, *problem);
    }
    StreamMessages messages(err);
    if (const std::optional<std::string> problem = InputProblem(request.kind, request.file)) {
        messages.ShowError(*problem);
        return kExitFailure;
    }
    try {
        Catalogue catalogue = LoadPartnames(request.file, request.kind, request.filters, messages);
        for (const CatalogueEntry& entry : catalogue.entries) {
            if (entry.selected) {
                out << entry.name << '\n';
            }
        }
        out.flush();
        err << catalogue.statusText << '\n';
    } catch (const std::exception& error) {
        return ReportFailure(err, error);
    }
    return messages.HadError() ? kExitFailure : kExitOk;
}

}  // namespace zantor

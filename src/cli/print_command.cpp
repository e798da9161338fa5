#include "cli/print_command.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QtGlobal>
#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <string_view>

#include "cli/command_line.h"
#include "cli/output_guard.h"
#include "cli/stream_messages.h"
#include "cli/terminal.h"
#include "cli/terminal_progress.h"
#include "common/errors.h"
#include "jobs/plot_context.h"
#include "jobs/print_job.h"
#include "library/catalogue.h"
#include "output/output_choice.h"
#include "shell/input_check.h"
#include "shell/settings_io.h"
#include "shell/settings_store.h"

namespace zantor {

const char* const kPrintCommandHelp =
    "  print FILE [--kind decal|index|parttype] [--select NAME]...\n"
    "        [--decal-lib PATH]... (--output OUT | --printer QUEUE)\n"
    "        [--paper A4|A3|Letter|Legal]\n"
    "                Print FILE as the GUI's print commands do, with the user's\n"
    "                settings (read, never written): decal pages, one decal to a\n"
    "                page (the default kind), index pages, many decals to a page,\n"
    "                or parttype pages (a .p or .asc FILE), one parttype to a page\n"
    "                with its attributes, decals and pin table. Without --select\n"
    "                every name that `zantor list` shows is printed; --select NAME\n"
    "                (repeatable) prints the names given, in the order of that list.\n"
    "                The stroke font is the Fontfile setting (default: the bundled\n"
    "                font).\n"
    "                --decal-lib PATH (repeatable, parttype kind) search these decal\n"
    "                                 libraries, in the order given, for the\n"
    "                                 decals of a parttype library instead of the\n"
    "                                 stored decal library list. A PCB file's\n"
    "                                 parttypes take the decals of the file.\n"
    "                --output OUT     write files; the extension chooses the kind:\n"
    "                                 .pdf one document (with SeperatePages set,\n"
    "                                 one per decal: OUT-1.pdf, OUT-2.pdf, ...),\n"
    "                                 .svg and .png one file per page (OUT-1.svg,\n"
    "                                 ...), .trace the drawing calls as text.\n"
    "                                 The files written are listed on standard\n"
    "                                 output; none is left half-written.\n"
    "                --printer QUEUE  print on a printer of the system, on its paper\n"
    "                --paper SIZE     the paper of --output files (default A4)\n"
    "                Progress (count, name, bar, time left) is shown on standard\n"
    "                error when it is a terminal; Ctrl-C stops the print (status\n"
    "                130) and leaves no file and sends no half document.\n"
    "                FILE must be a source of the kind by its first line: a decal\n"
    "                library or PCB file for decals, a parttype library or PCB file\n"
    "                for parttypes. A --select NAME the list does not hold stops the\n"
    "                command before it prints (status 1). A listed item the run\n"
    "                does not find is reported and left out; the status is then 0\n"
    "                when other items were printed, 1 when none was.\n";

namespace {

struct PrintRequest {
    std::string file;
    PlotKind kind = PlotKind::Decal;
    std::vector<std::string> selection;
    std::vector<std::string> decalLibraries;
    std::optional<std::string> output;
    std::optional<std::string> printer;
    std::optional<PaperSize> paper;
};

// Fills `request` from the arguments; the problem of a wrong command line otherwise.
std::optional<std::string> ParseArguments(const CommandArguments& args, PrintRequest& request) {
    for (const std::string& value : args.Values("kind")) {
        if (value == "decal") {
            request.kind = PlotKind::Decal;
        } else if (value == "index") {
            request.kind = PlotKind::Index;
        } else if (value == "parttype") {
            request.kind = PlotKind::Parttype;
        } else {
            return "--kind takes decal, index or parttype, not \"" + value + "\"";
        }
    }
    request.selection = args.Values("select");
    for (const std::string& value : args.Values("decal-lib")) {
        if (value.empty()) {
            return "--decal-lib needs the path of a decal library";
        }
        request.decalLibraries.push_back(value);
    }
    for (const std::string& value : args.Values("output")) {
        if (!FileOutputKind(value)) {
            return "--output takes a .pdf, .svg, .png or .trace file, not \"" + value + "\"";
        }
        request.output = value;
    }
    for (const std::string& value : args.Values("printer")) {
        if (value.empty()) {
            return "--printer needs the name of a print queue";
        }
        request.printer = value;
    }
    for (const std::string& value : args.Values("paper")) {
        request.paper = ParsePaperSize(value);
        if (!request.paper) {
            return "--paper takes A4, A3, Letter or Legal, not \"" + value + "\"";
        }
    }
    if (args.Files().empty()) {
        return "print needs a FILE";
    }
    if (args.Files().size() > 1) {
        return "print takes one FILE";
    }
    request.file = args.Files().front();
    if (request.output && request.printer) {
        return "print writes to --output or to --printer, not to both";
    }
    if (!request.output && !request.printer) {
        return "print needs --output OUT or --printer QUEUE";
    }
    if (!request.decalLibraries.empty() && request.kind != PlotKind::Parttype) {
        return "--decal-lib is for parttype pages (--kind parttype)";
    }
    if (request.printer && request.paper) {
        return "--paper is for --output files; a printer prints on its own paper";
    }
    return std::nullopt;
}

// Qt's note that a session without a display has no runtime folder says nothing about the job;
// everything else Qt says goes to standard error as Qt writes it.
void QuietSessionMessages(QtMsgType type, const QMessageLogContext& context,
                          const QString& message) {
    if (message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"))) {
        return;
    }
    std::cerr << qFormatLogMessage(type, context, message).toStdString() << std::endl;
}

// Text and printers need a GUI application. Without a display of its own choosing the command
// draws offscreen, so that it runs on machines without one.
class GuiSession {
  public:
    GuiSession() {
        if (QCoreApplication::instance() != nullptr) {
            return;
        }
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
            arguments_.push_back(platformOption_.data());
            arguments_.push_back(offscreen_.data());
        }
        argc_ = static_cast<int>(arguments_.size());
        arguments_.push_back(nullptr);
        qInstallMessageHandler(QuietSessionMessages);
        app_ = std::make_unique<QGuiApplication>(argc_, arguments_.data());
    }
    ~GuiSession() {
        if (app_) {
            app_.reset();
            qInstallMessageHandler(nullptr);
        }
    }
    GuiSession(const GuiSession&) = delete;
    GuiSession& operator=(const GuiSession&) = delete;

  private:
    std::string name_ = "zantor";
    std::string platformOption_ = "-platform";
    std::string offscreen_ = "offscreen";
    std::vector<char*> arguments_{name_.data()};
    int argc_ = 0;
    std::unique_ptr<QGuiApplication> app_;
};

// The names to print: the catalogue's, or those of them that were asked for, in its order.
// Asked-for names the catalogue does not list are reported; the result is then empty.
std::optional<std::vector<std::string>> SelectedNames(const Catalogue& catalogue,
                                                      const std::vector<std::string>& asked,
                                                      const std::string& file, PlotKind kind,
                                                      UserMessages& messages) {
    std::vector<std::string> names;
    const std::set<std::string, std::less<>> wanted(asked.begin(), asked.end());
    std::set<std::string, std::less<>> listed;
    for (const CatalogueEntry& entry : catalogue.entries) {
        if (entry.selected && (wanted.empty() || wanted.count(entry.name) != 0)) {
            names.push_back(entry.name);
        }
        listed.insert(entry.name);
    }
    bool allListed = true;
    for (const std::string& name : asked) {
        if (listed.count(name) == 0) {
            messages.ShowError(
                std::string(kind == PlotKind::Parttype ? "Not a parttype of " : "Not a decal of ") +
                file + ": " + name);
            allListed = false;
        }
    }
    if (!allListed) {
        return std::nullopt;
    }
    return names;
}

int RunPrint(const PrintRequest& request, std::ostream& out, std::ostream& err) {
    StreamMessages messages(err);
    const bool parttypes = request.kind == PlotKind::Parttype;
    // A parttype library passes the GUI's first-line decal test and a decal library its parttype
    // test; neither holds the other's items.
    if (const std::optional<std::string> problem = InputProblem(request.kind, request.file)) {
        messages.ShowError(*problem);
        return kExitFailure;
    }
    const GuiSession gui;
    PlotContext context;
    // The GUI saves the settings it has just loaded before it prints; nothing in the job reads
    // them back, so the command leaves the store as it is.
    const SettingsStore mainStore = SettingsStore::OpenMain();
    const SettingsStore zantorStore = SettingsStore::OpenZantor();
    if (!PreparePrintCommand(context, request.kind, request.file, mainStore, zantorStore, nullptr,
                             messages)) {
        return kExitFailure;
    }
    if (parttypes) {
        std::vector<std::string> recentFiles;
        LoadRecentFiles(recentFiles, context.ParttypeTextSizes, mainStore);
        if (!request.decalLibraries.empty()) {
            context.DecalLibList = request.decalLibraries;
        }
    }
    const Catalogue catalogue =
        LoadPartnames(request.file, request.kind, CatalogueFilters{}, messages);
    const auto names =
        SelectedNames(catalogue, request.selection, request.file, request.kind, messages);
    if (!names) {
        return kExitFailure;
    }
    if (names->empty()) {
        messages.ShowError("Nothing to print: " + request.file +
                           (parttypes ? " lists no parttypes." : " lists no decals."));
        return kExitFailure;
    }

    OutputRequest output;
    output.printer = request.printer.value_or("");
    output.file = request.output.value_or("");
    output.paper = request.paper.value_or(PaperSize::A4);
    // Every decal page and every parttype is a document of its own with SeperatePages; index
    // pages are not.
    output.separateDocuments =
        context.PlotSettings.SeperatePages && request.kind != PlotKind::Index;
    if (!output.file.empty()) {
        const std::optional<OutputKind> kind = FileOutputKind(output.file);
        const bool numbered =
            output.separateDocuments || kind == OutputKind::Svg || kind == OutputKind::Png;
        if (OutputWouldReplaceInput(request.file, output.file, numbered)) {
            messages.ShowError("The output would overwrite the input file " + request.file);
            return kExitFailure;
        }
    }
    const std::unique_ptr<PageOutput> target = MakePageOutput(output);

    std::optional<TerminalProgress> progress;
    if (&err == &std::cerr && StandardErrorIsTerminal()) {
        progress.emplace(err, StandardErrorWidth());
    }
    PrintJob job(context, *target, messages);
    const PrintSummary summary = job.PrintDecals(*names, progress ? &*progress : nullptr);
    for (const std::filesystem::path& file : target->WrittenFiles()) {
        out << file.string() << '\n';
    }
    out.flush();
    // A listed name the run then does not find is left out, as the GUI leaves it out; the pages
    // of the others are complete, so the print only fails when it printed nothing.
    for (const std::string& name : summary.notFound) {
        messages.ShowInfo((parttypes ? "Parttype not found in " : "Decal not found in ") +
                          request.file + ", not printed: " + name);
    }
    return summary.printed > 0 ? kExitOk : kExitFailure;
}

}  // namespace

const std::vector<std::string> kPrintCommandOptions = {"kind",   "select",  "decal-lib",
                                                       "output", "printer", "paper"};

int RunPrintCommand(const CommandArguments& args, std::ostream& out, std::ostream& err) {
    PrintRequest request;
    if (std::optional<std::string> problem = ParseArguments(args, request)) {
        return ReportUsageError(err, *problem);
    }
    try {
        return RunPrint(request, out, err);
    } catch (const std::exception& error) {
        out.flush();
        return ReportFailure(err, error);
    }
}

}  // namespace zantor

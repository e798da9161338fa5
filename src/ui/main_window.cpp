#include "ui/main_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QStyle>
#include <exception>
#include <filesystem>
#include <system_error>

#include "jobs/print_job.h"
#include "shell/identification.h"
#include "shell/settings_io.h"
#include "shell/settings_store.h"
#include "ui/decal_lib_list.h"
#include "ui/decal_setup.h"
#include "ui/font_file_dialog.h"
#include "ui/help.h"
#include "ui/input_file_rules.h"
#include "ui/options_setup.h"
#include "ui/paper_setup.h"
#include "ui/printer_choice.h"
#include "ui/progress_window.h"
#include "ui/select_decals.h"

namespace zantor {
namespace {

constexpr const char* kNotADecalFile = "Inputfile unknown or not a decal-file.";
constexpr const char* kNotAParttypeFile = "Inputfile unknown or not a parttype-file.";
constexpr const char* kOpenFilters =
    "Library decal  ASCII-file (*.d);;Library parttype ASCII-file (*.p);;"
    "PCB ASCII-file (*.asc);;(any file) (*.*)";

std::string LocalText(const QString& text) {
    return text.toLocal8Bit().toStdString();
}

QPushButton* Button(QWidget* parent, const char* name, const QString& caption, const char* hint,
                    const QRect& place) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(QString::fromLatin1(hint));
    button->setStatusTip(QString::fromLatin1(hint));
    button->setGeometry(place);
    return button;
}

// What a print command may change and must give back when it fails.
struct CommandState {
    explicit CommandState(const PlotContext& context)
        : settings(context.PlotSettings),
          kind(context.PlotKind),
          attributes(context.AttributeList) {}
    void Restore(PlotContext& context) const {
        context.PlotSettings = settings;
        context.PlotKind = kind;
        context.AttributeList = attributes;
    }
    PlotSettings settings;
    PlotKind kind;
    AttributeList attributes;
};

}  // namespace

TMainForm::TMainForm(WindowServices& services, QWidget* parent)
    : QMainWindow(parent), services_(services) {
    setObjectName(QStringLiteral("MainForm"));
    setWindowTitle(QStringLiteral("Zantor"));
    BuildControls();
    BuildMenus();

    std::vector<std::string> recent;
    PlotContext& context = services_.context;
    context.PlotKind = PlotKind::Decal;
    try {
        const SettingsStore store = SettingsStore::OpenMain();
        LoadRecentFiles(recent, services_.context.ParttypeTextSizes, store);
        LoadSettings(context.PlotSettings, context.PlotKind, store);
    } catch (const std::exception& error) {
        services_.messages.ShowError(error.what());
    }
    {
        const QSignalBlocker block(InputFile);
        for (const std::string& name : recent) {
            InputFile->addItem(QString::fromLocal8Bit(name));
        }
        InputFile->setEditText(QString::fromLocal8Bit(context.PlotSettings.Inputfile));
    }
    EnableButtons();
}

void TMainForm::BuildControls() {
    auto* client = new QWidget(this);
    client->setObjectName(QStringLiteral("Client"));
    setCentralWidget(client);

    auto* label = new QLabel(QStringLiteral("Input-file"), client);
    label->setGeometry(8, 6, 120, 18);
    InputFile = new QComboBox(client);
    InputFile->setObjectName(QStringLiteral("InputFile"));
    InputFile->setEditable(true);
    InputFile->setInsertPolicy(QComboBox::NoInsert);
    InputFile->setMaxCount(static_cast<int>(kMaxRecentFiles));
    InputFile->setGeometry(8, 24, 372, 25);
    label->setBuddy(InputFile);
    btnOpen = Button(client, "btnOpen", QString(), "Browse for filename", QRect(384, 24, 30, 25));
    btnOpen->setIcon(style()->standardIcon(QStyle::SP_DirOpenIcon));

    PrintDecal = Button(client, "PrintDecal", QStringLiteral("Print &Decal"),
                        "Select decals for decal-print", QRect(8, 60, 108, 28));
    PrintIndex = Button(client, "PrintIndex", QStringLiteral("Print &Index"),
                        "Select decals for index-print", QRect(120, 60, 108, 28));
    PrintParttype = Button(client, "PrintParttype", QStringLiteral("Print &Parttype"),
                           "Select parttypes to print", QRect(232, 60, 112, 28));
    HelpButton = Button(client, "HelpButton", QString(), "Help contents.", QRect(350, 60, 30, 28));
    HelpButton->setIcon(style()->standardIcon(QStyle::SP_MessageBoxQuestion));
    ExitButton = Button(client, "ExitButton", QString(), "Exit program", QRect(384, 60, 30, 28));
    ExitButton->setIcon(style()->standardIcon(QStyle::SP_DialogCloseButton));
    client->setFixedSize(422, 98);

    auto* status = new QStatusBar(this);
    status->setObjectName(QStringLiteral("StatusBar"));
    status->setSizeGripEnabled(false);
    setStatusBar(status);

    connect(InputFile, &QComboBox::editTextChanged, this, &TMainForm::InputFileChange);
    connect(btnOpen, &QPushButton::clicked, this, &TMainForm::btnOpenClick);
    connect(PrintDecal, &QPushButton::clicked, this, &TMainForm::PrintDecalClick);
    connect(PrintIndex, &QPushButton::clicked, this, &TMainForm::PrintIndexClick);
    connect(PrintParttype, &QPushButton::clicked, this, &TMainForm::PrintParttypeClick);
    connect(ExitButton, &QPushButton::clicked, this, &QWidget::close);
    connect(HelpButton, &QPushButton::clicked, this, [this] { ShowHelp(this, kHelpContents); });
    auto* f1 = new QShortcut(QKeySequence::HelpContents, this);
    connect(f1, &QShortcut::activated, this, [this] { ShowHelp(this, kHelpMainWindow); });
}

void TMainForm::BuildMenus() {
    auto addItem = [this](QMenu* menu, const char* name, const char* text,
                          std::function<void()> action) {
        QAction* item = menu->addAction(QString::fromLatin1(text));
        item->setObjectName(QString::fromLatin1(name));
        if (action) {
            connect(item, &QAction::triggered, this, std::move(action));
        } else {
            item->setEnabled(false);
        }
        return item;
    };
    // A setup entry opens its dialog when the dialog is there; until then it is disabled.
    auto setupAction = [this](std::function<void(QWidget*)> dialog,
                              std::function<void()> before = {}) -> std::function<void()> {
        if (!dialog) {
            return {};
        }
        return [this, dialog, before] {
            if (before) {
                before();
            }
            dialog(this);
        };
    };
    auto kindSetter = [this](PlotKind kind) {
        return [this, kind] { services_.context.PlotKind = kind; };
    };

    QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
    addItem(file, "Open1", "&Open...", [this] { btnOpenClick(); });
    addItem(file, "Printersetup1", "&Printer setup...", [this] { Printersetup1Click(); });
    file->addSeparator();
    addItem(file, "Exit1", "E&xit", [this] { close(); });

    QMenu* setup = menuBar()->addMenu(QStringLiteral("&Setup"));
    addItem(setup, "D1", "PCB-&decal...",
            setupAction(DecalSetupDialog(), kindSetter(PlotKind::Decal)));
    addItem(setup, "I1", "PCB-decal &index...",
            setupAction(DecalSetupDialog(), kindSetter(PlotKind::Index)));
    addItem(setup, "Parttype1", "Par&ttype...",
            setupAction(DecalSetupDialog(), kindSetter(PlotKind::Parttype)));
    setup->addSeparator();
    addItem(setup, "P1", "&Paper...", setupAction(PaperSetupDialog()));
    addItem(setup, "O1", "&Options...", setupAction(OptionsDialog()));
    addItem(setup, "Fontfile1", "&Fontfile...", setupAction(FontFileDialog()));

    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    addItem(help, "Introduction1", "&Introduction", [this] { ShowHelp(this, kHelpIntroduction); });
    addItem(help, "Contents1", "&Contents", [this] { ShowHelp(this, kHelpContents); });
    help->addSeparator();
    addItem(help, "About1", "&About...", [this] { ShowAbout(this); });
}

// ---- The setup dialogs -------------------------------------------------------------------
// Each function returns what shows its dialog modally over the given window; the dialogs copy
// the settings in and out and save them themselves. An empty function would leave its menu entry
// (and the selection dialog's "&Setup" or "&Lib. List..." button) disabled.

std::function<void(QWidget*)> TMainForm::DecalSetupDialog() {
    // The dialog serves the context's PlotKind, which the menu entry or the command has set.
    return [this](QWidget* parent) {
        TDecalSetup dialog(services_.context, services_.messages, services_.dialogs, parent);
        dialog.exec();
    };
}

std::function<void(QWidget*)> TMainForm::DecalLibListDialog() {
    return [this](QWidget* parent) {
        TDecalLibList dialog(services_.context, services_.dialogs, services_.messages, parent);
        dialog.exec();
    };
}

std::function<void(QWidget*)> TMainForm::PaperSetupDialog() {
    return [this](QWidget* parent) {
        TPaperSetup dialog(services_.context, services_.messages, parent);
        dialog.exec();
    };
}

std::function<void(QWidget*)> TMainForm::OptionsDialog() {
    return [this](QWidget* parent) {
        TOptionsSetup dialog(services_.context, services_.messages, parent);
        dialog.exec();
    };
}

std::function<void(QWidget*)> TMainForm::FontFileDialog() {
    return [this](QWidget* parent) {
        TPADSFontFile dialog(services_.dialogs, parent);
        RunFontFileDialog(dialog, services_.context, services_.messages);
    };
}

// ---------------------------------------------------------------------------------------------

std::vector<std::string> TMainForm::RecentFiles() const {
    std::vector<std::string> names;
    for (int item = 0; item < InputFile->count(); ++item) {
        names.push_back(LocalText(InputFile->itemText(item)));
    }
    return names;
}

void TMainForm::SetInputFile(const QString& name) {
    InputFile->setEditText(name);
}

void TMainForm::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    EnableButtons();
}

void TMainForm::closeEvent(QCloseEvent* event) {
    try {
        SettingsStore store = SettingsStore::OpenMain();
        SaveRecentFiles(RecentFiles(), services_.context.ParttypeTextSizes, store);
    } catch (const std::exception& error) {
        services_.messages.ShowError(error.what());
    }
    QMainWindow::closeEvent(event);
}

void TMainForm::EnableButtons() {
    const PrintButtons enabled = EnabledPrintButtons(LocalText(InputFile->currentText()));
    PrintDecal->setEnabled(enabled.decal);
    PrintIndex->setEnabled(enabled.index);
    PrintParttype->setEnabled(enabled.parttype);
}

void TMainForm::InputFileChange(const QString& text) {
    services_.context.PlotSettings.Inputfile = CutToCapacity(LocalText(text), kFileNameCapacity);
    EnableButtons();
}

void TMainForm::btnOpenClick() {
    const QString current = InputFile->currentText();
    const std::optional<QString> chosen = services_.dialogs.OpenFileName(
        this, QStringLiteral("Open"), current, QString::fromLatin1(kOpenFilters));
    SetInputFile(chosen.value_or(current));
    EnableButtons();
}

void TMainForm::AddToRecentFiles() {
    const QString text = InputFile->currentText();
    std::vector<std::string> recent = RecentFiles();
    zantor::AddToRecentFiles(recent, LocalText(text));
    const QSignalBlocker block(InputFile);
    InputFile->clear();
    for (const std::string& name : recent) {
        InputFile->addItem(QString::fromLocal8Bit(name));
    }
    InputFile->setEditText(text);
}

void TMainForm::PrintDecalClick() {
    RunDecalCommand(PlotKind::Decal);
}

void TMainForm::PrintIndexClick() {
    RunDecalCommand(PlotKind::Index);
}

void TMainForm::RunDecalCommand(PlotKind kind) {
    const std::string file = LocalText(InputFile->currentText());
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        services_.messages.ShowError(kNotADecalFile);
        return;
    }
    RunPrintCommand(kind, file);
}

void TMainForm::PrintParttypeClick() {
    const std::string file = LocalText(InputFile->currentText());
    bool parttypes = false;
    try {
        parttypes = IsParttypeFile(file);
    } catch (const std::exception&) {
        parttypes = false;  // a file that cannot be read is no parttype file either
    }
    if (!parttypes) {
        services_.messages.ShowError(kNotAParttypeFile);
        return;
    }
    RunPrintCommand(PlotKind::Parttype, file);
}

void TMainForm::RunPrintCommand(PlotKind kind, const std::string& file) {
    AddToRecentFiles();
    PlotContext& context = services_.context;
    const CommandState before(context);
    try {
        SettingsStore mainStore = SettingsStore::OpenMain();
        const SettingsStore zantorStore = SettingsStore::OpenZantor();
        if (PreparePrintCommand(context, kind, file, mainStore, zantorStore, &mainStore,
                                services_.messages)) {
            SelectAndPrint();
        }
    } catch (const std::exception& failure) {
        before.Restore(context);
        services_.messages.ShowError(failure.what());
    }
    context.StrokeFont.Free();
}

void TMainForm::SelectAndPrint() {
    TSelectDecals dialog(services_, this);
    dialog.SetDecalSetup(DecalSetupDialog());
    dialog.SetLibList(DecalLibListDialog());
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const std::vector<std::string> names = dialog.SelectedNames();
    if (names.empty()) {
        return;
    }
    PrintSelection(names);
}

void TMainForm::PrintSelection(const std::vector<std::string>& names) {
    PlotContext& context = services_.context;
    // Every decal page and every parttype is a document of its own with SeperatePages; index
    // pages are not.
    const bool separateDocuments =
        context.PlotSettings.SeperatePages && context.PlotKind != PlotKind::Index;
    const std::unique_ptr<PageOutput> target =
        MakePrinterOutput(services_.printer, separateDocuments);
    TProcWin progress(
        *target,
        [this, &target, &names](PrintProgress& shown) {
            PrintJob job(services_.context, *target, services_.messages);
            job.PrintDecals(names, &shown);
        },
        services_.messages, this);
    progress.exec();
}

void TMainForm::Printersetup1Click() {
    services_.dialogs.ExecPrinterSetup(this, services_.printer);
}

}  // namespace zantor

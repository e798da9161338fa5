// Writes a PNG of every page of the decal setup dialog (for each print kind) and of the library
// list, paper, options and font file dialogs, for people to look at. Usage:
//     zantor_setup_screens OUTDIR [INPUTFILE]
// The dialogs use the settings of the user running it; point XDG_CONFIG_HOME elsewhere to keep
// them apart.

#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QPixmap>
#include <QTabWidget>
#include <iostream>
#include <optional>

#include "common/user_messages.h"
#include "jobs/plot_context.h"
#include "shell/attribute_store.h"
#include "shell/decal_lib_list.h"
#include "ui/decal_lib_list.h"
#include "ui/decal_setup.h"
#include "ui/dialog_services.h"
#include "ui/font_file_dialog.h"
#include "ui/options_setup.h"
#include "ui/paper_setup.h"

namespace {

class NoDialogs : public zantor::DialogServices {
  public:
    std::optional<QString> OpenFileName(QWidget*, const QString&, const QString&,
                                        const QString&) override {
        return std::nullopt;
    }
    std::optional<QString> SaveFileName(QWidget*, const QString&, const QString&,
                                        const QString&) override {
        return std::nullopt;
    }
    bool ExecPrintDialog(QWidget*, QPrinter&) override { return false; }
    bool ExecPrinterSetup(QWidget*, QPrinter&) override { return false; }
};

void Save(QWidget& widget, const QDir& folder, const QString& name) {
    QApplication::processEvents();
    const QString file = folder.filePath(name + ".png");
    widget.grab().save(file);
    std::cout << file.toStdString() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 2) {
        std::cerr << "usage: zantor_setup_screens OUTDIR [INPUTFILE]\n";
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    NoDialogs dialogs;
    zantor::StderrMessages messages;
    zantor::PlotContext context;
    {
        zantor::SettingsStore store = zantor::SettingsStore::OpenMain();
        zantor::SaveAttributes({{"Value", true}, {"Part Number", false}, {"Geometry.Height", true}},
                               store);
        if (argc > 2) {
            zantor::SaveDecalLibList({argv[2]}, store);
        }
    }

    const std::pair<zantor::PlotKind, const char*> kinds[] = {
        {zantor::PlotKind::Decal, "decal"},
        {zantor::PlotKind::Index, "index"},
        {zantor::PlotKind::Parttype, "parttype"}};
    for (const auto& [kind, name] : kinds) {
        context.PlotKind = kind;
        zantor::TDecalSetup setup(context, messages, dialogs);
        setup.show();
        auto* tabs = setup.findChild<QTabWidget*>("DecalTabs");
        for (int page = 0; page < tabs->count(); ++page) {
            if (!tabs->isTabVisible(page)) {
                continue;
            }
            tabs->setCurrentIndex(page);
            Save(setup, folder,
                 QString("setup-%1-%2").arg(name).arg(tabs->tabText(page).replace('/', '-')));
        }
        setup.reject();
    }

    zantor::TDecalLibList libList(context, dialogs, messages);
    libList.show();
    libList.findChild<QListWidget*>("LibList")->setCurrentRow(0);
    Save(libList, folder, "lib-list");
    zantor::TPaperSetup paper(context, messages);
    paper.show();
    Save(paper, folder, "paper-setup");
    context.PlotSettings.Company = "Brovik Elektronik";
    zantor::TOptionsSetup options(context, messages);
    options.show();
    Save(options, folder, "options-setup");
    zantor::TPADSFontFile font(dialogs);
    font.SetFileName(QString::fromStdString(context.PlotSettings.Fontfile));
    font.show();
    Save(font, folder, "font-file");
    return 0;
}

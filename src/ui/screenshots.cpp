#include "ui/screenshots.h"

#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QPixmap>
#include <exception>
#include <iostream>

#include "output/output_choice.h"
#include "shell/settings_store.h"
#include "ui/main_window.h"
#include "ui/preview_window.h"
#include "ui/progress_window.h"
#include "ui/select_decals.h"

namespace zantor {
namespace {

// `settle`: let the window take its events (layout, paint) first.
bool Save(QWidget& widget, const QDir& folder, const char* name, bool settle = true) {
    widget.show();
    for (int round = 0; settle && round < 5; ++round) {
        QApplication::processEvents();
    }
    const QString file = folder.filePath(QString::fromLatin1(name));
    if (!widget.grab().save(file)) {
        std::cerr << "zantor: cannot write " << file.toStdString() << '\n';
        return false;
    }
    std::cout << file.toStdString() << '\n';
    return true;
}

bool Prepare(WindowServices& services, PlotKind kind, const std::string& file) {
    return PreparePrintCommand(services.context, kind, file, SettingsStore::OpenMain(),
                               SettingsStore::OpenZantor(), nullptr, services.messages);
}

}  // namespace

int TakeScreenshots(TMainForm& window, WindowServices& services, const std::string& folder) {
    const QDir dir(QString::fromLocal8Bit(folder));
    if (!dir.mkpath(QStringLiteral("."))) {
        std::cerr << "zantor: cannot make " << folder << '\n';
        return 1;
    }
    bool ok = Save(window, dir, "main.png");
    const std::string file = services.context.PlotSettings.Inputfile;
    try {
        if (!Prepare(services, PlotKind::Decal, file)) {
            return 1;
        }
        std::vector<std::string> names;
        {
            TSelectDecals select(services, &window);
            select.show();
            QApplication::processEvents();
            // One decal selected, so that the view box shows it.
            auto* list = select.findChild<QListWidget*>(QStringLiteral("Namelist"));
            if (list != nullptr && list->count() > 0) {
                list->setCurrentRow(0, QItemSelectionModel::ClearAndSelect);
            }
            ok = Save(select, dir, "select_decals.png") && ok;
            names = select.SelectedNames();
        }
        {
            TPreviewWin preview(services, names, &window);
            ok = Save(preview, dir, "preview_decal.png") && ok;
        }
        if (!Prepare(services, PlotKind::Index, file)) {
            return 1;
        }
        {
            TSelectDecals select(services, &window);
            select.show();
            QApplication::processEvents();
            TPreviewWin preview(services, select.SelectedNames(), &window);
            ok = Save(preview, dir, "preview_index.png") && ok;
        }
        {
            // A run halfway through its second decal; nothing is printed.
            OutputRequest request;
            request.file = dir.filePath(QStringLiteral("unused.trace")).toStdString();
            const auto target = MakePageOutput(request);
            TProcWin progress(
                *target, [](PrintProgress&) {}, services.messages, &window);
            progress.Started(3);
            progress.Position(1);
            progress.Looking(names.empty() ? std::string("DIP14") : names.front());
            // Before the window takes its events, which would run the job to its end.
            ok = Save(progress, dir, "progress.png", false) && ok;
        }
    } catch (const std::exception& error) {
        std::cerr << "zantor: " << error.what() << '\n';
        return 1;
    }
    services.context.StrokeFont.Free();
    return ok ? 0 : 1;
}

}  // namespace zantor

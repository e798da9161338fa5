#include "ui/desktop_program.h"

#include <QApplication>
#include <QIcon>
#include <QPrinter>
#include <filesystem>
#include <system_error>

#include "font/font_location.h"
#include "jobs/plot_context.h"
#include "ui/main_window.h"
#include "ui/message_boxes.h"
#include "ui/screenshots.h"
#include "ui/system_dialogs.h"

namespace zantor {
namespace {

QIcon ProgramIcon() {
    for (const auto& dir : BundledFontDirs()) {
        std::error_code error;
        if (std::filesystem::is_regular_file(dir / "zantor.svg", error)) {
            return QIcon(QString::fromStdString((dir / "zantor.svg").string()));
        }
    }
    return QIcon::fromTheme(QStringLiteral("zantor"));
}

}  // namespace

int RunDesktopProgram(int argc, char** argv, const DesktopOptions& options) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Zantor"));
    QApplication::setApplicationDisplayName(QStringLiteral("Zantor"));
    QApplication::setApplicationVersion(QStringLiteral(ZANTOR_VERSION));
    QApplication::setOrganizationName(QStringLiteral("Brovik"));
    QApplication::setDesktopFileName(QStringLiteral("zantor"));
    QApplication::setWindowIcon(ProgramIcon());

    PlotContext context;
    QPrinter printer(QPrinter::HighResolution);
    SystemDialogs dialogs;
    MessageBoxes messages;
    WindowServices services{context, printer, dialogs, messages};

    TMainForm window(services);
    messages.SetParent(&window);
    if (options.inputFile) {
        window.SetInputFile(QString::fromLocal8Bit(*options.inputFile));
    }
    if (options.screenshotDir) {
        return TakeScreenshots(window, services, *options.screenshotDir);
    }
    window.show();
    return QApplication::exec();
}

}  // namespace zantor

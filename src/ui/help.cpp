#include "ui/help.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTextBrowser>
#include <QUrl>
#include <system_error>

#include "font/font_location.h"

namespace zantor {

QString HelpPage(int context) {
    switch (context) {
        case kHelpIntroduction:
            return QStringLiteral("introduction.html");
        case kHelpMainWindow:
            return QStringLiteral("main_window.html");
        case kHelpSelectDecals:
            return QStringLiteral("select_decals.html");
        case kHelpSelectAll:
            return QStringLiteral("select_decals.html#select-all");
        case kHelpNamelist:
            return QStringLiteral("select_decals.html#names");
        case kHelpPreview:
            return QStringLiteral("preview.html");
        case kHelpProgress:
            return QStringLiteral("progress.html");
        case kHelpDecalLibList:
            return QStringLiteral("decal_lib_list.html");
        case kHelpFontFile:
            return QStringLiteral("font_file.html");
        default:
            return QStringLiteral("index.html");
    }
}

std::filesystem::path HelpDir() {
    // The help lies in the same data folders as the bundled font.
    for (const auto& dir : BundledFontDirs()) {
        std::error_code error;
        if (std::filesystem::is_regular_file(dir / "help" / "index.html", error)) {
            return dir / "help";
        }
    }
    return {};
}

void ShowHelp(QWidget* parent, int context) {
    static QPointer<QTextBrowser> window;
    const std::filesystem::path dir = HelpDir();
    if (dir.empty()) {
        QMessageBox::warning(parent, QStringLiteral("Zantor"),
                             QStringLiteral("The help pages are not installed."));
        return;
    }
    if (window.isNull()) {
        // A window of its own, owned by the program's main window so that it goes with it.
        QWidget* owner = parent;
        while (owner != nullptr && owner->parentWidget() != nullptr) {
            owner = owner->parentWidget();
        }
        window = new QTextBrowser(owner);
        window->setWindowFlag(Qt::Window);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setObjectName(QStringLiteral("HelpWindow"));
        window->setWindowTitle(QStringLiteral("Zantor Help"));
        window->setOpenExternalLinks(true);
        window->resize(560, 520);
        window->setSearchPaths({QString::fromStdString(dir.string())});
    }
    const QString page = HelpPage(context);
    const QString file = page.section(QLatin1Char('#'), 0, 0);
    QUrl url = QUrl::fromLocalFile(QString::fromStdString((dir / file.toStdString()).string()));
    url.setFragment(page.section(QLatin1Char('#'), 1));
    window->setSource(url);
    window->show();
    window->raise();
    window->activateWindow();
}

QString AboutText() {
    return QStringLiteral(
               "<h3>Zantor %1</h3>"
               "<p>Prints PADS PowerPCB ASCII decal and parttype libraries as drawing sheets.</p>"
               "<p>The bundled stroke font is the Hershey Roman Simplex font. The Hershey Fonts "
               "were originally created by Dr. A. V. Hershey while working at the U. S. National "
               "Bureau of Standards. The format of the Font data in the hershey-fonts "
               "distribution was originally created by James Hurt, Cognition, Inc., 900 "
               "Technology Park Drive, Billerica, MA 01821.</p>")
        .arg(QApplication::applicationVersion());
}

void ShowAbout(QWidget* parent) {
    QMessageBox::about(parent, QStringLiteral("About Zantor"), AboutText());
}

}  // namespace zantor

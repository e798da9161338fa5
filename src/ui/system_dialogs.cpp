#include "ui/system_dialogs.h"

#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>

namespace zantor {

std::optional<QString> SystemDialogs::OpenFileName(QWidget* parent, const QString& caption,
                                                   const QString& directory,
                                                   const QString& filters) {
    const QString name = QFileDialog::getOpenFileName(parent, caption, directory, filters);
    if (name.isEmpty()) {
        return std::nullopt;
    }
    return name;
}

std::optional<QString> SystemDialogs::SaveFileName(QWidget* parent, const QString& caption,
                                                   const QString& suggested,
                                                   const QString& filters) {
    // Qt's save dialog asks before it lets the user pick an existing file.
    const QString name = QFileDialog::getSaveFileName(parent, caption, suggested, filters);
    if (name.isEmpty()) {
        return std::nullopt;
    }
    return name;
}

bool SystemDialogs::ExecPrintDialog(QWidget* parent, QPrinter& printer) {
    QPrintDialog dialog(&printer, parent);
    return dialog.exec() == QDialog::Accepted;
}

bool SystemDialogs::ExecPrinterSetup(QWidget* parent, QPrinter& printer) {
    // The printer and, through its Properties, its paper; both stay on `printer` for the next
    // print run.
    QPrintDialog choose(&printer, parent);
    choose.setOption(QAbstractPrintDialog::PrintToFile, false);
    choose.setWindowTitle(QStringLiteral("Printer setup"));
    return choose.exec() == QDialog::Accepted;
}

}  // namespace zantor

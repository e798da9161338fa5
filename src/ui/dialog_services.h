#pragma once

// The modal windows of the system that the program's windows open: file dialogs and the printer
// dialogs. The windows ask for them through this interface, so that tests answer them without a
// modal loop. Messages and questions go through UserMessages (core).

#include <QString>
#include <optional>

class QPrinter;
class QWidget;

namespace zantor {

class DialogServices {
  public:
    virtual ~DialogServices() = default;

    // An open-file dialog with `filters` ("Decal files (*.d);;All files (*.*)"), the first one
    // chosen; nullopt when the user cancels.
    virtual std::optional<QString> OpenFileName(QWidget* parent, const QString& caption,
                                                const QString& directory,
                                                const QString& filters) = 0;
    // A save-file dialog suggesting `suggested`; nullopt when the user cancels.
    virtual std::optional<QString> SaveFileName(QWidget* parent, const QString& caption,
                                                const QString& suggested,
                                                const QString& filters) = 0;
    // The system's print dialog on `printer`; false when the user cancels.
    virtual bool ExecPrintDialog(QWidget* parent, QPrinter& printer) = 0;
    // The system's printer / page setup dialog on `printer`; false when the user cancels.
    virtual bool ExecPrinterSetup(QWidget* parent, QPrinter& printer) = 0;
};

}  // namespace zantor

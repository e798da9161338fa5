#pragma once

// The system's own file and printer dialogs behind DialogServices.

#include "ui/dialog_services.h"

namespace zantor {

class SystemDialogs final : public DialogServices {
  public:
    std::optional<QString> OpenFileName(QWidget* parent, const QString& caption,
                                        const QString& directory, const QString& filters) override;
    std::optional<QString> SaveFileName(QWidget* parent, const QString& caption,
                                        const QString& suggested, const QString& filters) override;
    bool ExecPrintDialog(QWidget* parent, QPrinter& printer) override;
    bool ExecPrinterSetup(QWidget* parent, QPrinter& printer) override;
};

}  // namespace zantor

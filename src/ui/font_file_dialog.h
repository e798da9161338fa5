#pragma once

// TPADSFontFile ("PADS font file"): the path of the PADS stroke font. The font is read only when a
// print command starts, so a wrong path shows then. RunFontFileDialog is the whole command of the
// main window's "Fontfile..." entry.

#include <QDialog>

#include "common/user_messages.h"
#include "jobs/plot_context.h"
#include "ui/dialog_services.h"

class QLineEdit;

namespace zantor {

class TPADSFontFile : public QDialog {
    Q_OBJECT

  public:
    explicit TPADSFontFile(DialogServices& dialogs, QWidget* parent = nullptr);

    QString FileName() const;
    void SetFileName(const QString& name);

  private:
    void btnBrowseClick();

    DialogServices& dialogs_;
    QLineEdit* FontFile = nullptr;
};

// The "Fontfile..." command: shows `dialog` with the current setting; on OK the text, trimmed
// and cut to 60 characters, becomes `Fontfile`. The settings are saved either way.
void RunFontFileDialog(TPADSFontFile& dialog, PlotContext& context, UserMessages& messages);

}  // namespace zantor

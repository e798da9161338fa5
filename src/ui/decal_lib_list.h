#pragma once

// TDecalLibList ("Decals library list"): the ordered decal library files in which the parttype
// run looks for decals. The list is read from the settings when the dialog is shown; OK replaces
// the stored list with it, Cancel reads the stored one back. Either way the context's list is the
// stored one afterwards, so the next parttype run searches what the user accepted.

#include <QDialog>

#include "common/user_messages.h"
#include "jobs/plot_context.h"
#include "shell/decal_lib_list.h"
#include "ui/dialog_services.h"

class QListWidget;
class QPushButton;

namespace zantor {

class TDecalLibList : public QDialog {
    Q_OBJECT

  public:
    TDecalLibList(PlotContext& context, DialogServices& dialogs, UserMessages& messages,
                  QWidget* parent = nullptr);

    // The list as the dialog holds it.
    const DecalLibList& Libraries() const { return libraries_; }

    void accept() override;
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void LoadList();
    void ShowList(int selected);
    int Selected() const;
    void UpdateButtons();
    void btnAddLibClick();
    void btnDelLibClick();
    void MoveLibrary(int step);

    PlotContext& context_;
    DialogServices& dialogs_;
    UserMessages& messages_;
    DecalLibList libraries_;

    QListWidget* LibList = nullptr;
    QPushButton* btnLibUp = nullptr;
    QPushButton* btnLibDown = nullptr;
    QPushButton* btnDelLib = nullptr;
    QPushButton* btnAddLib = nullptr;
};

}  // namespace zantor

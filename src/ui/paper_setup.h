#pragma once

// TPaperSetup ("Paper setup"): the paper margins and the decal pages' inner borders, settings of
// "General" that hold for every print kind. OK copies the controls into the settings record and
// saves the settings; Cancel discards.

#include <QDialog>

#include "common/user_messages.h"
#include "jobs/plot_context.h"

class QCheckBox;

namespace zantor {

class NumericEdit;

class TPaperSetup : public QDialog {
    Q_OBJECT

  public:
    TPaperSetup(PlotContext& context, UserMessages& messages, QWidget* parent = nullptr);

    void accept() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    PlotContext& context_;
    UserMessages& messages_;

    NumericEdit* RightMargin = nullptr;
    NumericEdit* LeftMargin = nullptr;
    NumericEdit* TopMargin = nullptr;
    NumericEdit* BotMargin = nullptr;
    QCheckBox* MirMarg = nullptr;
    NumericEdit* XBorder = nullptr;
    NumericEdit* YBorder = nullptr;
    QCheckBox* SeperatePages = nullptr;
};

}  // namespace zantor

#pragma once

// TOptionsSetup ("Options setup"): the company name of the title block, shown in the font it is
// printed in, and the limits of marks, pin numbers and lines. OK copies the controls into the
// settings record and saves the settings; Cancel discards.

#include <QDialog>

#include "common/user_messages.h"
#include "jobs/plot_context.h"

class QFontComboBox;
class QLineEdit;

namespace zantor {

class NumericEdit;

class TOptionsSetup : public QDialog {
    Q_OBJECT

  public:
    TOptionsSetup(PlotContext& context, UserMessages& messages, QWidget* parent = nullptr);

    void accept() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void CompanyFontChange(const QString& family);

    PlotContext& context_;
    UserMessages& messages_;

    QLineEdit* Company = nullptr;
    QFontComboBox* CompanyFont = nullptr;
    NumericEdit* MaxPinCenterMark = nullptr;
    NumericEdit* MaxPin1Mark = nullptr;
    NumericEdit* MinPinNoSize = nullptr;
    NumericEdit* MinLineWidth = nullptr;
};

}  // namespace zantor

#include "ui/options_setup.h"

#include <QFontComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/named_widget.h"
#include "ui/numeric_edit.h"
#include "ui/setup_rules.h"

namespace zantor {
namespace {

// The four limits take what the edit field takes by default: two decimals, 0 to 999.99.
NumericEdit* AddLimit(QGridLayout* grid, int row, const char* name, const char* caption,
                      const char* hint) {
    auto* edit = new NumericEdit(2, 0, 999.99, 6);
    edit->setObjectName(name);
    edit->setToolTip(hint);
    edit->setFixedWidth(60);
    grid->addWidget(new QLabel(caption), row, 0);
    grid->addWidget(edit, row, 1);
    grid->addWidget(new QLabel("mm"), row, 2);
    return edit;
}

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

std::string Utf8(const QString& text) {
    return text.toUtf8().toStdString();
}

}  // namespace

TOptionsSetup::TOptionsSetup(PlotContext& context, UserMessages& messages, QWidget* parent)
    : QDialog(parent), context_(context), messages_(messages) {
    setObjectName("TOptionsSetup");
    setWindowTitle("Options setup");
    Company = new QLineEdit;
    Company->setObjectName("Company");
    Company->setToolTip("Companyname on form.");
    Company->setMaxLength(static_cast<int>(kCompanyCapacity));
    CompanyFont = new QFontComboBox;
    CompanyFont->setObjectName("CompanyFont");
    CompanyFont->setToolTip("Font for company-name.");
    CompanyFont->lineEdit()->setMaxLength(static_cast<int>(kFontNameCapacity));

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel("Company"), 0, 0);
    grid->addWidget(Company, 0, 1, 1, 2);
    grid->addWidget(new QLabel("Font"), 1, 0);
    grid->addWidget(CompanyFont, 1, 1, 1, 2);
    MaxPinCenterMark =
        AddLimit(grid, 2, "MaxPinCenterMark", "Max. pin ctr. mark", "Largest pin-center marking");
    MaxPin1Mark = AddLimit(grid, 3, "MaxPin1Mark", "Max. pin 1 mark", "Largest pin. 1 marking");
    MinPinNoSize =
        AddLimit(grid, 4, "MinPinNoSize", "Min. pin-no. size", "Smallest pinnumber printed");
    MinLineWidth = AddLimit(grid, 5, "MinLineWidth", "Min. line width", "Thinnest line printed");
    grid->setColumnStretch(3, 1);

    auto* buttons = new QHBoxLayout;
    AddSetupButtons(this, buttons, "Accept new settings", "Help");
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addLayout(buttons);

    CompanyFontChange(CompanyFont->currentText());
    connect(CompanyFont, &QComboBox::currentTextChanged, this, &TOptionsSetup::CompanyFontChange);
}

void TOptionsSetup::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const PlotSettings& s = context_.PlotSettings;
    Company->setText(Text(s.Company));
    CompanyFont->setEditText(Text(s.CompanyFont));
    CompanyFontChange(Text(s.CompanyFont));
    MaxPinCenterMark->SetValue(s.MaxPinCenterMark);
    MaxPin1Mark->SetValue(s.MaxPin1Mark);
    MinPinNoSize->SetValue(s.MinPinnoSize);
    MinLineWidth->SetValue(s.MinLineWidth);
}

void TOptionsSetup::CompanyFontChange(const QString& family) {
    // The company name as it will be printed.
    QFont font = Company->font();
    font.setFamily(family);
    Company->setFont(font);
}

void TOptionsSetup::accept() {
    PlotSettings& s = context_.PlotSettings;
    s.Company = CutToCapacity(Utf8(Company->text()), kCompanyCapacity);
    s.CompanyFont = CutToCapacity(Utf8(CompanyFont->currentText()), kFontNameCapacity);
    s.MaxPinCenterMark = MaxPinCenterMark->Value();
    s.MaxPin1Mark = MaxPin1Mark->Value();
    s.MinPinnoSize = MinPinNoSize->Value();
    s.MinLineWidth = MinLineWidth->Value();
    if (SaveContextSettings(context_, messages_)) {
        QDialog::accept();
    }
}

}  // namespace zantor

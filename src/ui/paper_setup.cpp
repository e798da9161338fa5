#include "ui/paper_setup.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/named_widget.h"
#include "ui/numeric_edit.h"
#include "ui/setup_rules.h"

namespace zantor {
namespace {

NumericEdit* AddSize(QGridLayout* grid, int row, const char* name, const char* caption,
                     const char* hint, double minimum, double maximum) {
    auto* edit = new NumericEdit(1, minimum, maximum);
    edit->setObjectName(name);
    edit->setToolTip(hint);
    edit->setFixedWidth(60);
    grid->addWidget(new QLabel(caption), row, 0);
    grid->addWidget(edit, row, 1);
    grid->addWidget(new QLabel("mm"), row, 2);
    return edit;
}

}  // namespace

TPaperSetup::TPaperSetup(PlotContext& context, UserMessages& messages, QWidget* parent)
    : QDialog(parent), context_(context), messages_(messages) {
    setObjectName("TPaperSetup");
    setWindowTitle("Paper setup");

    auto* margins = new QGroupBox("Paper margins");
    margins->setObjectName("MarginGroup");
    auto* marginGrid = new QGridLayout(margins);
    RightMargin =
        AddSize(marginGrid, 0, "RightMargin", "Right margin", "Papers right-margin", 0, 99);
    LeftMargin = AddSize(marginGrid, 1, "LeftMargin", "Left margin", "Papers left-margin", 0, 99);
    TopMargin = AddSize(marginGrid, 2, "TopMargin", "Top margin", "Papers top-margin", 0, 99);
    BotMargin = AddSize(marginGrid, 3, "BotMargin", "Bottom margin", "Papers bottom-margin", 0, 99);
    MirMarg = new QCheckBox("Mirror margins on even");
    MirMarg->setObjectName("MirMarg");
    marginGrid->addWidget(MirMarg, 4, 0, 1, 3);

    auto* decals = new QGroupBox("Decals only");
    decals->setObjectName("DecalsGroup");
    auto* decalGrid = new QGridLayout(decals);
    XBorder = AddSize(decalGrid, 0, "XBorder", "Innerborder X", "Decal room to lines", 1, 100);
    YBorder = AddSize(decalGrid, 1, "YBorder", "Innerborder Y", "Decal room to lines", 1, 100);
    SeperatePages = new QCheckBox("Seperate pages");
    SeperatePages->setObjectName("SeperatePages");
    decalGrid->addWidget(SeperatePages, 2, 0, 1, 3);
    decalGrid->setRowStretch(3, 1);

    auto* buttons = new QHBoxLayout;
    AddSetupButtons(this, buttons, "Accept new setttings.", "&Help");

    auto* groups = new QHBoxLayout;
    groups->addWidget(margins);
    groups->addWidget(decals);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(groups);
    layout->addLayout(buttons);
}

void TPaperSetup::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const PlotSettings& s = context_.PlotSettings;
    RightMargin->SetValue(s.RightMargin);
    LeftMargin->SetValue(s.LeftMargin);
    TopMargin->SetValue(s.TopMargin);
    BotMargin->SetValue(s.BotMargin);
    MirMarg->setChecked(s.MirrorMargin);
    XBorder->SetValue(s.XBorder);
    YBorder->SetValue(s.YBorder);
    SeperatePages->setChecked(s.SeperatePages);
}

void TPaperSetup::accept() {
    PlotSettings& s = context_.PlotSettings;
    s.RightMargin = RightMargin->Value();
    s.LeftMargin = LeftMargin->Value();
    s.TopMargin = TopMargin->Value();
    s.BotMargin = BotMargin->Value();
    s.MirrorMargin = MirMarg->isChecked();
    s.XBorder = XBorder->Value();
    s.YBorder = YBorder->Value();
    s.SeperatePages = SeperatePages->isChecked();
    if (SaveContextSettings(context_, messages_)) {
        QDialog::accept();
    }
}

}  // namespace zantor

#include "ui/font_file_dialog.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "library/words.h"
#include "ui/help.h"
#include "ui/setup_rules.h"

namespace zantor {

TPADSFontFile::TPADSFontFile(DialogServices& dialogs, QWidget* parent)
    : QDialog(parent), dialogs_(dialogs) {
    setObjectName("TPADSFontFile");
    setWindowTitle("PADS font file");
    auto* label2 = new QLabel("The PADS font is needed to ensure correct text-handling.");
    label2->setObjectName("Label2");
    auto* label4 = new QLabel("ROMANSIM.FNT is supplied by PADS and resides in");
    label4->setObjectName("Label4");
    auto* label5 = new QLabel("the PowerPCB directory.");
    label5->setObjectName("Label5");
    auto* bundled = new QLabel(
        "A name without a folder (romans.fnt) is the stroke font that comes with Zantor.");
    bundled->setObjectName("BundledFontNote");
    auto* label1 = new QLabel("PADS-font");
    label1->setObjectName("Label1");
    FontFile = new QLineEdit("c:\\padspwr\\powerpcb\\romansim.fnt");
    FontFile->setObjectName("FontFile");
    FontFile->setMaxLength(static_cast<int>(kFileNameCapacity));
    FontFile->setToolTip("Enter path and filename of font.");
    FontFile->setMinimumWidth(320);
    label1->setBuddy(FontFile);
    auto* browse = new QPushButton("Browse...");
    browse->setObjectName("btnBrowse");

    auto* ok = new QPushButton("OK");
    ok->setObjectName("OKBtn");
    ok->setToolTip("Accept new settings.");
    ok->setDefault(true);
    auto* cancel = new QPushButton("Cancel");
    cancel->setObjectName("btnCancel");
    cancel->setToolTip("Ignore changes.");
    auto* help = new QPushButton("&Help");
    help->setObjectName("btnHelp");
    connect(help, &QPushButton::clicked, this, [this] { ShowHelp(this, kHelpFontFile); });

    auto* file = new QHBoxLayout;
    file->addWidget(label1);
    file->addWidget(FontFile, 1);
    file->addWidget(browse);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    buttons->addWidget(help);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label2);
    layout->addWidget(label4);
    layout->addWidget(label5);
    layout->addSpacing(8);
    layout->addLayout(file);
    layout->addWidget(bundled);
    layout->addLayout(buttons);
    connect(browse, &QPushButton::clicked, this, &TPADSFontFile::btnBrowseClick);
    connect(ok, &QPushButton::clicked, this, &TPADSFontFile::accept);
    connect(cancel, &QPushButton::clicked, this, &TPADSFontFile::reject);
}

QString TPADSFontFile::FileName() const {
    return FontFile->text();
}

void TPADSFontFile::SetFileName(const QString& name) {
    FontFile->setText(name);
}

void TPADSFontFile::btnBrowseClick() {
    const std::optional<QString> chosen =
        dialogs_.OpenFileName(this, "PADS font file", QFileInfo(FontFile->text()).path(),
                              "PADS font file (*.fnt);;(any file) (*.*)");
    if (chosen) {
        FontFile->setText(*chosen);
    }
}

void RunFontFileDialog(TPADSFontFile& dialog, PlotContext& context, UserMessages& messages) {
    dialog.SetFileName(QString::fromStdString(context.PlotSettings.Fontfile));
    if (dialog.exec() == QDialog::Accepted) {
        context.PlotSettings.Fontfile =
            CutToCapacity(TrimBlanks(dialog.FileName().toUtf8().toStdString()), kFileNameCapacity);
    }
    SaveContextSettings(context, messages);
}

}  // namespace zantor

#include "ui/decal_lib_list.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QStyle>
#include <exception>

#include "ui/help.h"
#include "ui/named_widget.h"
#include "ui/setup_rules.h"

namespace zantor {
TDecalLibList::TDecalLibList(PlotContext& context, DialogServices& dialogs, UserMessages& messages,
                             QWidget* parent)
    : QDialog(parent), context_(context), dialogs_(dialogs), messages_(messages) {
    setObjectName("TDecalLibList");
    setWindowTitle("Decals library list");
    LibList = new QListWidget;
    LibList->setObjectName("LibList");
    btnLibUp = NamedButton("", "btnLibUp", "Move up library");
    btnLibUp->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    btnLibDown = NamedButton("", "btnLibDown", "Move down library");
    btnLibDown->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    btnDelLib = NamedButton("&Delete", "btnDelLib", "Remove library from list.");
    btnAddLib = NamedButton("&Add", "btnAddLib", "Add library to list.");
    auto* ok = NamedButton("&OK", "btnOK", "Accept new settings.");
    auto* cancel = NamedButton("&Cancel", "btnCancel", "Leave and discard changes.");
    auto* help = NamedButton("&Help", "btnHelp", "");
    connect(help, &QPushButton::clicked, this, [this] { ShowHelp(this, kHelpDecalLibList); });
    ok->setDefault(true);

    auto* layout = new QGridLayout(this);
    layout->addWidget(LibList, 0, 0, 6, 1);
    layout->addWidget(btnLibUp, 0, 1);
    layout->addWidget(btnLibDown, 1, 1);
    layout->addWidget(btnDelLib, 2, 1);
    layout->addWidget(btnAddLib, 3, 1);
    layout->setRowStretch(4, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    buttons->addWidget(help);
    layout->addLayout(buttons, 6, 0, 1, 2);
    resize(397, 210);

    connect(LibList, &QListWidget::currentRowChanged, this, &TDecalLibList::UpdateButtons);
    connect(btnAddLib, &QPushButton::clicked, this, &TDecalLibList::btnAddLibClick);
    connect(btnDelLib, &QPushButton::clicked, this, &TDecalLibList::btnDelLibClick);
    connect(btnLibUp, &QPushButton::clicked, this, [this] { MoveLibrary(-1); });
    connect(btnLibDown, &QPushButton::clicked, this, [this] { MoveLibrary(1); });
    connect(ok, &QPushButton::clicked, this, &TDecalLibList::accept);
    connect(cancel, &QPushButton::clicked, this, &TDecalLibList::reject);
}

void TDecalLibList::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    LoadList();
}

void TDecalLibList::LoadList() {
    try {
        libraries_ = LoadDecalLibList(SettingsStore::OpenMain());
        context_.DecalLibList = libraries_;
    } catch (const std::exception& error) {
        messages_.ShowError(error.what());
    }
    ShowList(-1);
}

void TDecalLibList::ShowList(int selected) {
    LibList->clear();
    for (const std::string& library : libraries_) {
        LibList->addItem(QString::fromStdString(library));
    }
    LibList->setCurrentRow(selected);
    UpdateButtons();
}

int TDecalLibList::Selected() const {
    return LibList->currentItem() != nullptr && LibList->currentItem()->isSelected()
               ? LibList->currentRow()
               : -1;
}

void TDecalLibList::UpdateButtons() {
    const ListButtons buttons = ListButtonsFor(Selected(), static_cast<int>(libraries_.size()));
    btnDelLib->setEnabled(buttons.remove);
    btnLibUp->setEnabled(buttons.up);
    btnLibDown->setEnabled(buttons.down);
}

void TDecalLibList::btnAddLibClick() {
    const std::optional<QString> file =
        dialogs_.OpenFileName(this, "Add library to list.", QString(), "Decal ASCII-file (*.d)");
    if (file && QFileInfo(*file).isFile() && AddDecalLibrary(libraries_, file->toStdString())) {
        ShowList(static_cast<int>(libraries_.size()) - 1);
    }
    UpdateButtons();
}

void TDecalLibList::btnDelLibClick() {
    const int selected = Selected();
    if (selected < 0) {
        return;
    }
    libraries_.erase(libraries_.begin() + selected);
    ShowList(-1);
}

void TDecalLibList::MoveLibrary(int step) {
    ShowList(MoveEntry(libraries_, Selected(), step));
}

void TDecalLibList::accept() {
    try {
        SettingsStore store = SettingsStore::OpenMain();
        SaveDecalLibList(libraries_, store);
        context_.DecalLibList = libraries_;
    } catch (const std::exception& error) {
        messages_.ShowError(error.what());
        return;
    }
    QDialog::accept();
}

void TDecalLibList::reject() {
    LoadList();
    QDialog::reject();
}

}  // namespace zantor

#include "ui/select_decals.h"

#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>
#include <climits>
#include <exception>

#include "jobs/screen_pages.h"
#include "library/catalogue.h"
#include "shell/settings_io.h"
#include "shell/settings_store.h"
#include "ui/busy_cursor.h"
#include "ui/help.h"
#include "ui/job_paint_box.h"
#include "ui/name_export.h"
#include "ui/preview_window.h"

namespace zantor {

// The view box: the one selected decal fitted into the box through the page drawing of the print
// jobs; only the white frame for any other selection, grey for parttypes. A decal that cannot be
// drawn is reported once, until the selection changes.
class ViewBox : public JobPaintBox {
  public:
    ViewBox(WindowServices& services, const TSelectDecals* dialog, QWidget* parent)
        : JobPaintBox(services, "View", parent), dialog_(dialog) {}

  protected:
    void PaintJob(QPainter& painter, const ScreenBox& box) override {
        PaintViewBox(painter, box, Services().context, dialog_->SelectedNames(),
                     Services().messages);
    }

  private:
    const TSelectDecals* dialog_;
};

namespace {

QPushButton* Button(QWidget* parent, const char* name, const char* caption, const char* hint,
                    const QRect& place) {
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    if (hint != nullptr) {
        button->setToolTip(QString::fromLatin1(hint));
    }
    button->setAutoDefault(false);
    button->setGeometry(place);
    return button;
}

QLabel* Label(QWidget* parent, const char* name, const char* caption, const QRect& place) {
    auto* label = new QLabel(QString::fromLatin1(caption), parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setGeometry(place);
    return label;
}

// The dialog's right-hand column.
constexpr int kColumnX = 428;
constexpr int kColumnWidth = 176;
constexpr int kButtonWidth = 86;
constexpr int kButtonHeight = 25;

QRect ButtonPlace(int row, int column) {
    return QRect(kColumnX + column * (kButtonWidth + 4), 104 + row * (kButtonHeight + 5),
                 kButtonWidth, kButtonHeight);
}

}  // namespace

TSelectDecals::TSelectDecals(WindowServices& services, QWidget* parent)
    : QDialog(parent), services_(services) {
    setObjectName(QStringLiteral("SelectDecals"));
    setWindowTitle(QStringLiteral("Select items to print"));
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(13);
    setFont(font);
    setFixedSize(612, 348);

    View = new ViewBox(services, this, this);
    View->setGeometry(8, 8, 217, 301);

    Namelist = new QListWidget(this);
    Namelist->setObjectName(QStringLiteral("Namelist"));
    Namelist->setSelectionMode(QAbstractItemView::ExtendedSelection);
    Namelist->setGeometry(233, 8, 187, 301);

    Label1 = Label(this, "Label1", "Name", QRect(kColumnX, 6, kColumnWidth, 16));
    SearchName = new QLineEdit(this);
    SearchName->setObjectName(QStringLiteral("SearchName"));
    SearchName->setMaxLength(40);
    SearchName->setToolTip(QStringLiteral("String contained in name"));
    SearchName->setGeometry(kColumnX, 22, kColumnWidth, 23);
    Label1->setBuddy(SearchName);

    Label2 = Label(this, "Label2", "Contents", QRect(kColumnX, 52, kColumnWidth, 16));
    SelectedParts = new QComboBox(this);
    SelectedParts->setObjectName(QStringLiteral("SelectedParts"));
    for (const std::string_view text : kPartContentsFilters) {
        SelectedParts->addItem(QString::fromLatin1(text.data(), static_cast<int>(text.size())));
    }
    SelectedParts->setToolTip(QStringLiteral("Part containes"));
    SelectedParts->setGeometry(kColumnX, 68, kColumnWidth, 23);

    PinsPanel = new QWidget(this);
    PinsPanel->setObjectName(QStringLiteral("PinsPanel"));
    PinsPanel->setGeometry(kColumnX, 52, kColumnWidth, 44);
    Label(PinsPanel, "Label3", "Pins", QRect(0, 0, 60, 16));
    Terminals = new QSpinBox(PinsPanel);
    Terminals->setObjectName(QStringLiteral("Terminals"));
    Terminals->setRange(0, INT_MAX);
    Terminals->setValue(0);
    Terminals->setGeometry(0, 16, 70, 23);
    Label(PinsPanel, "Label4", "(0 = any)", QRect(78, 19, 90, 16));

    AllButton = Button(this, "AllButton", "Select &All", "Select all decals", ButtonPlace(0, 0));
    btnViewAll = Button(this, "btnViewAll", "&View all", nullptr, ButtonPlace(0, 1));
    btnSetup = Button(this, "btnSetup", "&Setup", "Change settings", ButtonPlace(1, 0));
    btnLibList = Button(this, "btnLibList", "&Lib. List...", "Access the decal library list",
                        ButtonPlace(1, 1));
    ListBtn = Button(this, "ListBtn", "&Export", "Export names to textfile", ButtonPlace(2, 0));
    btnPreview = Button(this, "btnPreview", "&Preview", nullptr, ButtonPlace(2, 1));
    OKButton = Button(this, "OKButton", "&OK", "Start printing", ButtonPlace(4, 0));
    OKButton->setDefault(true);
    CancelButton = Button(this, "CancelButton", "&Cancel", nullptr, ButtonPlace(4, 1));
    HelpButton = Button(this, "HelpButton", "&Help", nullptr, ButtonPlace(5, 1));
    btnSetup->setEnabled(false);
    btnLibList->setEnabled(false);

    StatusBar1 = new QStatusBar(this);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->setSizeGripEnabled(false);
    StatusBar1->setGeometry(0, 348 - 21, 612, 21);
    const char* initial[3] = {"Items in file", "Selected", ""};
    const int widths[3] = {150, 150, 50};
    for (int panel = 0; panel < 3; ++panel) {
        statusPanels_[panel] = new QLabel(QString::fromLatin1(initial[panel]), StatusBar1);
        statusPanels_[panel]->setFixedWidth(widths[panel]);
        StatusBar1->addWidget(statusPanels_[panel]);
    }

    connect(SearchName, &QLineEdit::textChanged, this, &TSelectDecals::SearchNameChange);
    connect(SelectedParts, &QComboBox::currentIndexChanged, this, &TSelectDecals::LoadPartnames);
    connect(Terminals, &QSpinBox::valueChanged, this, &TSelectDecals::LoadPartnames);
    connect(Namelist, &QListWidget::itemSelectionChanged, this,
            &TSelectDecals::UpdateSelectionStatus);
    connect(AllButton, &QPushButton::clicked, this, &TSelectDecals::AllClick);
    connect(btnViewAll, &QPushButton::clicked, this, &TSelectDecals::btnViewAllClick);
    connect(ListBtn, &QPushButton::clicked, this, &TSelectDecals::ListBtnClick);
    connect(btnSetup, &QPushButton::clicked, this, &TSelectDecals::btnSetupClick);
    connect(btnLibList, &QPushButton::clicked, this, [this] {
        if (libList_) {
            libList_(this);
        }
    });
    connect(btnPreview, &QPushButton::clicked, this, &TSelectDecals::btnPreviewClick);
    connect(OKButton, &QPushButton::clicked, this, &TSelectDecals::OKButtonClick);
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(HelpButton, &QPushButton::clicked, this, [this] { ShowHelp(this, kHelpSelectDecals); });
    auto* f1 = new QShortcut(QKeySequence::HelpContents, this);
    connect(f1, &QShortcut::activated, this, &TSelectDecals::ShowHelpOfFocus);
}

void TSelectDecals::SetDecalSetup(std::function<void(QWidget*)> open) {
    decalSetup_ = std::move(open);
    btnSetup->setEnabled(static_cast<bool>(decalSetup_));
}

void TSelectDecals::SetLibList(std::function<void(QWidget*)> open) {
    libList_ = std::move(open);
    btnLibList->setEnabled(static_cast<bool>(libList_));
}

std::vector<std::string> TSelectDecals::SelectedNames() const {
    std::vector<std::string> names;
    for (int row = 0; row < Namelist->count(); ++row) {
        if (Namelist->item(row)->isSelected()) {
            names.push_back(Namelist->item(row)->text().toLocal8Bit().toStdString());
        }
    }
    return names;
}

QString TSelectDecals::StatusText(int panel) const {
    return panel >= 0 && panel < 3 ? statusPanels_[panel]->text() : QString();
}

void TSelectDecals::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    FormActivate();
}

void TSelectDecals::FormActivate() {
    const bool parttypes = services_.context.PlotKind == PlotKind::Parttype;
    btnLibList->setVisible(parttypes);
    SelectedParts->setVisible(parttypes);
    Label2->setVisible(parttypes);
    PinsPanel->setVisible(!parttypes);
    {
        const QSignalBlocker block(SelectedParts);
        SelectedParts->setCurrentIndex(0);
    }
    LoadPartnames();
    View->update();
    OKButton->setFocus();
}

void TSelectDecals::LoadPartnames() {
    const PlotKind kind = services_.context.PlotKind;
    CatalogueFilters filters;
    filters.searchText = SearchName->text().trimmed().toStdString();
    filters.contentsFilter = SelectedParts->currentIndex();
    filters.pinCountText = QString::number(Terminals->value()).toStdString();
    Catalogue catalogue;
    std::string failure;
    {
        const BusyCursor busy;
        try {
            catalogue = zantor::LoadPartnames(services_.context.PlotSettings.Inputfile, kind,
                                              filters, services_.messages);
        } catch (const std::exception& error) {
            failure = error.what();
            catalogue.statusText = CatalogueStatusText(kind, 0);
        }
    }
    {
        const QSignalBlocker block(Namelist);
        Namelist->clear();
        for (const CatalogueEntry& entry : catalogue.entries) {
            Namelist->addItem(QString::fromLocal8Bit(entry.name));
        }
    }
    statusPanels_[0]->setText(QString::fromLocal8Bit(catalogue.statusText));
    AllClick();
    if (!failure.empty()) {
        services_.messages.ShowError(failure);
    }
}

void TSelectDecals::SearchNameChange(const QString& text) {
    // The search box takes upper case only, as the names it looks for are.
    const QString upper = text.toUpper();
    if (upper != text) {
        const int cursor = SearchName->cursorPosition();
        SearchName->setText(upper);
        SearchName->setCursorPosition(cursor);
        return;
    }
    LoadPartnames();
}

void TSelectDecals::btnViewAllClick() {
    {
        const QSignalBlocker search(SearchName);
        const QSignalBlocker contents(SelectedParts);
        const QSignalBlocker pins(Terminals);
        SearchName->clear();
        SelectedParts->setCurrentIndex(0);
        Terminals->setValue(0);
    }
    LoadPartnames();
}

void TSelectDecals::AllClick() {
    {
        const QSignalBlocker block(Namelist);
        Namelist->selectAll();
    }
    UpdateSelectionStatus();
}

void TSelectDecals::UpdateSelectionStatus() {
    const int selected = static_cast<int>(Namelist->selectedItems().size());
    statusPanels_[1]->setText(QStringLiteral("Selected: %1").arg(selected, 5));
    View->TryAgain();
}

void TSelectDecals::ListBtnClick() {
    const std::string& input = services_.context.PlotSettings.Inputfile;
    const QString folder = QFileInfo(QString::fromLocal8Bit(input)).absolutePath();
    const QString suggested =
        folder + QLatin1Char('/') + QString::fromLocal8Bit(SuggestedExportName(input));
    const std::optional<QString> file = services_.dialogs.SaveFileName(
        this, QStringLiteral("Export names"), suggested, QStringLiteral("Text-file (*.txt)"));
    if (!file) {
        return;
    }
    const std::vector<std::string> names = SelectedNames();
    if (!services_.messages.AskYesNo(ExportQuestion(names.size()))) {
        return;
    }
    try {
        WriteNameFile(file->toStdString(), names);
    } catch (const std::exception& error) {
        services_.messages.ShowError(error.what());
    }
}

void TSelectDecals::btnSetupClick() {
    if (!decalSetup_) {
        return;
    }
    decalSetup_(this);
    try {
        LoadSettings(services_.context.PlotSettings, services_.context.PlotKind,
                     SettingsStore::OpenMain());
    } catch (const std::exception& error) {
        services_.messages.ShowError(error.what());
    }
    View->update();
}

void TSelectDecals::btnPreviewClick() {
    TPreviewWin preview(services_, SelectedNames(), this);
    preview.exec();
}

void TSelectDecals::OKButtonClick() {
    services_.context.OutputTarget = PlotSurface::Printer;
    if (services_.dialogs.ExecPrintDialog(this, services_.printer)) {
        accept();
    } else {
        reject();
    }
}

void TSelectDecals::ShowHelpOfFocus() {
    const QWidget* focus = focusWidget();
    if (focus == AllButton) {
        ShowHelp(this, kHelpSelectAll);
    } else if (focus == Namelist) {
        ShowHelp(this, kHelpNamelist);
    } else {
        ShowHelp(this, kHelpSelectDecals);
    }
}

}  // namespace zantor

#include "ui/decal_setup.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <exception>

#include "common/errors.h"
#include "library/attribute_scan.h"
#include "library/number_check.h"
#include "library/words.h"
#include "shell/attribute_store.h"
#include "shell/settings_io.h"
#include "ui/choice_group.h"
#include "ui/colour_cells.h"
#include "ui/decal_lib_list.h"
#include "ui/named_widget.h"
#include "ui/numeric_edit.h"
#include "ui/setup_rules.h"

namespace zantor {
namespace {

constexpr const char* kItemCaptions[kColourRows] = {"Pads",      "Copper",   "Outline", "Text",
                                                    "Cutout",    "Keepout",  "Pin-no.", "Origin",
                                                    "Form-text", "Form-line"};

QCheckBox* Check(const char* name, const char* caption) {
    return Named(new QCheckBox(caption), name);
}

QWidget* Panel(const char* name, QLayout* layout) {
    auto* panel = Named(new QWidget, name);
    layout->setContentsMargins(0, 0, 0, 0);
    panel->setLayout(layout);
    return panel;
}

// A size with its caption before it and its unit after it.
void AddSize(QFormLayout* form, const char* caption, QWidget* edit, const char* unit) {
    auto* row = new QHBoxLayout;
    edit->setFixedWidth(60);
    row->addWidget(edit);
    if (unit != nullptr) {
        row->addWidget(new QLabel(unit));
    }
    row->addStretch();
    form->addRow(caption, row);
}

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string Utf8(const QString& text) {
    return text.toUtf8().toStdString();
}

// The scan panel shows the item being read, repainted at once, under a busy cursor.
class ScanPanelDisplay : public ScanDisplay {
  public:
    explicit ScanPanelDisplay(QLabel& panel) : panel_(panel) {}
    void Begin() override {
        panel_.show();
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    void ShowItem(std::string_view name) override {
        panel_.setText(Text(name));
        panel_.repaint();
    }
    void End() override {
        panel_.hide();
        QApplication::restoreOverrideCursor();
    }

  private:
    QLabel& panel_;
};

}  // namespace

TDecalSetup::TDecalSetup(PlotContext& context, UserMessages& messages, DialogServices& dialogs,
                         QWidget* parent)
    : QDialog(parent),
      context_(context),
      messages_(messages),
      dialogs_(dialogs),
      penTable_(context.PlotSettings.PenTable) {
    setObjectName("TDecalSetup");
    auto* layout = new QVBoxLayout(this);
    DecalTabs = Named(new QTabWidget, "DecalTabs");
    DecalTabs->addTab(BuildGeneralPage(), "General");
    DecalTabs->addTab(BuildAttributesPage(), "Attributes");
    DecalTabs->addTab(BuildLayersPage(), "Layers/items");
    DecalTabs->addTab(BuildPinsPage(), "Pins");
    DecalTabs->addTab(BuildFormularPage(), "Formular");
    DecalTabs->addTab(BuildGridPage(), "Grid");
    layout->addWidget(DecalTabs);
    BuildButtons(layout);
    // The form as built, before any kind is applied.
    LayerGrid->item(0, 0)->setText(Text(kAnyLayer));
    ScanPanel->hide();
    ShowFormularFont(FormularFont->currentText());
}

QWidget* TDecalSetup::BuildGeneralPage() {
    StackUnit = new ChoiceGroup("StackUnit", "Stack unit", {"Mil", "Metric", "As lib"});
    PlotStack = Check("PlotStack", "Show pad-stack");
    auto* stack = new QVBoxLayout;
    stack->addWidget(StackUnit);
    stack->addWidget(PlotStack);
    PadstackPanel = Panel("PadstackPanel", stack);

    MeasUnit = new ChoiceGroup("MeasUnit", "Measurement unit", {"Mil", "Metric", "As lib"});
    auto* meas = new QVBoxLayout;
    meas->addWidget(MeasUnit);
    meas->addStretch();
    MeasPanel = Panel("MeasPanel", meas);

    PlotOrigin = Check("PlotOrigin", "Show comp. origin");
    OriginSize = Named(new NumericEdit(1, 1, 99, 6), "OriginSize");
    MaxScale = Named(new NumericEdit(1, 1, 99, 6), "MaxScale");
    auto* sizes = new QFormLayout;
    sizes->addRow(PlotOrigin);
    AddSize(sizes, "Origin-size", OriginSize, "mm");
    AddSize(sizes, "Max. scale", MaxScale, nullptr);

    HeightInfo = new ChoiceGroup("HeightInfo", "Height-info", {"DXF-height", "Geometry.Height"});
    View1_1 = Check("View1_1", "1:1 View");
    auto* decal = new QVBoxLayout;
    decal->addWidget(HeightInfo);
    decal->addWidget(View1_1);
    DecalPanel = Panel("DecalPanel", decal);

    ColumnsLabel = Named(new QLabel("Columns"), "ColumnsLabel");
    IndexColumns = Named(new QSpinBox, "IndexColumns");
    IndexColumns->setRange(1, 16);
    IndexColumns->setValue(2);
    PartsEachColumn = Named(new QSpinBox, "PartsEachColumn");
    PartsEachColumn->setRange(1, 50);
    PrintSeperatingLines = Check("PrintSeperatingLines", "Print seperating lines");
    PrintScale = Check("PrintScale", "Print scale");
    auto* index = new QGridLayout;
    index->addWidget(ColumnsLabel, 0, 0);
    index->addWidget(IndexColumns, 0, 1);
    index->addWidget(new QLabel("Parts/column"), 1, 0);
    index->addWidget(PartsEachColumn, 1, 1);
    index->addWidget(PrintSeperatingLines, 2, 0, 1, 2);
    index->addWidget(PrintScale, 3, 0, 1, 2);
    IndexPanel = Panel("IndexPanel", index);

    ListPinNames = Check("ListPinNames", "List pin-names");
    ShowDecals = Check("ShowDecals", "Show decals");
    ShowDecalNames = Check("ShowDecalNames", "Show decal-names");

    auto* page = Named(new QWidget, "PageGeneral");
    auto* grid = new QGridLayout(page);
    grid->addWidget(PadstackPanel, 0, 0);
    grid->addWidget(MeasPanel, 0, 1);
    grid->addLayout(sizes, 1, 0);
    grid->addWidget(DecalPanel, 1, 1);
    grid->addWidget(IndexPanel, 2, 0);
    auto* parttype = new QVBoxLayout;
    parttype->addWidget(ListPinNames);
    parttype->addWidget(ShowDecals);
    parttype->addWidget(ShowDecalNames);
    parttype->addStretch();
    grid->addLayout(parttype, 2, 1);
    grid->setRowStretch(3, 1);
    connect(PlotOrigin, &QCheckBox::toggled, this, &TDecalSetup::UpdateEnabling);
    return page;
}

QWidget* TDecalSetup::BuildAttributesPage() {
    AttrList = Named(new QListWidget, "AttrList");
    btnAttrUp = Named(new QPushButton(QString::fromUtf8("\u25b2")), "btnAttrUp");
    btnAttrDown = Named(new QPushButton(QString::fromUtf8("\u25bc")), "btnAttrDown");
    btnAddAttr = Named(new QPushButton("Add"), "btnAddAttr");
    btnDelAttr = Named(new QPushButton("Del"), "btnDelAttr");
    btnScanFile = Named(new QPushButton("Scan file"), "btnScanFile");
    ScanPanel = Named(new QLabel, "ScanPanel");
    ScanPanel->setFrameShape(QFrame::Panel);
    ScanPanel->setFrameShadow(QFrame::Sunken);
    ScanPanel->setAlignment(Qt::AlignCenter);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {btnAttrUp, btnAttrDown, btnAddAttr, btnDelAttr, btnScanFile}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto* list = new QGridLayout;
    list->addWidget(AttrList, 0, 0);
    list->addLayout(buttons, 0, 1);
    list->addWidget(ScanPanel, 1, 0, 1, 2);
    AttrPanel2 = Panel("AttrPanel2", list);

    PrintAttributes = Check("PrintAttributes", "Print attributes");
    PrintComments = Check("PrintComments", "Print @@-comments");
    auto* page = Named(new QWidget, "PageAttr");
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(PrintAttributes);
    layout->addWidget(AttrPanel2, 1);
    layout->addWidget(PrintComments);

    connect(PrintAttributes, &QCheckBox::toggled, this, &TDecalSetup::UpdateAttributeButtons);
    connect(AttrList, &QListWidget::currentRowChanged, this, &TDecalSetup::UpdateAttributeButtons);
    connect(AttrList, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
        const int row = AttrList->row(item);
        if (!copying_ && row >= 0 && row < static_cast<int>(context_.AttributeList.size())) {
            context_.AttributeList[static_cast<std::size_t>(row)].checked =
                item->checkState() == Qt::Checked;
        }
    });
    connect(btnAddAttr, &QPushButton::clicked, this, &TDecalSetup::btnAddAttrClick);
    connect(btnDelAttr, &QPushButton::clicked, this, &TDecalSetup::btnDelAttrClick);
    connect(btnAttrUp, &QPushButton::clicked, this, [this] { MoveAttribute(-1); });
    connect(btnAttrDown, &QPushButton::clicked, this, [this] { MoveAttribute(1); });
    connect(btnScanFile, &QPushButton::clicked, this, &TDecalSetup::btnScanFileClick);
    return page;
}

QWidget* TDecalSetup::BuildLayersPage() {
    LayerGrid = Named(new QTableWidget(1, kLayerColumns), "LayerGrid", "Layer-number.");
    LayerGrid->horizontalHeader()->hide();
    LayerGrid->verticalHeader()->hide();
    LayerGrid->horizontalHeader()->setMinimumSectionSize(kColourCellWidth);
    for (int column = 0; column < kLayerColumns; ++column) {
        LayerGrid->setColumnWidth(column, kColourCellWidth);
        auto* cell = new QTableWidgetItem;
        cell->setTextAlignment(Qt::AlignCenter);
        LayerGrid->setItem(0, column, cell);
    }
    LayerGrid->item(0, 0)->setFlags(Qt::ItemIsEnabled);
    LayerGrid->setRowHeight(0, 22);
    LayerGrid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    LayerGrid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    LayerGrid->setFixedSize(kLayerColumns * kColourCellWidth + 2, 24);
    connect(LayerGrid, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) {
        if (!copying_ && item->column() > 0) {
            LayerGridSetEditText(item->column());
        }
    });

    ColorGrid = Named(new ColourPalette, "ColorGrid", "Color to be used.");
    PaintBox =
        Named(new PenColourCells(penTable_, *ColorGrid), "PaintBox", "Click to place color.");

    auto* captions = new QVBoxLayout;
    captions->setSpacing(0);
    for (const char* caption : kItemCaptions) {
        auto* label = new QLabel(caption);
        label->setFixedHeight(kColourCellHeight);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        captions->addWidget(label);
    }
    auto* page = Named(new QWidget, "PageLayer");
    auto* grid = new QGridLayout(page);
    grid->addWidget(new QLabel("Layer"), 0, 0, Qt::AlignRight);
    grid->addWidget(LayerGrid, 0, 1);
    grid->addLayout(captions, 1, 0);
    grid->addWidget(PaintBox, 1, 1, Qt::AlignTop | Qt::AlignLeft);
    auto* palette = new QVBoxLayout;
    palette->addWidget(new QLabel("Color"));
    palette->addWidget(ColorGrid);
    palette->addStretch();
    grid->addLayout(palette, 1, 2);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(2, 1);
    return page;
}

QWidget* TDecalSetup::BuildPinsPage() {
    ShowPinCenter = Check("ShowPinCenter", "Show pin-center");
    ShowDrill = Check("ShowDrill", "Show drilling");
    ShowNPOnly = Check("ShowNPOnly", "Only NP-holes");
    MarkPin1 = Check("MarkPin1", "Show pin 1");
    PlotPinNo = Check("PlotPinNo", "Show pin numbers");
    PinNoGrp = new ChoiceGroup(
        "PinNoGrp", "Pinno. shown",
        {"All pins numbers", "Moved no. only", "Pin 1's no. only", "Pin 1 if no. moved"});
    ScalePinNo = Check("ScalePinNo", "Scale pin no.");
    PinNoSize = Named(new NumericEdit(1, 0, 99), "PinNoSize");

    auto* page = Named(new QWidget, "PagePins");
    auto* grid = new QGridLayout(page);
    auto* marks = new QVBoxLayout;
    for (QCheckBox* box : {ShowPinCenter, ShowDrill, ShowNPOnly, MarkPin1, PlotPinNo}) {
        marks->addWidget(box);
    }
    ShowNPOnly->setContentsMargins(20, 0, 0, 0);
    marks->addStretch();
    grid->addLayout(marks, 0, 0);
    auto* numbers = new QFormLayout;
    numbers->addRow(PinNoGrp);
    numbers->addRow(ScalePinNo);
    AddSize(numbers, "Pin. no. size", PinNoSize, "mm");
    grid->addLayout(numbers, 0, 1);
    grid->setRowStretch(1, 1);
    connect(ShowDrill, &QCheckBox::toggled, this, &TDecalSetup::UpdateEnabling);
    return page;
}

QWidget* TDecalSetup::BuildFormularPage() {
    FormularLabel = new QLabel("Formular &no.");
    Formular = Named(new QLineEdit, "Formular");
    Formular->setMaxLength(static_cast<int>(kFormNoCapacity));
    FormularLabel->setBuddy(Formular);
    NameAsFormNo = Check("NameAsFormNo", "&Use decal-name as formular no.");
    FormularFont = Named(new QFontComboBox, "FormularFont");
    FormularFont->lineEdit()->setMaxLength(static_cast<int>(kFontNameCapacity));
    FormularFontExample =
        Named(new QLabel("Font-example: ABC abc 0123456789"), "FormularFontExample");
    FormularFontExample->setFrameShape(QFrame::Panel);
    FormularFontExample->setFrameShadow(QFrame::Sunken);
    FormularFontExample->setMinimumHeight(36);
    GenComment = Named(new QLineEdit, "GenComment");
    GenComment->setMaxLength(static_cast<int>(kGenCommentCapacity));
    GenComSize = Named(new NumericEdit(1, 0, 10), "GenComSize");
    GenComAdjust = new ChoiceGroup("GenComAdjust", "Alignment", {"Left", "Center", "Right"});
    PTNameSize = Named(new NumericEdit(1, 1, 20, 5), "PTNameSize");
    PTAttrSize = Named(new NumericEdit(1, 1, 20, 5), "PTAttrSize");
    auto* heights = new QFormLayout;
    AddSize(heights, "Parttype name textheight", PTNameSize, "mm");
    AddSize(heights, "Parttype attributes textheight", PTAttrSize, "mm");
    Panel3 = Panel("Panel3", heights);

    auto* page = Named(new QWidget, "PageFormular");
    auto* form = new QFormLayout(page);
    form->addRow(FormularLabel, Formular);
    form->addRow(NameAsFormNo);
    auto* fontLabel = new QLabel("&Formular font");
    fontLabel->setBuddy(FormularFont);
    form->addRow(fontLabel, FormularFont);
    form->addRow(FormularFontExample);
    form->addRow("General comment", GenComment);
    AddSize(form, "Comment textsize", GenComSize, "mm");
    form->addRow(GenComAdjust);
    form->addRow(Panel3);

    connect(NameAsFormNo, &QCheckBox::toggled, this, &TDecalSetup::UpdateEnabling);
    connect(FormularFont, &QComboBox::currentTextChanged, this, &TDecalSetup::ShowFormularFont);
    connect(PTNameSize, &QDoubleSpinBox::valueChanged, this, [this](double value) {
        context_.ParttypeTextSizes.PTNameSize = value + kPTNameSizeOffset;
    });
    connect(PTAttrSize, &QDoubleSpinBox::valueChanged, this, [this](double value) {
        context_.ParttypeTextSizes.PTAttrSize = value * kPTAttrSizeFactor;
    });
    return page;
}

QWidget* TDecalSetup::BuildGridPage() {
    ShowGrid = Check("ShowGrid", "Show grid");
    GridSettings = Named(new QGroupBox, "GridSettings");
    GridSize = Named(new NumericEdit(2, 0, 9999), "GridSize");
    GridSize->SetValue(2.54);
    GridLineWidth = Named(new NumericEdit(2, 0, 5), "GridLineWidth");
    GridLineWidth->SetValue(0.1);
    GridLinestyle = new ChoiceGroup("GridLinestyle", "Line style", {"Solid", "Dashed", "Dotted"});
    GridPosition =
        new ChoiceGroup("GridPosition", "Grid position", {"Grid behind", "Grid in front"});
    GridUnit = new ChoiceGroup("GridUnit", "Grid unit", {"Metric (mm)", "Mils"});
    ShowGridSize = Check("ShowGridSize", "Show gridsize");
    auto* sizes = new QFormLayout;
    AddSize(sizes, "Grid size", GridSize, "grid units");
    AddSize(sizes, "Line width", GridLineWidth, "mm");
    sizes->addRow(ShowGridSize);
    auto* grid = new QGridLayout(GridSettings);
    grid->addLayout(sizes, 0, 0);
    grid->addWidget(GridUnit, 0, 1);
    grid->addWidget(GridLinestyle, 1, 0);
    grid->addWidget(GridPosition, 1, 1);

    auto* page = Named(new QWidget, "PageGrid");
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(ShowGrid);
    layout->addWidget(GridSettings);
    layout->addStretch();
    connect(ShowGrid, &QCheckBox::toggled, this, &TDecalSetup::UpdateEnabling);
    return page;
}

void TDecalSetup::BuildButtons(QVBoxLayout* layout) {
    auto* libList =
        NamedButton("&Lib. List...", "btnLibList", "Decal-libraries used for parttypes.");
    auto* row = new QHBoxLayout;
    row->addWidget(libList);
    AddSetupButtons(this, row, "Accept new settings", "&Help");
    layout->addLayout(row);
    connect(libList, &QPushButton::clicked, this, &TDecalSetup::btnLibListClick);
}

void TDecalSetup::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    FormActivate();
}

void TDecalSetup::FormActivate() {
    try {
        LoadAttributes(context_.AttributeList, SettingsStore::OpenMain());
        LoadSettings(context_.PlotSettings, context_.PlotKind, SettingsStore::OpenMain());
    } catch (const std::exception& error) {
        messages_.ShowError(error.what());
    }
    ApplyLayout();
    CopyIn(context_.PlotSettings);
}

void TDecalSetup::ApplyLayout() {
    const SetupLayout layout = SetupLayoutFor(context_.PlotKind);
    setWindowTitle(Text(layout.caption));
    IndexPanel->setVisible(layout.indexPanel);
    ColumnsLabel->setText(Text(layout.columnsLabel));
    PrintScale->setVisible(layout.printScale);
    MeasPanel->setVisible(layout.measPanel);
    PadstackPanel->setVisible(layout.padstackPanel);
    AttrPanel2->setVisible(layout.attrPanel2);
    NameAsFormNo->setVisible(layout.nameAsFormNo);
    Panel3->setVisible(layout.panel3);
    DecalTabs->setTabVisible(DecalTabs->indexOf(DecalTabs->findChild<QWidget*>("PageGrid")),
                             layout.gridPage);
    DecalTabs->setTabVisible(DecalTabs->indexOf(DecalTabs->findChild<QWidget*>("PageAttr")),
                             layout.attributesPage);
    DecalPanel->setVisible(layout.decalPanel);
    PrintComments->setVisible(layout.printComments);
}

void TDecalSetup::CopyIn(const PlotSettings& s) {
    copying_ = true;
    StackUnit->SetIndex(ChoiceIndex(kUnitLetters, s.StackUnit));
    PlotStack->setChecked(s.PlotPadstack);
    MeasUnit->SetIndex(ChoiceIndex(kUnitLetters, s.MeasUnit));
    PlotOrigin->setChecked(s.PlotOrigins);
    OriginSize->SetValue(s.OriginSize);
    MaxScale->SetValue(s.MaxScale);
    HeightInfo->SetIndex(s.HeightInfo);
    View1_1->setChecked(s.View1_1);
    IndexColumns->setValue(s.Columns);
    PartsEachColumn->setValue(s.PartsEachColumn);
    PrintSeperatingLines->setChecked(s.PrintSepLines);
    PrintScale->setChecked(s.PrintScale);
    ListPinNames->setChecked(s.ListPinnames);
    ShowDecals->setChecked(s.ShowDecal);
    ShowDecalNames->setChecked(s.ShowDecalName);
    PrintAttributes->setChecked(s.PrintAttr);
    PrintComments->setChecked(s.PrintComm);
    ShowPinCenter->setChecked(s.ShowPinCenter);
    ShowDrill->setChecked(s.ShowDrill);
    ShowNPOnly->setChecked(s.OnlyNPDrill);
    MarkPin1->setChecked(s.MarkPin1);
    PlotPinNo->setChecked(s.PlotPinNo);
    PinNoGrp->SetIndex(ChoiceIndex(kPinNoStyleLetters, s.PinNoStyle));
    ScalePinNo->setChecked(s.ScalePinNo);
    PinNoSize->SetValue(s.PinNoSize);
    Formular->setText(Text(s.FormNo));
    NameAsFormNo->setChecked(s.DecalAsFormNo);
    FormularFont->setEditText(Text(s.FormularFont));
    ShowFormularFont(Text(s.FormularFont));
    GenComment->setText(Text(s.GenComment));
    GenComSize->SetValue(s.GenComSize);
    GenComAdjust->SetIndex(s.GenComAdjust);
    ShowGrid->setChecked(s.ShowGrid);
    GridSize->SetValue(s.GridSize);
    GridLineWidth->SetValue(s.GridLineWidth);
    GridLinestyle->SetIndex(s.GridLineStyle);
    GridPosition->SetIndex(s.GridPosition);
    GridUnit->SetIndex(s.GridUnit);
    ShowGridSize->setChecked(s.ShowGridSize);
    penTable_ = s.PenTable;
    ShowLayerCells();
    PaintBox->update();
    copying_ = false;
    PTNameSize->SetValue(context_.ParttypeTextSizes.PTNameSize - kPTNameSizeOffset);
    PTAttrSize->SetValue(context_.ParttypeTextSizes.PTAttrSize / kPTAttrSizeFactor);
    ShowAttributes(-1);
    UpdateEnabling();
}

bool TDecalSetup::CopyOut(PlotSettings& s) {
    PenTableRows table = penTable_;
    for (int column = 1; column < kLayerColumns; ++column) {
        try {
            table[static_cast<std::size_t>(column)].layer =
                LayerOfCellText(Utf8(LayerGrid->item(0, column)->text()));
        } catch (const Error& error) {
            messages_.ShowError(error.what());
            DecalTabs->setCurrentWidget(DecalTabs->findChild<QWidget*>("PageLayer"));
            return false;
        }
    }
    s.PenTable = table;
    s.StackUnit = ChoiceLetter(kUnitLetters, StackUnit->Index(), s.StackUnit);
    s.PlotPadstack = PlotStack->isChecked();
    s.MeasUnit = ChoiceLetter(kUnitLetters, MeasUnit->Index(), s.MeasUnit);
    s.PlotOrigins = PlotOrigin->isChecked();
    s.OriginSize = OriginSize->Value();
    s.MaxScale = MaxScale->Value();
    s.HeightInfo = HeightInfo->Index();
    s.View1_1 = View1_1->isChecked();
    s.Columns = IndexColumns->value();
    s.PartsEachColumn = PartsEachColumn->value();
    s.PrintSepLines = PrintSeperatingLines->isChecked();
    s.PrintScale = PrintScale->isChecked();
    s.ListPinnames = ListPinNames->isChecked();
    s.ShowDecal = ShowDecals->isChecked();
    s.ShowDecalName = ShowDecalNames->isChecked();
    s.PrintAttr = PrintAttributes->isChecked();
    s.PrintComm = PrintComments->isChecked();
    s.ShowPinCenter = ShowPinCenter->isChecked();
    s.ShowDrill = ShowDrill->isChecked();
    s.OnlyNPDrill = ShowNPOnly->isChecked();
    s.MarkPin1 = MarkPin1->isChecked();
    s.PlotPinNo = PlotPinNo->isChecked();
    s.PinNoStyle = ChoiceLetter(kPinNoStyleLetters, PinNoGrp->Index(), s.PinNoStyle);
    s.ScalePinNo = ScalePinNo->isChecked();
    s.PinNoSize = PinNoSize->Value();
    s.FormNo = CutToCapacity(Utf8(Formular->text()), kFormNoCapacity);
    s.DecalAsFormNo = NameAsFormNo->isChecked();
    s.FormularFont = CutToCapacity(Utf8(FormularFont->currentText()), kFontNameCapacity);
    s.GenComment = CutToCapacity(TrimBlanks(Utf8(GenComment->text())), kGenCommentCapacity);
    s.GenComSize = GenComSize->Value();
    s.GenComAdjust = GenComAdjust->Index();
    s.ShowGrid = ShowGrid->isChecked();
    s.GridSize = GridSize->Value();
    s.GridLineWidth = GridLineWidth->Value();
    s.GridLineStyle = GridLinestyle->Index();
    s.GridPosition = GridPosition->Index();
    s.GridUnit = GridUnit->Index();
    s.ShowGridSize = ShowGridSize->isChecked();
    return true;
}

void TDecalSetup::UpdateEnabling() {
    ShowNPOnly->setEnabled(ShowDrill->isChecked());
    OriginSize->setEnabled(PlotOrigin->isChecked());
    GridSettings->setEnabled(ShowGrid->isChecked());
    Formular->setEnabled(!NameAsFormNo->isChecked());
    FormularLabel->setEnabled(!NameAsFormNo->isChecked());
    UpdateAttributeButtons();
}

void TDecalSetup::ShowFormularFont(const QString& family) {
    QFont font = FormularFontExample->font();
    font.setFamily(family);
    FormularFontExample->setFont(font);
}

void TDecalSetup::accept() {
    PlotSettings settings = context_.PlotSettings;
    if (!CopyOut(settings)) {
        return;
    }
    context_.PlotSettings = settings;
    if (SaveContextSettings(context_, messages_)) {
        QDialog::accept();
    }
}

void TDecalSetup::done(int result) {
    // The attribute list is kept however the dialog closes.
    try {
        SettingsStore store = SettingsStore::OpenMain();
        SaveAttributes(context_.AttributeList, store);
    } catch (const std::exception& error) {
        messages_.ShowError(error.what());
    }
    QDialog::done(result);
}

void TDecalSetup::ShowAttributes(int selected) {
    const bool wasCopying = copying_;
    copying_ = true;
    AttrList->clear();
    for (const AttributeEntry& entry : context_.AttributeList) {
        auto* item = new QListWidgetItem(Text(entry.name), AttrList);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(entry.checked ? Qt::Checked : Qt::Unchecked);
    }
    AttrList->setCurrentRow(selected);
    copying_ = wasCopying;
    UpdateAttributeButtons();
}

int TDecalSetup::SelectedAttribute() const {
    return AttrList->currentItem() != nullptr && AttrList->currentItem()->isSelected()
               ? AttrList->currentRow()
               : -1;
}

void TDecalSetup::UpdateAttributeButtons() {
    const bool usable = PrintAttributes->isChecked();
    const ListButtons buttons =
        ListButtonsFor(SelectedAttribute(), static_cast<int>(context_.AttributeList.size()));
    AttrList->setEnabled(usable);
    btnScanFile->setEnabled(usable);
    btnAddAttr->setEnabled(usable && context_.AttributeList.size() < kMaxAttributes);
    btnDelAttr->setEnabled(usable && buttons.remove);
    btnAttrUp->setEnabled(usable && buttons.up);
    btnAttrDown->setEnabled(usable && buttons.down);
}

void TDecalSetup::btnAddAttrClick() {
    if (AddAttribute(context_.AttributeList, messages_)) {
        ShowAttributes(static_cast<int>(context_.AttributeList.size()) - 1);
    }
}

void TDecalSetup::btnDelAttrClick() {
    const int selected = SelectedAttribute();
    if (DeleteAttribute(context_.AttributeList, selected, messages_)) {
        ShowAttributes(-1);
    }
}

void TDecalSetup::MoveAttribute(int step) {
    ShowAttributes(MoveEntry(context_.AttributeList, SelectedAttribute(), step));
}

void TDecalSetup::btnScanFileClick() {
    ScanPanelDisplay display(*ScanPanel);
    try {
        ScanFileCommand(context_.PlotSettings.Inputfile, context_.PlotKind, context_.AttributeList,
                        messages_, display);
    } catch (const std::exception& error) {
        messages_.ShowError(error.what());
    }
    ShowAttributes(-1);
}

void TDecalSetup::LayerGridSetEditText(int column) {
    const std::string text = Utf8(LayerGrid->item(0, column)->text());
    try {
        CheckNumber(text, 3, 0, 250, 0, messages_);
        penTable_[static_cast<std::size_t>(column)].layer = LayerOfCellText(text);
    } catch (const Error&) {
        // Text that is no number ("-", "Any1") stays in the cell; OK reports it.
    }
}

void TDecalSetup::ShowLayerCells() {
    for (int column = 1; column < kLayerColumns; ++column) {
        LayerGrid->item(0, column)->setText(
            Text(CellTextOfLayer(penTable_[static_cast<std::size_t>(column)].layer)));
    }
}

void TDecalSetup::btnLibListClick() {
    TDecalLibList dialog(context_, dialogs_, messages_, this);
    dialog.exec();
}

}  // namespace zantor

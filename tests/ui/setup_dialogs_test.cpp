#include <QCheckBox>
#include <QFontComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QtTest/QTest>

#include "font/font_location.h"
#include "jobs/print_job.h"
#include "plot/recording_canvas.h"
#include "shell/attribute_store.h"
#include "shell/decal_lib_list.h"
#include "shell/settings_io.h"
#include "ui/choice_group.h"
#include "ui/colour_cells.h"
#include "ui/decal_lib_list.h"
#include "ui/decal_setup.h"
#include "ui/font_file_dialog.h"
#include "ui/numeric_edit.h"
#include "ui/options_setup.h"
#include "ui/paper_setup.h"
#include "ui_test_support.h"

namespace zantor::test {
namespace {

template <typename W>
W& Find(QWidget& dialog, const char* name) {
    W* widget = dialog.findChild<W*>(name);
    if (widget == nullptr) {
        ADD_FAILURE() << "no control " << name;
        throw std::runtime_error(name);
    }
    return *widget;
}

void Click(QWidget& dialog, const char* button) {
    Find<QPushButton>(dialog, button).click();
}

class SetupDialogTest : public WindowTest {
  protected:
    // The settings of `kind` as a fresh load from the store gives them.
    static PlotSettings Stored(PlotKind kind) {
        PlotSettings settings;
        LoadSettings(settings, kind, SettingsStore::OpenMain());
        return settings;
    }
};

class DecalSetupTest : public SetupDialogTest {
  protected:
    // The dialog for `kind`, shown: it has loaded the kind's settings.
    std::unique_ptr<TDecalSetup> Open(PlotKind kind) {
        context.PlotKind = kind;
        auto dialog = std::make_unique<TDecalSetup>(context, messages, dialogs);
        dialog->show();
        return dialog;
    }
    QTableWidgetItem& LayerCell(QWidget& dialog, int column) {
        return *Find<QTableWidget>(dialog, "LayerGrid").item(0, column);
    }
};

TEST_F(DecalSetupTest, OkStoresEveryPageAndTheNextLoadHasIt) {
    auto dialog = Open(PlotKind::Decal);
    Find<ChoiceGroup>(*dialog, "StackUnit").SetIndex(0);
    Find<NumericEdit>(*dialog, "MaxScale").SetValue(12.5);
    Find<QCheckBox>(*dialog, "View1_1").setChecked(true);
    Find<QCheckBox>(*dialog, "PrintAttributes").setChecked(true);
    Find<QCheckBox>(*dialog, "ShowDrill").setChecked(true);
    Find<ChoiceGroup>(*dialog, "PinNoGrp").SetIndex(2);
    Find<NumericEdit>(*dialog, "PinNoSize").SetValue(1.5);
    Find<QLineEdit>(*dialog, "Formular").setText("F-100");
    Find<QLineEdit>(*dialog, "GenComment").setText("  All dimensions in mm  ");
    Find<ChoiceGroup>(*dialog, "GenComAdjust").SetIndex(1);
    Find<QCheckBox>(*dialog, "ShowGrid").setChecked(true);
    Find<NumericEdit>(*dialog, "GridSize").SetValue(2.54);
    Find<ChoiceGroup>(*dialog, "GridUnit").SetIndex(0);
    LayerCell(*dialog, 2).setText("26");
    Find<ColourPalette>(*dialog, "ColorGrid").Choose(9);  // red
    QTest::mouseClick(&Find<PenColourCells>(*dialog, "PaintBox"), Qt::LeftButton, {},
                      QPoint(2 * 32 + 10, 2 * 20 + 5));  // Outline of column 2
    Click(*dialog, "OKButton");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);

    PlotSettings expected;
    expected.StackUnit = 'I';
    expected.MaxScale = 12.5;
    expected.View1_1 = true;
    expected.PrintAttr = true;
    expected.ShowDrill = true;
    expected.PinNoStyle = '1';
    expected.PinNoSize = 1.5;
    expected.FormNo = "F-100";
    expected.GenComment = "All dimensions in mm";
    expected.GenComAdjust = 1;
    expected.ShowGrid = true;
    expected.GridSize = 2.54;
    expected.GridUnit = 0;
    expected.PenTable[2].layer = 26;
    expected.PenTable[2].colour[kPenOutline] = 0x0000FF;
    EXPECT_EQ(Stored(PlotKind::Decal), expected);
    EXPECT_EQ(context.PlotSettings, expected);
    EXPECT_EQ(Stored(PlotKind::Index), PlotSettings{});  // the other kinds keep their own
    EXPECT_TRUE(messages.Texts().empty());
}

TEST_F(DecalSetupTest, IndexAndParttypePagesRoundTrip) {
    auto index = Open(PlotKind::Index);
    Find<QSpinBox>(*index, "IndexColumns").setValue(4);
    Find<QSpinBox>(*index, "PartsEachColumn").setValue(20);
    Find<QCheckBox>(*index, "PrintScale").setChecked(true);
    Click(*index, "OKButton");
    const PlotSettings stored = Stored(PlotKind::Index);
    EXPECT_EQ(stored.Columns, 4);
    EXPECT_EQ(stored.PartsEachColumn, 20);
    EXPECT_TRUE(stored.PrintScale);

    auto parttype = Open(PlotKind::Parttype);
    Find<QCheckBox>(*parttype, "ShowDecals").setChecked(false);
    Find<NumericEdit>(*parttype, "PTNameSize").SetValue(4);
    Find<NumericEdit>(*parttype, "PTAttrSize").SetValue(2.1);
    Click(*parttype, "OKButton");
    EXPECT_FALSE(Stored(PlotKind::Parttype).ShowDecal);
    EXPECT_EQ(context.ParttypeTextSizes.PTNameSize, 5.5);
    EXPECT_DOUBLE_EQ(context.ParttypeTextSizes.PTAttrSize, 3.0);
}

TEST_F(DecalSetupTest, CancelKeepsOnlyTheAttributeList) {
    SettingsStore store = SettingsStore::OpenMain();
    SaveSettings(PlotSettings{}, PlotKind::Decal, {}, store);
    auto dialog = Open(PlotKind::Decal);
    Find<NumericEdit>(*dialog, "OriginSize").SetValue(9);
    Find<QCheckBox>(*dialog, "PrintAttributes").setChecked(true);
    messages.QueueText("");  // an empty name adds nothing
    messages.QueueText("  Value  ");
    Click(*dialog, "btnAddAttr");
    Click(*dialog, "btnAddAttr");
    Click(*dialog, "CancelButton");
    EXPECT_EQ(dialog->result(), QDialog::Rejected);

    EXPECT_EQ(Stored(PlotKind::Decal), PlotSettings{});
    AttributeList kept;
    LoadAttributes(kept, SettingsStore::OpenMain());
    EXPECT_EQ(kept, (AttributeList{{"Value", false}}));
}

TEST_F(DecalSetupTest, LayerCellsAreCheckedOnEveryEditAndEmptyOrAnyFreesTheColumn) {
    PlotSettings settings;
    settings.PenTable[3].layer = 21;
    settings.PenTable[3].colour[kPenPads] = 0x00FF00;
    SettingsStore store = SettingsStore::OpenMain();
    SaveSettings(settings, PlotKind::Decal, {}, store);

    auto dialog = Open(PlotKind::Decal);
    EXPECT_EQ(LayerCell(*dialog, 0).text(), "Any");
    EXPECT_EQ(LayerCell(*dialog, 3).text(), "21");
    EXPECT_EQ(LayerCell(*dialog, 4).text(), "");
    for (const char* text : {"251", "1000", "1.5", "-1", "Any", "250", ""}) {
        LayerCell(*dialog, 5).setText(text);
        EXPECT_EQ(LayerCell(*dialog, 5).text(), text);  // the text stays as typed
    }
    EXPECT_EQ(messages.Texts(),
              (std::vector<std::string>{
                  "Number too large.", "Too many digits in number.", "Too many decimals in number.",
                  "Negative number not allowed.", "Illegal character in number."}));

    LayerCell(*dialog, 3).setText("Any");
    Click(*dialog, "OKButton");
    const PlotSettings stored = Stored(PlotKind::Decal);
    EXPECT_EQ(stored.PenTable[3].layer, -1);
    EXPECT_EQ(stored.PenTable[3].colour[kPenPads], 0x00FF00);
    EXPECT_EQ(stored.PenTable[5].layer, -1);
}

TEST_F(DecalSetupTest, ALayerCellThatIsNoNumberKeepsTheDialogOpen) {
    auto dialog = Open(PlotKind::Decal);
    LayerCell(*dialog, 1).setText("1.5");
    messages.Clear();
    Click(*dialog, "OKButton");
    EXPECT_TRUE(dialog->isVisible());
    ASSERT_EQ(messages.Texts().size(), 1U);
    EXPECT_NE(messages.Texts()[0].find("1.5"), std::string::npos);
}

TEST_F(DecalSetupTest, ColourCellsTakeThePaletteColourOnlyWhereTheyArePainted) {
    auto dialog = Open(PlotKind::Decal);
    auto& cells = Find<PenColourCells>(*dialog, "PaintBox");
    Find<ColourPalette>(*dialog, "ColorGrid").Choose(12);                            // blue
    QTest::mouseClick(&cells, Qt::LeftButton, {}, QPoint(3 * 32 + 10, 7 * 20 + 5));  // Origin
    QTest::mouseClick(&cells, Qt::LeftButton, {}, QPoint(5, 7 * 20 + 5));  // Origin of "Any"
    Click(*dialog, "OKButton");
    PlotSettings expected;
    expected.PenTable[0].colour[kPenOrigin] = 0xFF0000;
    EXPECT_EQ(Stored(PlotKind::Decal).PenTable, expected.PenTable);
}

TEST_F(DecalSetupTest, EachKindShowsItsPagesAndCaption) {
    struct Case {
        PlotKind kind;
        QString caption, columns;
        bool grid, attributes;
    };
    const Case cases[] = {{PlotKind::Parttype, "Parttype setup", "No of decals", false, true},
                          {PlotKind::Decal, "PCB-decal setup", "Columns", true, true},
                          {PlotKind::Index, "PCB-decal index setup", "Columns", false, false}};
    for (const Case& c : cases) {
        auto dialog = Open(c.kind);
        auto& tabs = Find<QTabWidget>(*dialog, "DecalTabs");
        EXPECT_EQ(dialog->windowTitle(), c.caption);
        EXPECT_EQ(Find<QLabel>(*dialog, "ColumnsLabel").text(), c.columns);
        EXPECT_EQ(tabs.isTabVisible(tabs.indexOf(dialog->findChild<QWidget*>("PageGrid"))), c.grid);
        EXPECT_EQ(tabs.isTabVisible(tabs.indexOf(dialog->findChild<QWidget*>("PageAttr"))),
                  c.attributes);
        EXPECT_EQ(!Find<QWidget>(*dialog, "Panel3").isHidden(), c.kind == PlotKind::Parttype);
    }
}

TEST_F(DecalSetupTest, DependentControlsFollowTheirBoxes) {
    auto dialog = Open(PlotKind::Decal);
    auto& drill = Find<QCheckBox>(*dialog, "ShowDrill");
    drill.setChecked(false);
    EXPECT_FALSE(Find<QCheckBox>(*dialog, "ShowNPOnly").isEnabled());
    drill.setChecked(true);
    EXPECT_TRUE(Find<QCheckBox>(*dialog, "ShowNPOnly").isEnabled());
    Find<QCheckBox>(*dialog, "NameAsFormNo").setChecked(true);
    EXPECT_FALSE(Find<QLineEdit>(*dialog, "Formular").isEnabled());
    Find<QCheckBox>(*dialog, "ShowGrid").setChecked(false);
    EXPECT_FALSE(Find<QWidget>(*dialog, "GridSettings").isEnabled());
    Find<QCheckBox>(*dialog, "PrintAttributes").setChecked(false);
    EXPECT_FALSE(Find<QListWidget>(*dialog, "AttrList").isEnabled());
    EXPECT_FALSE(Find<QPushButton>(*dialog, "btnScanFile").isEnabled());
}

TEST_F(DecalSetupTest, AttributeListIsEditedAndScanned) {
    const auto library = config_.WriteFile(
        "lib.d",
        "*PADS-LIBRARY-PCB-DECALS-V4*\n\nA M 0 0 2 2 0 0 0 0\nValue\n\"Part Number\" X\n\n*END*\n");
    SettingsStore store = SettingsStore::OpenMain();
    PlotSettings settings;
    settings.Inputfile = library.string();
    settings.PrintAttr = true;
    SaveSettings(settings, PlotKind::Decal, {}, store);
    SaveAttributes({{"Cost", true}}, store);

    auto dialog = Open(PlotKind::Decal);
    auto& list = Find<QListWidget>(*dialog, "AttrList");
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->checkState(), Qt::Checked);
    messages.QueueYesNo(false);
    Click(*dialog, "btnScanFile");
    EXPECT_EQ(list.count(), 3);
    EXPECT_FALSE(Find<QWidget>(*dialog, "ScanPanel").isVisible());

    list.setCurrentRow(2);
    Click(*dialog, "btnAttrUp");
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_EQ(list.item(1)->text(), "Part Number");
    list.item(2)->setCheckState(Qt::Checked);
    messages.QueueYesNo(true);
    list.setCurrentRow(0);
    Click(*dialog, "btnDelAttr");
    Click(*dialog, "OKButton");

    const AttributeList expected = {{"Part Number", false}, {"Value", true}};
    EXPECT_EQ(context.AttributeList, expected);
    AttributeList stored;
    LoadAttributes(stored, SettingsStore::OpenMain());
    EXPECT_EQ(stored, expected);
    EXPECT_EQ(messages.Texts(), (std::vector<std::string>{"Erase current attribute-list?",
                                                          "OK to delete attribute from list?"}));
}

// What the view box draws of the sample library's first decal with the context's settings.
std::string ViewBoxTrace(PlotContext& context, UserMessages& messages) {
    context.PlotSettings.Inputfile = (SourceDir() / "data" / "samples" / "sample.d").string();
    EXPECT_TRUE(context.StrokeFont.Load(ResolveFontfile("romans.fnt").string(), messages));
    RecordingCanvas canvas;
    PrintJob job(context, PlotSurface::ViewBox, canvas, ScreenBox{217, 301}, messages);
    const std::vector<std::string> names = {"DIP8"};
    job.PrintDecals(names);
    return canvas.Trace();
}

TEST_F(DecalSetupTest, AnAcceptedPenColourShowsInTheNextDrawing) {
    auto dialog = Open(PlotKind::Decal);
    EXPECT_EQ(ViewBoxTrace(context, messages).find("pen=0000FF"), std::string::npos);
    Find<ColourPalette>(*dialog, "ColorGrid").Choose(9);  // red
    QTest::mouseClick(&Find<PenColourCells>(*dialog, "PaintBox"), Qt::LeftButton, {},
                      QPoint(10, 2 * 20 + 5));  // Outline of "Any"
    Click(*dialog, "OKButton");
    EXPECT_NE(ViewBoxTrace(context, messages).find("pen=0000FF"), std::string::npos);
}

class LibListTest : public SetupDialogTest {
  protected:
    void Store(const DecalLibList& list) {
        SettingsStore store = SettingsStore::OpenMain();
        SaveDecalLibList(list, store);
    }
};

TEST_F(LibListTest, LoadsUpToAGapAndEnablesTheArrowsByTheSelection) {
    config_.WriteFile("Brovik/Zantor.conf",
                      "[Decal_LibList]\nFile0=/lib/a.d\nFile1=/lib/b.d\nFile3=/lib/d.d\n");
    TDecalLibList dialog(context, dialogs, messages);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "Decals library list");
    EXPECT_EQ(dialog.Libraries(), (DecalLibList{"/lib/a.d", "/lib/b.d"}));
    auto& list = Find<QListWidget>(dialog, "LibList");
    EXPECT_FALSE(Find<QPushButton>(dialog, "btnDelLib").isEnabled());
    list.setCurrentRow(1);
    EXPECT_TRUE(Find<QPushButton>(dialog, "btnLibUp").isEnabled());
    EXPECT_FALSE(Find<QPushButton>(dialog, "btnLibDown").isEnabled());
    Click(dialog, "btnDelLib");
    list.setCurrentRow(0);
    EXPECT_FALSE(Find<QPushButton>(dialog, "btnLibUp").isEnabled());
    EXPECT_FALSE(Find<QPushButton>(dialog, "btnLibDown").isEnabled());
    EXPECT_TRUE(Find<QPushButton>(dialog, "btnDelLib").isEnabled());
}

TEST_F(LibListTest, AddsEachDecalLibraryOnceAndOkReplacesTheStoredList) {
    Store({"/lib/old.d"});
    const auto library = config_.WriteFile("new.d", "*PADS-LIBRARY-PCB-DECALS-V4*\n");
    const auto parttypes = config_.WriteFile("x.p", "7400 DIP14 I TTL 0 1 0 0\n");
    const QString path = QString::fromStdString(library.string());
    dialogs.openAnswers = {path, path, QString::fromStdString(parttypes.string())};
    TDecalLibList dialog(context, dialogs, messages);
    dialog.show();
    for (int i = 0; i < 3; ++i) {
        Click(dialog, "btnAddLib");
    }
    EXPECT_EQ(dialogs.openFilters, "Decal ASCII-file (*.d)");
    auto& list = Find<QListWidget>(dialog, "LibList");
    list.setCurrentRow(1);
    Click(dialog, "btnLibUp");
    Click(dialog, "btnOK");
    EXPECT_EQ(LoadDecalLibList(SettingsStore::OpenMain()),
              (DecalLibList{library.string(), "/lib/old.d"}));
    EXPECT_EQ(context.DecalLibList, (DecalLibList{library.string(), "/lib/old.d"}));
    EXPECT_TRUE(messages.Texts().empty());
}

TEST_F(LibListTest, CancelReadsTheStoredListBack) {
    Store({"/lib/a.d", "/lib/b.d"});
    TDecalLibList dialog(context, dialogs, messages);
    dialog.show();
    Find<QListWidget>(dialog, "LibList").setCurrentRow(0);
    Click(dialog, "btnDelLib");
    Click(dialog, "btnCancel");
    EXPECT_EQ(dialog.Libraries(), (DecalLibList{"/lib/a.d", "/lib/b.d"}));
    EXPECT_EQ(LoadDecalLibList(SettingsStore::OpenMain()), dialog.Libraries());
    EXPECT_EQ(context.DecalLibList, dialog.Libraries());
}

using GeneralDialogsTest = SetupDialogTest;

TEST_F(GeneralDialogsTest, PaperSetupRoundTripAndCancel) {
    TPaperSetup paper(context, messages);
    paper.show();
    EXPECT_EQ(paper.windowTitle(), "Paper setup");
    EXPECT_EQ(Find<QPushButton>(paper, "OKButton").toolTip(), "Accept new setttings.");
    Find<NumericEdit>(paper, "LeftMargin").SetValue(15.5);
    Find<NumericEdit>(paper, "XBorder").SetValue(0.5);  // below its minimum of 1
    Find<QCheckBox>(paper, "MirMarg").setChecked(true);
    Find<QCheckBox>(paper, "SeperatePages").setChecked(true);
    Click(paper, "OKButton");
    PlotSettings expected;
    expected.LeftMargin = 15.5;
    expected.XBorder = 1;
    expected.MirrorMargin = true;
    expected.SeperatePages = true;
    EXPECT_EQ(Stored(PlotKind::Decal), expected);

    TPaperSetup again(context, messages);
    again.show();
    EXPECT_EQ(Find<NumericEdit>(again, "LeftMargin").Value(), 15.5);
    Find<NumericEdit>(again, "TopMargin").SetValue(30);
    Click(again, "CancelButton");
    EXPECT_EQ(Stored(PlotKind::Decal), expected);
    EXPECT_EQ(context.PlotSettings, expected);
}

TEST_F(GeneralDialogsTest, OptionsRoundTripWithTheCompanyInItsFont) {
    TOptionsSetup options(context, messages);
    options.show();
    EXPECT_EQ(options.windowTitle(), "Options setup");
    auto& company = Find<QLineEdit>(options, "Company");
    company.setText(QString(35, 'C'));
    EXPECT_EQ(company.text().size(), 30);
    Find<QFontComboBox>(options, "CompanyFont").setEditText("Liberation Serif");
    EXPECT_EQ(company.font().family(), "Liberation Serif");
    Find<NumericEdit>(options, "MinLineWidth").SetValue(0.25);
    Find<NumericEdit>(options, "MaxPin1Mark").SetValue(2);
    Click(options, "OKButton");
    const PlotSettings stored = Stored(PlotKind::Decal);
    EXPECT_EQ(stored.Company, std::string(30, 'C'));
    EXPECT_EQ(stored.CompanyFont, "Liberation Serif");
    EXPECT_EQ(stored.MinLineWidth, 0.25);
    EXPECT_EQ(stored.MaxPin1Mark, 2);
}

TEST_F(GeneralDialogsTest, FontFileIsTrimmedOnOkAndTheSettingsAreWrittenEitherWay) {
    TPADSFontFile dialog(dialogs);
    QTimer::singleShot(0, &dialog, [&dialog] {
        Find<QLineEdit>(dialog, "FontFile").setText("  /opt/pads/romansim.fnt \t");
        Find<QPushButton>(dialog, "OKBtn").click();
    });
    RunFontFileDialog(dialog, context, messages);
    EXPECT_EQ(context.PlotSettings.Fontfile, "/opt/pads/romansim.fnt");
    EXPECT_EQ(Stored(PlotKind::Decal).Fontfile, "/opt/pads/romansim.fnt");

    context.PlotSettings.Company = "Brovik";
    QTimer::singleShot(0, &dialog, [&dialog] {
        EXPECT_EQ(Find<QLineEdit>(dialog, "FontFile").text(), "/opt/pads/romansim.fnt");
        EXPECT_EQ(Find<QLineEdit>(dialog, "FontFile").maxLength(), 60);
        Find<QLineEdit>(dialog, "FontFile").setText("other.fnt");
        Find<QPushButton>(dialog, "btnCancel").click();
    });
    RunFontFileDialog(dialog, context, messages);
    const PlotSettings stored = Stored(PlotKind::Decal);
    EXPECT_EQ(stored.Fontfile, "/opt/pads/romansim.fnt");
    EXPECT_EQ(stored.Company, "Brovik");

    dialogs.openAnswers = {QString("/usr/share/fonts/romansim.fnt")};
    Click(dialog, "btnBrowse");
    EXPECT_EQ(dialog.FileName(), "/usr/share/fonts/romansim.fnt");
    EXPECT_EQ(dialogs.openFilters, "PADS font file (*.fnt);;(any file) (*.*)");
}

}  // namespace
}  // namespace zantor::test

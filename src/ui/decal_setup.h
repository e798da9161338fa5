#pragma once

// TDecalSetup: the setup of the current print kind's plot options in six pages ("General",
// "Attributes", "Layers/items", "Pins", "Formular", "Grid"), the attribute list and the pen colour
// table. One dialog serves the three kinds; its caption and the controls it shows follow the kind
// (SetupLayoutFor). Each control's objectName is the name of the setting's control.
//
// When it is shown it reloads the kind's settings from the store and the attribute list from
// "AttrList". OK copies the controls into the settings record and saves the settings; Cancel
// keeps nothing but the attribute list, which is saved on every close.

#include <QDialog>

#include "common/user_messages.h"
#include "jobs/plot_context.h"
#include "shell/plot_settings.h"
#include "ui/dialog_services.h"

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QTableWidget;
class QVBoxLayout;

namespace zantor {

class ChoiceGroup;
class ColourPalette;
class NumericEdit;
class PenColourCells;

class TDecalSetup : public QDialog {
    Q_OBJECT

  public:
    // Edits `context`'s settings, attribute list and parttype text heights (which the main
    // window saves with the recent files) for its PlotKind.
    TDecalSetup(PlotContext& context, UserMessages& messages, DialogServices& dialogs,
                QWidget* parent = nullptr);

    void accept() override;
    void done(int result) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* BuildGeneralPage();
    QWidget* BuildAttributesPage();
    QWidget* BuildLayersPage();
    QWidget* BuildPinsPage();
    QWidget* BuildFormularPage();
    QWidget* BuildGridPage();
    void BuildButtons(QVBoxLayout* layout);

    void FormActivate();
    void ApplyLayout();
    void CopyIn(const PlotSettings& s);
    // False (with the message shown) when a layer cell holds no number.
    bool CopyOut(PlotSettings& s);
    void UpdateEnabling();
    void ShowFormularFont(const QString& family);

    void ShowAttributes(int selected);
    int SelectedAttribute() const;
    void UpdateAttributeButtons();
    void btnAddAttrClick();
    void btnDelAttrClick();
    void MoveAttribute(int step);
    void btnScanFileClick();
    void LayerGridSetEditText(int column);
    void ShowLayerCells();
    void btnLibListClick();

    PlotContext& context_;
    UserMessages& messages_;
    DialogServices& dialogs_;
    // The pen table as the colour cells and layer cells edit it; copied out on OK.
    PenTableRows penTable_;
    bool copying_ = false;

    QTabWidget* DecalTabs = nullptr;
    // General
    QWidget* PadstackPanel = nullptr;
    QWidget* MeasPanel = nullptr;
    QWidget* DecalPanel = nullptr;
    QWidget* IndexPanel = nullptr;
    ChoiceGroup* StackUnit = nullptr;
    ChoiceGroup* MeasUnit = nullptr;
    ChoiceGroup* HeightInfo = nullptr;
    QCheckBox* PlotStack = nullptr;
    QCheckBox* PlotOrigin = nullptr;
    NumericEdit* OriginSize = nullptr;
    NumericEdit* MaxScale = nullptr;
    QCheckBox* View1_1 = nullptr;
    QLabel* ColumnsLabel = nullptr;
    QSpinBox* IndexColumns = nullptr;
    QSpinBox* PartsEachColumn = nullptr;
    QCheckBox* PrintSeperatingLines = nullptr;
    QCheckBox* PrintScale = nullptr;
    QCheckBox* ListPinNames = nullptr;
    QCheckBox* ShowDecals = nullptr;
    QCheckBox* ShowDecalNames = nullptr;
    // Attributes
    QWidget* AttrPanel2 = nullptr;
    QListWidget* AttrList = nullptr;
    QPushButton* btnAttrUp = nullptr;
    QPushButton* btnAttrDown = nullptr;
    QPushButton* btnAddAttr = nullptr;
    QPushButton* btnDelAttr = nullptr;
    QPushButton* btnScanFile = nullptr;
    QLabel* ScanPanel = nullptr;
    QCheckBox* PrintAttributes = nullptr;
    QCheckBox* PrintComments = nullptr;
    // Layers/items
    QTableWidget* LayerGrid = nullptr;
    PenColourCells* PaintBox = nullptr;
    ColourPalette* ColorGrid = nullptr;
    // Pins
    QCheckBox* ShowPinCenter = nullptr;
    QCheckBox* ShowDrill = nullptr;
    QCheckBox* ShowNPOnly = nullptr;
    QCheckBox* MarkPin1 = nullptr;
    QCheckBox* PlotPinNo = nullptr;
    ChoiceGroup* PinNoGrp = nullptr;
    QCheckBox* ScalePinNo = nullptr;
    NumericEdit* PinNoSize = nullptr;
    // Formular
    QLabel* FormularLabel = nullptr;
    QLineEdit* Formular = nullptr;
    QCheckBox* NameAsFormNo = nullptr;
    QFontComboBox* FormularFont = nullptr;
    QLabel* FormularFontExample = nullptr;
    QLineEdit* GenComment = nullptr;
    NumericEdit* GenComSize = nullptr;
    ChoiceGroup* GenComAdjust = nullptr;
    QWidget* Panel3 = nullptr;
    NumericEdit* PTNameSize = nullptr;
    NumericEdit* PTAttrSize = nullptr;
    // Grid
    QCheckBox* ShowGrid = nullptr;
    QGroupBox* GridSettings = nullptr;
    NumericEdit* GridSize = nullptr;
    NumericEdit* GridLineWidth = nullptr;
    ChoiceGroup* GridLinestyle = nullptr;
    ChoiceGroup* GridPosition = nullptr;
    ChoiceGroup* GridUnit = nullptr;
    QCheckBox* ShowGridSize = nullptr;
};

}  // namespace zantor

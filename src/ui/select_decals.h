#pragma once

// TSelectDecals: the modal dialog before every print run. It lists the input file's catalogue
// for the current print kind with its filters, shows the one selected decal in its view box,
// opens the preview and the setup dialogs, exports the selected names, and on OK asks for the
// printer. It returns Accepted when the run is to start on that printer.

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

#include "ui/window_services.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;
class QStatusBar;

namespace zantor {

class ViewBox;

class TSelectDecals : public QDialog {
    Q_OBJECT

  public:
    explicit TSelectDecals(WindowServices& services, QWidget* parent = nullptr);

    // The selected names, in list order: what the print run prints.
    std::vector<std::string> SelectedNames() const;
    // The text of a panel of the status bar (0: items in the file, 1: selected).
    QString StatusText(int panel) const;

    // The setup dialogs the buttons open; a button without its dialog stays disabled.
    void SetDecalSetup(std::function<void(QWidget*)> open);
    void SetLibList(std::function<void(QWidget*)> open);

    // Re-reads the file with the filters as they stand and selects every entry.
    void LoadPartnames();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void FormActivate();
    void SearchNameChange(const QString& text);
    void btnViewAllClick();
    void AllClick();
    void UpdateSelectionStatus();
    void ListBtnClick();
    void btnSetupClick();
    void btnPreviewClick();
    void OKButtonClick();
    void ShowHelpOfFocus();

    WindowServices& services_;
    std::function<void(QWidget*)> decalSetup_;
    std::function<void(QWidget*)> libList_;

    ViewBox* View = nullptr;
    QListWidget* Namelist = nullptr;
    QLabel* Label1 = nullptr;
    QLineEdit* SearchName = nullptr;
    QLabel* Label2 = nullptr;
    QComboBox* SelectedParts = nullptr;
    QWidget* PinsPanel = nullptr;
    QSpinBox* Terminals = nullptr;
    QPushButton* btnSetup = nullptr;
    QPushButton* btnLibList = nullptr;
    QPushButton* ListBtn = nullptr;
    QPushButton* btnViewAll = nullptr;
    QPushButton* btnPreview = nullptr;
    QPushButton* OKButton = nullptr;
    QPushButton* CancelButton = nullptr;
    QPushButton* HelpButton = nullptr;
    QPushButton* AllButton = nullptr;
    QStatusBar* StatusBar1 = nullptr;
    QLabel* statusPanels_[3] = {nullptr, nullptr, nullptr};
};

}  // namespace zantor

#pragma once

// TMainForm: the main window. It holds the input file's name with the recently used ones and
// starts everything else: the three print commands (selection dialog, printer dialog, progress
// window), printer setup, the setup dialogs and the help.

#include <QMainWindow>
#include <functional>
#include <string>
#include <vector>

#include "shell/plot_settings.h"
#include "ui/window_services.h"

class QAction;
class QComboBox;
class QPushButton;

namespace zantor {

class TMainForm : public QMainWindow {
    Q_OBJECT

  public:
    // Loads the recent files and the settings of the decal kind; the box shows Inputfile.
    explicit TMainForm(WindowServices& services, QWidget* parent = nullptr);

    // The names of the input-file box's list, newest first.
    std::vector<std::string> RecentFiles() const;
    // Puts `name` into the input-file box, as typing it would.
    void SetInputFile(const QString& name);

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void BuildControls();
    void BuildMenus();
    void EnableButtons();
    void InputFileChange(const QString& text);
    void btnOpenClick();
    void AddToRecentFiles();
    void PrintDecalClick();
    void PrintIndexClick();
    void PrintParttypeClick();
    void Printersetup1Click();
    // The decal and index commands.
    void RunDecalCommand(PlotKind kind);
    // A print command on `file` once its test has passed: settings, stroke font, selection
    // dialog, printer dialog, progress window.
    void RunPrintCommand(PlotKind kind, const std::string& file);
    // The selection dialog, and on its OK the run on the chosen printer.
    void SelectAndPrint();
    void PrintSelection(const std::vector<std::string>& names);

    // The setup dialogs, each as the function that shows it modally over a window.
    std::function<void(QWidget*)> DecalSetupDialog();
    std::function<void(QWidget*)> DecalLibListDialog();
    std::function<void(QWidget*)> PaperSetupDialog();
    std::function<void(QWidget*)> OptionsDialog();
    std::function<void(QWidget*)> FontFileDialog();

    WindowServices& services_;

    QComboBox* InputFile = nullptr;
    QPushButton* btnOpen = nullptr;
    QPushButton* PrintDecal = nullptr;
    QPushButton* PrintIndex = nullptr;
    QPushButton* PrintParttype = nullptr;
    QPushButton* ExitButton = nullptr;
    QPushButton* HelpButton = nullptr;
};

}  // namespace zantor

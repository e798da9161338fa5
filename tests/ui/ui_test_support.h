#pragma once

// What the window tests share: the application object, scripted stand-ins for the system's
// dialogs, and a fixture with the program's context and a settings folder of its own.

#include <gtest/gtest.h>

#include <QApplication>
#include <QPrinter>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>

#include "font/font_location.h"
#include "jobs/plot_context.h"
#include "shell/settings_store.h"
#include "support/recording_messages.h"
#include "support/test_support.h"
#include "ui/dialog_services.h"
#include "ui/window_services.h"

namespace zantor::test {

inline QApplication& UiApp() {
    static int argc = 1;
    static char name[] = "zantor_ui_tests";
    static char* argv[] = {name, nullptr};
    static auto* app = new QApplication(argc, argv);
    return *app;
}

// Answers the dialogs from scripted replies; with none left a dialog counts as cancelled.
class ScriptedDialogs : public DialogServices {
  public:
    std::optional<QString> OpenFileName(QWidget*, const QString&, const QString& directory,
                                        const QString& filters) override {
        openFilters = filters;
        openDirectory = directory;
        return Next(openAnswers);
    }
    std::optional<QString> SaveFileName(QWidget*, const QString&, const QString& suggested,
                                        const QString& filters) override {
        saveSuggested = suggested;
        saveFilters = filters;
        return Next(saveAnswers);
    }
    bool ExecPrintDialog(QWidget*, QPrinter& printer) override {
        ++printDialogs;
        if (printerAnswer.empty()) {
            return false;
        }
        if (printToFile) {
            printer.setOutputFileName(QString::fromStdString(printerAnswer));
        } else {
            printer.setOutputFormat(QPrinter::NativeFormat);
            printer.setPrinterName(QString::fromStdString(printerAnswer));
        }
        return true;
    }
    bool ExecPrinterSetup(QWidget*, QPrinter&) override { return false; }

    // The names the file dialogs give, in turn; an empty name is a cancelled dialog.
    std::deque<QString> openAnswers;
    std::deque<QString> saveAnswers;
    // The queue the print dialog chooses (the PDF file with printToFile); empty: the user
    // cancels.
    std::string printerAnswer;
    bool printToFile = false;

    QString openFilters, openDirectory, saveSuggested, saveFilters;
    int printDialogs = 0;

  private:
    static std::optional<QString> Next(std::deque<QString>& answers) {
        if (answers.empty() || answers.front().isEmpty()) {
            if (!answers.empty()) {
                answers.pop_front();
            }
            return std::nullopt;
        }
        const QString answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

// A fresh settings folder (XDG_CONFIG_HOME) for every test, and the services of the windows.
class WindowTest : public ::testing::Test {
  protected:
    WindowTest() {
        const char* old = std::getenv("XDG_CONFIG_HOME");
        oldConfig_ = old != nullptr ? old : "";
        hadConfig_ = old != nullptr;
        setenv("XDG_CONFIG_HOME", config_.Path().c_str(), 1);
    }
    ~WindowTest() override {
        if (hadConfig_) {
            setenv("XDG_CONFIG_HOME", oldConfig_.c_str(), 1);
        } else {
            unsetenv("XDG_CONFIG_HOME");
        }
    }

    static std::string SampleLibrary() {
        return (SourceDir() / "data" / "samples" / "sample.d").string();
    }

    // The decal kind on `file` with the bundled stroke font, as a print command leaves it
    // before the selection dialog.
    void PrepareDecalJob(const std::string& file, PlotKind kind = PlotKind::Decal) {
        context.PlotKind = kind;
        context.PlotSettings.Inputfile = file;
        ASSERT_TRUE(context.StrokeFont.Load(ResolveFontfile("romans.fnt").string(), messages));
    }

    // Before the printer below, which needs the application.
    QApplication& app_ = UiApp();
    TempDir config_;
    std::string oldConfig_;
    bool hadConfig_ = false;

  protected:
    PlotContext context;
    QPrinter printer{QPrinter::HighResolution};
    ScriptedDialogs dialogs;
    RecordingMessages messages;
    WindowServices services{context, printer, dialogs, messages};
};

}  // namespace zantor::test

#pragma once

// What the setup dialog tests share: the application object, scripted file dialogs, and a
// fixture with the program's context and a settings folder of its own.

#include <gtest/gtest.h>

#include <QApplication>
#include <QByteArray>
#include <deque>
#include <optional>

#include "jobs/plot_context.h"
#include "shell/settings_io.h"
#include "shell/settings_store.h"
#include "support/recording_messages.h"
#include "support/test_support.h"
#include "ui/dialog_services.h"

namespace zantor::test {

inline QApplication& SetupTestApp() {
    static int argc = 1;
    static char name[] = "zantor_ui_tests";
    static char* argv[] = {name, nullptr};
    if (auto* existing = qobject_cast<QApplication*>(QCoreApplication::instance())) {
        return *existing;
    }
    static auto* app = new QApplication(argc, argv);
    return *app;
}

// Open-file dialogs answered from a queue; with none left the user cancels.
class QueuedFileDialogs : public DialogServices {
  public:
    std::optional<QString> OpenFileName(QWidget*, const QString&, const QString&,
                                        const QString& filters) override {
        lastFilters = filters;
        if (answers.empty()) {
            return std::nullopt;
        }
        auto answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<QString> SaveFileName(QWidget*, const QString&, const QString&,
                                        const QString&) override {
        return std::nullopt;
    }
    bool ExecPrintDialog(QWidget*, QPrinter&) override { return false; }
    bool ExecPrinterSetup(QWidget*, QPrinter&) override { return false; }

    std::deque<std::optional<QString>> answers;
    QString lastFilters;
};

// A fresh settings folder (XDG_CONFIG_HOME) for every test.
class SetupDialogTest : public ::testing::Test {
  protected:
    SetupDialogTest() : savedConfigHome_(qgetenv("XDG_CONFIG_HOME")) {
        SetupTestApp();
        hadConfigHome_ = qEnvironmentVariableIsSet("XDG_CONFIG_HOME");
        qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(config_.Path().string()));
    }
    ~SetupDialogTest() override {
        if (hadConfigHome_) {
            qputenv("XDG_CONFIG_HOME", savedConfigHome_);
        } else {
            qunsetenv("XDG_CONFIG_HOME");
        }
    }

    // The settings of `kind` as a fresh load from the store gives them.
    static PlotSettings Stored(PlotKind kind) {
        PlotSettings settings;
        LoadSettings(settings, kind, SettingsStore::OpenMain());
        return settings;
    }

    TempDir config_;
    PlotContext context;
    RecordingMessages messages;
    QueuedFileDialogs dialogs;

  private:
    QByteArray savedConfigHome_;
    bool hadConfigHome_ = false;
};

}  // namespace zantor::test

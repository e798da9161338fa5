#pragma once

// TProcWin: the small modal window that runs a print job and shows its progress: the name being
// printed, a bar, and a button that cancels the run.
//
// The job runs on the user-interface thread as soon as the window shows. Between two decals the
// window takes its events, so that Cancel is heard: it aborts the printer document, which the job
// sees before its next decal, and nothing of the aborted document is printed.

#include <QDialog>
#include <functional>

#include "jobs/print_progress.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace zantor {

class PageOutput;
class UserMessages;

class TProcWin : public QDialog, public PrintProgress {
    Q_OBJECT

  public:
    // `job` runs the print job on `target`, reporting to the progress it is given.
    using Job = std::function<void(PrintProgress&)>;

    TProcWin(PageOutput& target, Job job, UserMessages& messages, QWidget* parent = nullptr);

    // The run was cancelled by the user.
    bool Cancelled() const { return cancelled_; }

    void Started(int total) override;
    void Looking(const std::string& name) override;
    void Position(int printed) override;
    void Finished(const std::string& text) override;

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void FormActivate();
    void ExitButtonClick();
    void Timer1Timer();

    PageOutput& target_;
    Job job_;
    UserMessages& messages_;
    QLabel* NameDisp = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QPushButton* ExitButton = nullptr;
    QTimer* Timer1 = nullptr;
    bool started_ = false;
    bool running_ = false;
    bool cancelled_ = false;
};

}  // namespace zantor

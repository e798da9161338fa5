#include "ui/progress_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <exception>

#include "common/user_messages.h"
#include "output/page_output.h"

namespace zantor {

TProcWin::TProcWin(PageOutput& target, Job job, UserMessages& messages, QWidget* parent)
    : QDialog(parent), target_(target), job_(std::move(job)), messages_(messages) {
    setObjectName(QStringLiteral("ProcWin"));
    setWindowTitle(QStringLiteral("Printing decals"));
    setWindowFlags(Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::WindowTitleHint);
    setModal(true);

    NameDisp = new QLabel(this);
    NameDisp->setObjectName(QStringLiteral("NameDisp"));
    NameDisp->setAlignment(Qt::AlignCenter);
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setMinimum(0);
    ProgressBar1->setMaximum(0);
    ProgressBar1->setTextVisible(false);
    ExitButton = new QPushButton(QStringLiteral("Cancel"), this);
    ExitButton->setObjectName(QStringLiteral("ExitButton"));
    ExitButton->setToolTip(QStringLiteral("Press to cancel printing"));
    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(100);
    Timer1->setSingleShot(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(NameDisp);
    layout->addWidget(ProgressBar1);
    layout->addWidget(ExitButton, 0, Qt::AlignHCenter);
    setFixedSize(281, 113);

    connect(ExitButton, &QPushButton::clicked, this, &TProcWin::ExitButtonClick);
    connect(Timer1, &QTimer::timeout, this, &TProcWin::Timer1Timer);
}

void TProcWin::Started(int total) {
    ProgressBar1->setMaximum(total);
    ProgressBar1->setValue(0);
    NameDisp->clear();
    NameDisp->repaint();
}

void TProcWin::Looking(const std::string& name) {
    NameDisp->setText(QString::fromLocal8Bit(name));
    NameDisp->repaint();
}

void TProcWin::Position(int printed) {
    ProgressBar1->setValue(printed);
    // Between two decals: the only place where a Cancel can come in while the job runs.
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void TProcWin::Finished(const std::string& text) {
    NameDisp->setText(QString::fromLocal8Bit(text));
    NameDisp->repaint();
}

void TProcWin::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!started_) {
        started_ = true;
        // After the window is on the screen, not before.
        QTimer::singleShot(0, this, &TProcWin::FormActivate);
    }
}

void TProcWin::closeEvent(QCloseEvent* event) {
    // The window goes when the job has ended; until then closing it means Cancel.
    if (running_) {
        ExitButtonClick();
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

void TProcWin::FormActivate() {
    repaint();
    running_ = true;
    bool failed = false;
    try {
        job_(*this);
    } catch (const std::exception& error) {
        failed = true;
        if (target_.Printing()) {
            target_.Abort();
        }
        messages_.ShowError(error.what());
    }
    running_ = false;
    if (cancelled_ || failed) {
        done(QDialog::Rejected);
        return;
    }
    ExitButton->setText(QStringLiteral("OK"));
    ExitButton->setToolTip(QString());
    setResult(QDialog::Accepted);
    Timer1->start();
}

void TProcWin::ExitButtonClick() {
    if (!running_) {
        accept();
        return;
    }
    // Also between two documents (SeperatePages): the job stops before its next decal.
    target_.Abort();
    cancelled_ = true;
    ExitButton->setEnabled(false);
}

void TProcWin::Timer1Timer() {
    accept();
}

}  // namespace zantor

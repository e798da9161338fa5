#include "ui/preview_window.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QResizeEvent>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>

#include "jobs/screen_pages.h"
#include "ui/help.h"

namespace zantor {

int PreviewWidthForHeight(int height) {
    // In thousandths, so that 353.5 is a tie and not the nearest double below it.
    const long thousandths = static_cast<long>(height) * 707;
    long width = thousandths / 1000;
    const long rest = thousandths % 1000;
    if (rest > 500 || (rest == 500 && width % 2 != 0)) {
        ++width;
    }
    return static_cast<int>(width);
}

// The paint box: the job drawn on the screen each time the box is painted. A job that fails is
// reported once and the box then shows the blank page.
class PreviewPaintBox : public QWidget {
  public:
    PreviewPaintBox(WindowServices& services, std::vector<std::string> selection, QDialog* window)
        : QWidget(window), services_(services), selection_(std::move(selection)), window_(window) {
        setObjectName(QStringLiteral("PrevWin"));
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        const ScreenBox box{width(), height(), static_cast<double>(logicalDpiX()),
                            static_cast<double>(logicalDpiY())};
        if (failed_) {
            painter.fillRect(rect(), Qt::white);
            painter.setPen(Qt::black);
            painter.drawRect(0, 0, box.width - 1, box.height - 1);
            return;
        }
        try {
            PaintPreview(painter, box, services_.context, selection_, services_.messages);
            window_->setWindowTitle(
                QString::fromLatin1(PreviewCaption(services_.context.PlotKind)));
        } catch (const std::exception& error) {
            failed_ = true;
            // Not from inside a paint event: a message box would paint over it.
            const std::string text = error.what();
            QTimer::singleShot(0, this, [this, text] {
                services_.messages.ShowError(text);
                update();
            });
        }
    }

  private:
    WindowServices& services_;
    std::vector<std::string> selection_;
    QDialog* window_;
    bool failed_ = false;
};

TPreviewWin::TPreviewWin(WindowServices& services, std::vector<std::string> selection,
                         QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("PreviewWin"));
    setWindowTitle(QStringLiteral("Zantor Preview"));
    setMinimumSize(269, 380);

    PrevWin = new PreviewPaintBox(services, std::move(selection), this);
    Panel2 = new QWidget(this);
    Panel2->setObjectName(QStringLiteral("Panel2"));
    btnClose = new QPushButton(QStringLiteral("&Close"), Panel2);
    btnClose->setObjectName(QStringLiteral("btnClose"));
    auto* panelLayout = new QHBoxLayout(Panel2);
    panelLayout->setContentsMargins(4, 4, 4, 4);
    panelLayout->addWidget(btnClose);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(PrevWin, 1);
    layout->addWidget(Panel2);

    connect(btnClose, &QPushButton::clicked, this, &QDialog::accept);
    auto* f1 = new QShortcut(QKeySequence::HelpContents, this);
    connect(f1, &QShortcut::activated, this, [this] { ShowHelp(this, kHelpPreview); });
    // A portrait page of the screen's height.
    resize(PreviewWidthForHeight(560), 560);
}

QWidget* TPreviewWin::PaintBox() const {
    return PrevWin;
}

void TPreviewWin::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    // The user sizes the window by its height; the width follows.
    const int wanted = std::max(minimumWidth(), PreviewWidthForHeight(event->size().height()));
    if (event->size().width() != wanted) {
        resize(wanted, event->size().height());
    }
}

}  // namespace zantor

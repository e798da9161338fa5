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
#include "ui/job_paint_box.h"

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

// The paint box: the job drawn on the screen each time the box is painted; the window's title
// names the page kind once it has been drawn.
class PreviewPaintBox : public JobPaintBox {
  public:
    PreviewPaintBox(WindowServices& services, std::vector<std::string> selection, QDialog* window)
        : JobPaintBox(services, "PrevWin", window),
          selection_(std::move(selection)),
          window_(window) {}

  protected:
    void PaintJob(QPainter& painter, const ScreenBox& box) override {
        PaintPreview(painter, box, Services().context, selection_, Services().messages);
        window_->setWindowTitle(QString::fromLatin1(PreviewCaption(Services().context.PlotKind)));
    }

  private:
    std::vector<std::string> selection_;
    QDialog* window_;
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

#include "ui/job_paint_box.h"

#include <QPainter>
#include <QTimer>
#include <string>

namespace zantor {

JobPaintBox::JobPaintBox(WindowServices& services, const char* name, QWidget* parent)
    : QWidget(parent), services_(services) {
    setObjectName(QString::fromLatin1(name));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void JobPaintBox::TryAgain() {
    failed_ = false;
    update();
}

void JobPaintBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const ScreenBox box{width(), height(), static_cast<double>(logicalDpiX()),
                        static_cast<double>(logicalDpiY())};
    if (failed_) {
        painter.setPen(QPen(Qt::black, 0));
        painter.setBrush(Qt::white);
        painter.drawRect(0, 0, box.width - 1, box.height - 1);
        return;
    }
    try {
        PaintJob(painter, box);
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

}  // namespace zantor

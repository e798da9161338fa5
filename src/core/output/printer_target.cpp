#include "output/printer_target.h"

#include <QCoreApplication>
#include <QPageLayout>
#include <QPrinterInfo>
#include <QRect>

#include "common/errors.h"

namespace zantor {
namespace {

// The print system is reached through the application's platform plugins: without an
// application object there is none (and Qt would end the program).
const std::string& KnownQueue(const std::string& queue) {
    if (QCoreApplication::instance() == nullptr) {
        throw IoError("Printing needs the application to be running: " + queue);
    }
    if (queue.empty() || QPrinterInfo::printerInfo(QString::fromStdString(queue)).isNull()) {
        throw IoError("Printer not found: " + queue);
    }
    return queue;
}

}  // namespace

PrinterTarget::PrinterTarget(const std::string& queue, const QPageSize& paper)
    : queue_(KnownQueue(queue)), printer_(QPrinter::HighResolution) {
    const QString name = QString::fromStdString(queue);
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    printer_.setOutputFormat(QPrinter::NativeFormat);
    printer_.setPrinterName(name);
    if (printer_.printerName() != name) {
        throw IoError("Printer not found: " + queue);
    }
    printer_.setDocName(QString::fromLatin1(kDocumentTitle));
    printer_.setCreator(QString::fromLatin1(kDocumentTitle));
    printer_.setFullPage(false);
    printer_.setPageOrientation(QPageLayout::Portrait);
    // The paper chosen for this printer, else the one it is set up with, not the one of the
    // user's locale.
    const QPageSize chosen = paper.isValid() ? paper : info.defaultPageSize();
    if (chosen.isValid()) {
        printer_.setPageSize(chosen);
    }
}

PrinterTarget::~PrinterTarget() {
    DropUnfinished();
}

PageMetrics PrinterTarget::Page() const {
    const QPageLayout layout = printer_.pageLayout();
    const int dpi = printer_.resolution();
    const QRect sheet = layout.fullRectPixels(dpi);
    const QRect printable = layout.paintRectPixels(dpi);
    const QRectF printableMm = layout.paintRect(QPageLayout::Millimeter);
    PageMetrics metrics;
    metrics.widthMm = printableMm.width();
    metrics.heightMm = printableMm.height();
    metrics.physicalWidth = sheet.width();
    metrics.physicalHeight = sheet.height();
    metrics.physicalOffsetX = printable.left() - sheet.left();
    metrics.physicalOffsetY = printable.top() - sheet.top();
    metrics.pixelsPerInchX = dpi;
    metrics.pixelsPerInchY = dpi;
    return metrics;
}

void PrinterTarget::StartDocument() {
    spool_.Open();
    SetSurface(&spool_);
}

void PrinterTarget::StartPage() {
    spool_.PageBreak();
}

std::vector<std::filesystem::path> PrinterTarget::FinishDocument() {
    if (!page_.Begin(printer_)) {
        throw IoError("Cannot print on printer " + queue_);
    }
    PageCanvas pages;
    pages.SetSurface(page_.Canvas());
    spool_.Replay(pages, [this, &pages] {
        if (!printer_.newPage()) {
            throw IoError("Cannot print on printer " + queue_);
        }
        page_.RenewCanvas();
        pages.SetSurface(page_.Canvas());
    });
    spool_.Close();
    if (!page_.End() || printer_.printerState() == QPrinter::Error) {
        throw IoError("Cannot print on printer " + queue_);
    }
    return {};
}

void PrinterTarget::DropDocument() noexcept {
    spool_.Close();
    if (page_.Active()) {
        printer_.abort();
        page_.End();
    }
}

}  // namespace zantor

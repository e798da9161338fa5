#include "ui/printer_choice.h"

#include <QPageLayout>

#include "output/output_choice.h"
#include "output/printer_target.h"

namespace zantor {
namespace {

PaperSize FilePaper(const QPageSize& size) {
    switch (size.id()) {
        case QPageSize::A3:
            return PaperSize::A3;
        case QPageSize::Letter:
            return PaperSize::Letter;
        case QPageSize::Legal:
            return PaperSize::Legal;
        default:
            return PaperSize::A4;
    }
}

}  // namespace

std::unique_ptr<PageOutput> MakePrinterOutput(const QPrinter& printer, bool separateDocuments) {
    const QPageSize paper = printer.pageLayout().pageSize();
    if (printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty()) {
        OutputRequest request;
        request.file = printer.outputFileName().toStdString();
        request.paper = FilePaper(paper);
        request.separateDocuments = separateDocuments;
        return MakePageOutput(request);
    }
    return std::make_unique<PrinterTarget>(printer.printerName().toStdString(), paper);
}

}  // namespace zantor

#include "output/output_choice.h"

#include <QString>

#include "common/errors.h"
#include "output/page_file_target.h"
#include "output/pdf_target.h"
#include "output/printer_target.h"
#include "output/trace_target.h"

namespace zantor {

std::optional<OutputKind> FileOutputKind(const std::filesystem::path& path) {
    const QString extension = PathText(path.extension()).toLower();
    if (extension == QLatin1String(".pdf")) {
        return OutputKind::Pdf;
    }
    if (extension == QLatin1String(".svg")) {
        return OutputKind::Svg;
    }
    if (extension == QLatin1String(".png")) {
        return OutputKind::Png;
    }
    if (extension == QLatin1String(".trace")) {
        return OutputKind::Trace;
    }
    return std::nullopt;
}

std::unique_ptr<PageOutput> MakePageOutput(const OutputRequest& request) {
    if (!request.printer.empty()) {
        return std::make_unique<PrinterTarget>(request.printer);
    }
    const DocumentFiles documents =
        request.separateDocuments ? DocumentFiles::Numbered : DocumentFiles::Single;
    switch (FileOutputKind(request.file).value_or(OutputKind::Printer)) {
        case OutputKind::Pdf:
            return std::make_unique<PdfTarget>(request.file, request.paper, documents);
        case OutputKind::Svg:
            return std::make_unique<SvgTarget>(request.file, request.paper);
        case OutputKind::Png:
            return std::make_unique<PngTarget>(request.file, request.paper);
        case OutputKind::Trace:
            return std::make_unique<TraceTarget>(request.file, request.paper, documents);
        case OutputKind::Printer:
            break;
    }
    throw IoError("Unknown output file type (use .pdf, .svg, .png or .trace)",
                  request.file.string());
}

}  // namespace zantor

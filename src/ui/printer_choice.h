#pragma once

// The page output of a print run from the printer the user chose in the printer dialog: that
// system printer on the paper chosen for it, or, when the dialog printed to a PDF file, that file.

#include <QPrinter>
#include <memory>

#include "output/page_output.h"

namespace zantor {

// An IoError when the printer is unknown to the print system.
std::unique_ptr<PageOutput> MakePrinterOutput(const QPrinter& printer, bool separateDocuments);

}  // namespace zantor

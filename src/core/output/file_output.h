#pragma once

// What the file targets share: how whole-document files are named, the metrics of a sheet of
// paper with no unprintable border, and paths as Qt takes them.

#include <QPageSize>
#include <QString>
#include <filesystem>

#include "output/page_output.h"
#include "output/paper.h"

namespace zantor {

// How a target whose files are whole documents (PDF, trace) names them.
enum class DocumentFiles : unsigned char {
    Single,    // one document, written to the path itself; a second one is an IoError
    Numbered,  // every document a file of its own: out-1.pdf, out-2.pdf, ...
};

// A sheet of `paper`, portrait, printable to its edges, at `dotsPerInch`.
PageMetrics FilePageMetrics(PaperSize paper, int dotsPerInch);

QPageSize PageSizeOf(PaperSize paper);

// Removes NumberedPath(path, from), NumberedPath(path, from + 1), ... up to the first that does
// not exist: the pages or documents of an earlier, longer job of the same name, which would
// otherwise pass for the new job's. A file that cannot be removed is left.
void RemoveLaterNumberedFiles(const std::filesystem::path& path, int from) noexcept;

// `path` as a QString, whatever the platform's path encoding.
QString PathText(const std::filesystem::path& path);

}  // namespace zantor

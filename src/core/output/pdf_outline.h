#pragma once

// The outline (bookmarks), title and subject of a PDF file: Qt's PDF writer makes no outline, so
// they are added to the finished file.

#include <filesystem>
#include <string>
#include <vector>

namespace zantor {

struct PdfDescription {
    std::string title;
    std::string subject;
    // One name per page, in page order; a page with an empty name gets no outline entry.
    std::vector<std::string> pageNames;
};

// Rewrites the PDF file at `path` in place with an outline entry for every named page (pointing
// at that page) and with the title and subject set. Returns false when that failed, for whatever
// reason (the file could not be read or written, memory ran out, the PDF library gave up); the
// file is then in an unknown state and is to be dropped. The rewrite runs in a child process
// where the platform has one, so that nothing inside the PDF library can end this program.
bool AddPdfOutline(const std::filesystem::path& path, const PdfDescription& description) noexcept;

}  // namespace zantor

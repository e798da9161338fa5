#pragma once

// Where a print job's pages go: the system printer, or PDF, SVG, PNG or trace files. Every target
// works like a printer document (begin, new page, end, abort) and offers one canvas in the
// printer's mapping (0.01 mm device units, y up from the top edge of the printable area), so the
// same page drawing lands on all of them alike.

#include <QPainter>
#include <filesystem>
#include <string>
#include <vector>

#include "output/page_canvas.h"
#include "output/paper.h"
#include "plot/qpainter_canvas.h"

namespace zantor {

// The title of every printer document and file.
inline constexpr const char* kDocumentTitle = "Zantor";

// The page as a printer reports it; the page geometry of a job is computed from these.
struct PageMetrics {
    double widthMm = 0;   // printable width
    double heightMm = 0;  // printable height
    // The whole sheet and the offset of its printable area from the sheet's top-left corner, in
    // device pixels of pixelsPerInchX/Y.
    int physicalWidth = 0;
    int physicalHeight = 0;
    int physicalOffsetX = 0;
    int physicalOffsetY = 0;
    int pixelsPerInchX = 0;
    int pixelsPerInchY = 0;

    friend bool operator==(const PageMetrics&, const PageMetrics&) = default;
};

class PageOutput {
  public:
    // Every target draws in this mapping.
    static constexpr CanvasMapping kMapping = CanvasMapping::Hundredths;

    PageOutput() = default;
    virtual ~PageOutput() = default;
    PageOutput(const PageOutput&) = delete;
    PageOutput& operator=(const PageOutput&) = delete;

    // Starts a document titled "Zantor" and its first page; clears the aborted state. An IoError
    // (naming the printer or the file) when it cannot be started.
    void BeginDocument();
    // Ends the current page and starts the next one.
    void NewPage();
    // Ends the document: the printer gets the job, files are put in place. An IoError naming the
    // file when writing fails; the document is then dropped and files already there are kept.
    void EndDocument();
    // Drops the current document (nothing is printed, no file is written or replaced) and marks
    // the target aborted. Also valid between documents.
    void Abort();

    // Names the current page after what it shows: a decal, a parttype, or an index page's first
    // and last decal. A later name for the same page replaces the earlier one. Targets that keep
    // an outline (PDF) list the named pages in it; the others ignore the names.
    void NamePage(std::string name);
    // The library the documents are printed from (its path), for the title of files that carry
    // one.
    void NameLibrary(std::string path) { library_ = std::move(path); }

    // A document is open.
    bool Printing() const { return printing_; }
    // Abort() was called since the last BeginDocument().
    bool Aborted() const { return aborted_; }

    // The page every document is laid out on.
    virtual PageMetrics Page() const = 0;
    // The canvas of the current page, valid for the target's life. Without an open document it
    // draws nothing.
    PlotCanvas& Canvas() { return canvas_; }
    // The painter of the current page, in the device's own units (the canvas adds the mapping);
    // nullptr without an open document and for targets that do not paint (trace).
    virtual QPainter* Painter() { return nullptr; }

    // Pages begun in the current or last document, and over the target's life.
    int DocumentPages() const { return documentPages_; }
    int JobPages() const { return jobPages_; }
    // Files this target has put in place, in order (none for the printer).
    const std::vector<std::filesystem::path>& WrittenFiles() const { return writtenFiles_; }

  protected:
    // The concrete target's work. StartDocument opens the document and its first page; StartPage
    // ends the page and opens the next; FinishDocument ends the document and returns the files it
    // put in place; DropDocument releases everything of an unfinished document and must not throw.
    // Each of the first three points the canvas at the page's surface through SetSurface.
    virtual void StartDocument() = 0;
    virtual void StartPage() = 0;
    virtual std::vector<std::filesystem::path> FinishDocument() = 0;
    virtual void DropDocument() noexcept = 0;

    void SetSurface(PlotCanvas* surface) { canvas_.SetSurface(surface); }
    // For the destructor of every concrete target: a document still open is dropped.
    void DropUnfinished() noexcept;
    // Numbering over the target's life: 1 for the first document or page.
    int DocumentNumber() const { return documents_; }
    // The names given to the pages of the current document, by page (empty: not named).
    const std::vector<std::string>& PageNames() const { return pageNames_; }
    const std::string& Library() const { return library_; }

  private:
    PageCanvas canvas_;
    bool printing_ = false;
    bool aborted_ = false;
    int documents_ = 0;
    int documentPages_ = 0;
    int jobPages_ = 0;
    std::vector<std::filesystem::path> writtenFiles_;
    std::vector<std::string> pageNames_;
    std::string library_;
};

// The printable area and unprintable offsets of `page` in millimetres, as the page geometry of a
// job takes them.
PaperArea PaperAreaOf(const PageMetrics& page);

// `path` with "-n" put before its extension: out.pdf -> out-3.pdf.
std::filesystem::path NumberedPath(const std::filesystem::path& path, int n);

}  // namespace zantor

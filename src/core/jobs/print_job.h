#pragma once

// The print job: the selected decals of the input file drawn one to a page (decal kind) or many
// to a page in the cells of index pages (index kind), on the printer (an output target, with its
// documents and pages), on the preview window's paint box or in the selection dialog's view box.
//
//     PrintJob job(context, target, messages);       // the page geometry of the target's paper
//     PrintSummary done = job.PrintDecals(names, &progress);
//
// The job holds what lasts for one run: the page geometry, the plot frame on the surface, the
// number of attributes a decal page lists, the unknown piece keywords reported so far and, for
// the index kind, the index run with its cells and pages.

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "common/user_messages.h"
#include "jobs/decal_placement.h"
#include "jobs/plot_context.h"
#include "jobs/print_progress.h"
#include "jobs/screen_geometry.h"
#include "library/decal.h"
#include "library/decal_record.h"
#include "output/page_output.h"
#include "plot/pieces.h"
#include "plot/plot_frame.h"

namespace zantor {

class IndexRun;

struct PrintSummary {
    int printed = 0;                    // decals drawn
    std::vector<std::string> notFound;  // selected names not found in the file, in order
    bool aborted = false;               // the target was aborted before the run ended
};

class PrintJob {
  public:
    // A run on the printer `target`: the page geometry comes from the target's page and the
    // margins of the settings. Sets the context's OutputTarget to the printer.
    PrintJob(PlotContext& context, PageOutput& target, UserMessages& messages);
    // A run on a screen surface (PlotSurface::PreviewWindow or PlotSurface::ViewBox) drawn on
    // `canvas`, whose device units are the pixels of `box`. Sets the context's OutputTarget.
    PrintJob(PlotContext& context, PlotSurface surface, PlotCanvas& canvas, const ScreenBox& box,
             UserMessages& messages);
    ~PrintJob();
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;

    // The driver. For the parttype kind it runs the parttype run (ParttypeRun) over the selected
    // parttypes: the preview window shows the first parttype page, the view box stays empty.
    // For the decal and index kinds it opens the settings' Inputfile, looks for each selected
    // name in order and draws every decal found. A name not found prints nothing and does not
    // count. On the
    // printer every decal found gets a page (decal kind) or the next cell (index kind); no page
    // is begun that stays empty, and with SeperatePages every decal page is a document of its
    // own. The run stops before the next name once the target is aborted. The preview window
    // shows the first decal page or the first index page, the view box the first name's decal.
    // `progress` (printer runs only) hears of every name and every decal drawn, and of the end.
    // An error of the file or a decal ends the run with its exception; the printer document
    // then is dropped.
    PrintSummary PrintDecals(std::span<const std::string> selection,
                             PrintProgress* progress = nullptr);

    // The steps of PrintDecals, for a caller that finds the decals itself: StartPrint for a
    // selection of `selectedCount` names from a PCB file or a library, PlotDecal for every
    // decal found, in order (a record is parsed once, ParseDecal), EndPrint at the end.
    void StartPrint(std::size_t selectedCount, bool pcbInput);
    void PlotDecal(const DecalRecord& record);
    void PlotDecal(const Decal& decal);
    void EndPrint();

    // The drawing area of the pages (or of the box) in millimetres (pixels in the view box).
    const PageGeometry& Page() const { return page_; }
    // The number of decals one index page holds (index kind, after StartPrint).
    int DecalsPerPage() const;

    // The plot date printed on the pages.
    std::string PlotDate;

  private:
    // The parttype kind: the parttype run on the printer or the preview window's first page;
    // the view box shows nothing.
    PrintSummary PrintParttypes(std::span<const std::string> selection, PrintProgress* progress);
    void PlotDecalPage(const Decal& decal, const DecalExtents& extents);
    void PlotInViewBox(const Decal& decal, const DecalExtents& extents);
    void PlotIndexCell(const Decal& decal, const DecalExtents& extents);
    // The printer's document is open and its current page is free for the next page's drawing.
    void OpenPageForDecal();
    bool Printer() const { return target_ != nullptr; }

    PlotContext& context_;
    PageOutput* target_ = nullptr;  // printer runs only
    PlotSurface surface_;
    PaperArea paper_;  // the printer's and the preview's
    PageGeometry page_;
    PlotFrame frame_;
    int attributeLines_ = 0;
    UnknownPieceReports pieceReports_;
    std::unique_ptr<IndexRun> indexRun_;
    std::size_t selectedCount_ = 0;
    int printed_ = 0;
    bool pcbInput_ = false;
    bool pageHasDecal_ = false;   // the printer's current page holds a decal page already
    bool indexPageDone_ = false;  // the current index page is framed: the next cell needs a page
    std::string indexPageFirst_;  // the first decal on the current index page
};

}  // namespace zantor

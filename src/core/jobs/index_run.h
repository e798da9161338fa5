#pragma once

// An index run: the selected decals many to a page, in columns of cells filled from the top,
// column by column, each page framed with its number when it is complete. The print driver
// makes one run per job and hands it every decal it finds, in order; the run fits the decal into
// the next cell, draws it, and says when the driver is to start a new page.

#include <cstddef>
#include <string>

#include "font/stroke_font.h"
#include "jobs/index_layout.h"
#include "library/decal.h"
#include "plot/extents.h"
#include "plot/pieces.h"
#include "plot/plot_frame.h"

namespace zantor {

struct IndexRunInputs {
    IndexPageArea area;
    std::size_t selectedCount = 0;  // the decals selected, found or not
    std::string inputPath;          // the Inputfile setting: the library name
    bool pcbInput = false;          // a PCB ASCII file: "PCB:" instead of "LIBRARY:"
    std::string date;               // the plot date as printed (TodayShortDate)
};

// What became of one decal.
struct IndexStep {
    double scale = 1;         // the decal was drawn at
    bool pageFramed = false;  // it completed its page, which now has its frame
    bool newPage = false;     // and the next page is to be started (the printer's new page)
};

class IndexRun {
  public:
    // Lays out the pages (a RangeError as IndexLayoutOf gives it) and starts at the first cell of
    // page 1. The frame's surface and device mapping are the driver's; the run sets its scale,
    // unit factor, origins and page height for every cell.
    IndexRun(PlotFrame& frame, const StrokeFont& font, IndexRunInputs inputs);

    // Draws `decal` (its ExtentsOf given, library units; the pin numbers are fitted here) in the
    // next cell and moves on; unknown piece kinds are reported through `reports`, the job's. The
    // last selected decal completes its page, so the last page is framed too.
    IndexStep AddDecal(const Decal& decal, const DecalExtents& extents,
                       UnknownPieceReports& reports);

    // Frames the current page when it was begun but never completed, as when selected names
    // were not found and the last decal drawn was not the last selected. Returns whether it
    // drew a frame.
    bool Finish();

    const IndexLayout& Layout() const { return layout_; }
    int PageNumber() const { return pageNumber_; }
    int Row() const { return row_; }
    int Column() const { return column_; }
    std::size_t Printed() const { return printed_; }
    // The left edge of the drawing area of the current page.
    double PageLeft() const { return left_; }

  private:
    void StartPageAt();
    void CompletePage(IndexStep& step);

    PlotFrame& frame_;
    const StrokeFont& font_;
    IndexRunInputs inputs_;
    IndexLayout layout_;
    int pageNumber_ = 1;
    int cellsOnPage_ = 0;  // drawn on the current page
    int row_ = 1;
    int column_ = 1;
    std::size_t printed_ = 0;
    double left_ = 0;
    bool pageBegun_ = true;  // the current page exists on the target
};

}  // namespace zantor

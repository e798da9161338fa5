#pragma once

// A parttype run: every selected parttype of a parttype library or of a PCB file on pages of its
// own, framed as parttype pages and numbered "n   OF  m" over the whole run. A parttype whose pin
// table does not fit its first page goes on over further pages.
//
// The run reads the input file's parttypes twice: once to count the pages and gather the decal
// names, once to draw. The decals come from the PCB file's own decals, or for a parttype
// library from the decal library list, each file read once per run.

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "common/user_messages.h"
#include "jobs/index_layout.h"
#include "jobs/plot_context.h"
#include "jobs/print_progress.h"
#include "output/page_output.h"
#include "plot/plot_frame.h"

namespace zantor {

struct ParttypeRunInputs {
    IndexPageArea area;          // the pages' drawing area; even pages' left with MirrorMargin
    std::string inputPath;       // the Inputfile setting
    std::string date;            // the plot date as printed
    bool firstPageOnly = false;  // the preview window shows the first page only
};

struct ParttypeRunSummary {
    int printed = 0;                    // parttypes drawn
    int pages = 0;                      // pages drawn
    std::vector<std::string> notFound;  // selected names not in the file, in order
};

class ParttypeRun {
  public:
    // `target` is the printer (nullptr on the preview window, which gets the first page).
    ParttypeRun(PlotContext& context, PlotFrame& frame, PageOutput* target,
                ParttypeRunInputs inputs, UserMessages& messages);

    // Prints the parttypes of `selection` in its order. Stops before the next parttype once the
    // target is aborted; every parttype with SeperatePages is a document of its own. Errors of
    // the file end the run with their exception.
    ParttypeRunSummary Print(std::span<const std::string> selection, PrintProgress* progress);

  private:
    void OpenPage();
    void PositionPage(int pageNumber);

    PlotContext& context_;
    PlotFrame& frame_;
    PageOutput* target_;
    ParttypeRunInputs inputs_;
    UserMessages& messages_;
    bool pageHasContent_ = false;
};

}  // namespace zantor

#include "jobs/print_job.h"

#include <algorithm>

#include "jobs/decal_source.h"
#include "jobs/index_layout.h"
#include "jobs/index_run.h"
#include "jobs/parttype_run.h"
#include "plot/decal_attributes.h"
#include "plot/decal_body.h"
#include "plot/decal_page.h"
#include "plot/title_block.h"

namespace zantor {
namespace {

// The decal alone, fitted into the view box: no frame, no title block.
void DrawDecalAlone(PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                    UnknownPieceReports& reports) {
    const PlotSettings& settings = frame.Settings();
    if (settings.PlotOrigins && settings.OriginSize > 0.01) {
        DrawOriginMarker(frame);
    }
    DecalBodyPage page;
    page.texts.commentFont = settings.FormularFont;
    DrawDecalBody(frame, decal, font, reports, page);
}

// The page geometry of a screen surface: the view box's own, the preview's laid out as paper.
PageGeometry ScreenPage(PlotSurface surface, const PaperArea& paper, const ScreenBox& box,
                        const PlotSettings& settings) {
    return surface == PlotSurface::ViewBox ? ViewBoxGeometry(box)
                                           : PageGeometryOf(paper, MarginsOf(settings));
}

}  // namespace

PrintJob::PrintJob(PlotContext& context, PageOutput& target, UserMessages& messages)
    : PlotDate(TodayShortDate()),
      context_(context),
      target_(&target),
      surface_(PlotSurface::Printer),
      paper_(PaperAreaOf(target.Page())),
      page_(PageGeometryOf(paper_, MarginsOf(context.PlotSettings))),
      frame_(target.Canvas(), DeviceMappingOf(surface_, page_), context.PlotSettings, messages) {
    context_.OutputTarget = PlotSurface::Printer;
}

PrintJob::PrintJob(PlotContext& context, PlotSurface surface, PlotCanvas& canvas,
                   const ScreenBox& box, UserMessages& messages)
    : PlotDate(TodayShortDate()),
      context_(context),
      surface_(surface == PlotSurface::Printer ? PlotSurface::PreviewWindow : surface),
      paper_(surface_ == PlotSurface::ViewBox ? PaperArea{} : PreviewPaper(box)),
      page_(ScreenPage(surface_, paper_, box, context.PlotSettings)),
      frame_(canvas, DeviceMappingOf(surface_, page_, box), context.PlotSettings, messages) {
    context_.OutputTarget = surface_;
}

PrintJob::~PrintJob() = default;

int PrintJob::DecalsPerPage() const {
    return indexRun_ ? indexRun_->Layout().decalsPerPage : 1;
}

void PrintJob::StartPrint(std::size_t selectedCount, bool pcbInput) {
    selectedCount_ = selectedCount;
    pcbInput_ = pcbInput;
    printed_ = 0;
    pageHasDecal_ = false;
    indexPageDone_ = false;
    attributeLines_ = ListedAttributeCount(context_.PlotSettings.PrintAttr, context_.AttributeList);
    indexRun_.reset();
    if (surface_ != PlotSurface::ViewBox) {
        CheckPageRoom(page_, context_.PlotSettings);
    }
    if (context_.PlotKind == PlotKind::Index && surface_ != PlotSurface::ViewBox) {
        IndexRunInputs inputs;
        inputs.area = IndexPageAreaOf(paper_, context_.PlotSettings);
        inputs.selectedCount = selectedCount;
        inputs.inputPath = context_.PlotSettings.Inputfile;
        inputs.pcbInput = pcbInput;
        inputs.date = PlotDate;
        indexRun_ = std::make_unique<IndexRun>(frame_, context_.StrokeFont, std::move(inputs));
    }
}

void PrintJob::PlotDecal(const DecalRecord& record) {
    PlotDecal(ParseDecal(record));
}

void PrintJob::PlotDecal(const Decal& decal) {
    const DecalExtents extents = ExtentsOf(decal, context_.StrokeFont);
    // A pad stack that does not read fails the decal before anything of it is drawn.
    RaiseIfAny(decal.stackFault);
    if (surface_ == PlotSurface::ViewBox) {
        PlotInViewBox(decal, extents);
    } else if (context_.PlotKind == PlotKind::Index) {
        PlotIndexCell(decal, extents);
    } else {
        PlotDecalPage(decal, extents);
    }
    ++printed_;
}

void PrintJob::OpenPageForDecal() {
    if (!target_->Printing()) {
        target_->NameLibrary(context_.PlotSettings.Inputfile);
        target_->BeginDocument();
        pageHasDecal_ = false;
    } else if (pageHasDecal_) {
        target_->NewPage();
    }
    pageHasDecal_ = true;
}

void PrintJob::PlotDecalPage(const Decal& decal, const DecalExtents& extents) {
    const PlotSettings& settings = context_.PlotSettings;
    const DecalArea area{page_.usableWidth, page_.usableHeight, settings.XBorder, settings.YBorder,
                         attributeLines_};
    const DecalFit fit =
        FitWithPinNumbers(frame_, decal, context_.StrokeFont, extents, [&](const DecalExtents& e) {
            return PlaceDecal(area, e, decal.unitFactor, settings.MaxScale);
        }).placement;
    if (Printer()) {
        OpenPageForDecal();
        target_->NamePage(decal.name);
    }
    frame_.Place(PlacementOnPage(page_, fit, decal.unitFactor));
    DecalPageInputs inputs{.decal = decal,
                           .font = context_.StrokeFont,
                           .attributes = context_.AttributeList,
                           .extents = extents,
                           .width = page_.usableWidth,
                           .height = page_.usableHeight,
                           .inputPath = settings.Inputfile,
                           .inputKind = InputKind{true, decal.header.pcbFile},
                           .date = PlotDate,
                           .pieceReports = &pieceReports_};
    DrawDecalPage(frame_, inputs);
    if (Printer() && settings.SeperatePages) {
        target_->EndDocument();
    }
}

void PrintJob::PlotInViewBox(const Decal& decal, const DecalExtents& extents) {
    const PlotSettings& settings = context_.PlotSettings;
    const auto fit = [&](auto place) {
        return FitWithPinNumbers(frame_, decal, context_.StrokeFont, extents, place).placement;
    };
    DecalFit placement = fit([&](const DecalExtents& e) {
        return PlaceDecalInBox(page_.usableWidth, page_.usableHeight, e, decal.unitFactor,
                               settings.MaxScale);
    });
    // The index job shows a decal at the scale it fills the box with, as its cells do.
    if (context_.PlotKind == PlotKind::Index) {
        const DecalBox box{page_.usableWidth / 2, page_.usableHeight / 2, page_.usableWidth,
                           page_.usableHeight};
        const CellPlacement cell = fit([&](const DecalExtents& e) {
            return PlaceInBox(box, e, decal.unitFactor, settings, true);
        });
        placement.scale = cell.scale;
        placement.originX = cell.originX;
        placement.originY = cell.originY;
    }
    frame_.Place(PlacementOnPage(page_, placement, decal.unitFactor));
    DrawDecalAlone(frame_, decal, context_.StrokeFont, pieceReports_);
}

void PrintJob::PlotIndexCell(const Decal& decal, const DecalExtents& extents) {
    if (Printer()) {
        if (!target_->Printing()) {
            target_->NameLibrary(context_.PlotSettings.Inputfile);
            target_->BeginDocument();
            indexPageFirst_ = decal.name;
        } else if (indexPageDone_) {
            target_->NewPage();
            indexPageFirst_ = decal.name;
        }
        // An index page is named after its first and last decal so far.
        target_->NamePage(indexPageFirst_ == decal.name ? decal.name
                                                        : indexPageFirst_ + " - " + decal.name);
    }
    indexPageDone_ = indexRun_->AddDecal(decal, extents, pieceReports_).pageFramed;
}

void PrintJob::EndPrint() {
    // A page with cells that the last decal found did not complete still gets its frame.
    if (indexRun_ && (indexRun_->Row() > 1 || indexRun_->Column() > 1)) {
        indexRun_->Finish();
    }
    if (Printer() && target_->Printing()) {
        target_->EndDocument();
    }
}

PrintSummary PrintJob::PrintParttypes(std::span<const std::string> selection,
                                      PrintProgress* progress) {
    PrintSummary summary;
    // The view box has nothing to show for a parttype: it stays grey.
    if (surface_ == PlotSurface::ViewBox) {
        return summary;
    }
    if (progress != nullptr) {
        progress->Started(static_cast<int>(selection.size()));
    }
    ParttypeRunInputs inputs;
    inputs.area = IndexPageAreaOf(paper_, context_.PlotSettings);
    inputs.inputPath = context_.PlotSettings.Inputfile;
    inputs.date = PlotDate;
    inputs.firstPageOnly = surface_ == PlotSurface::PreviewWindow;
    try {
        ParttypeRun run(context_, frame_, target_, std::move(inputs), frame_.Messages());
        ParttypeRunSummary done = run.Print(selection, progress);
        summary.printed = done.printed;
        summary.notFound = std::move(done.notFound);
    } catch (...) {
        if (Printer()) {
            target_->Abort();
        }
        throw;
    }
    summary.aborted = Printer() && target_->Aborted();
    if (progress != nullptr) {
        progress->Finished(kPrintingCompleted);
    }
    return summary;
}

PrintSummary PrintJob::PrintDecals(std::span<const std::string> selection,
                                   PrintProgress* progress) {
    if (!Printer()) {
        progress = nullptr;
    }
    if (context_.PlotKind == PlotKind::Parttype) {
        return PrintParttypes(selection, progress);
    }
    PrintSummary summary;
    const int total = static_cast<int>(selection.size());
    if (progress != nullptr) {
        progress->Started(total);
    }
    try {
        DecalSource source(context_.PlotSettings.Inputfile, selection);
        StartPrint(selection.size(), source.Header().pcbFile);
        DecalRecord record;
        bool done = selection.empty();
        for (std::size_t item = 0; item < selection.size() && !done; ++item) {
            if (Printer() && target_->Aborted()) {
                break;
            }
            const std::string name = WantedDecalName(selection[item]);
            if (progress != nullptr) {
                progress->Looking(name);
            }
            if (source.Read(name, record)) {
                PlotDecal(record);
            } else {
                summary.notFound.push_back(name);
            }
            if (surface_ == PlotSurface::ViewBox ||
                (surface_ == PlotSurface::PreviewWindow &&
                 (context_.PlotKind != PlotKind::Index || printed_ >= DecalsPerPage()))) {
                done = true;
            }
            if (progress != nullptr) {
                progress->Position(printed_);
            }
            done = done || printed_ >= total;
        }
        if (!(Printer() && target_->Aborted())) {
            EndPrint();
        }
    } catch (...) {
        if (Printer()) {
            target_->Abort();
        }
        throw;
    }
    summary.printed = printed_;
    summary.aborted = Printer() && target_->Aborted();
    if (progress != nullptr) {
        progress->Finished(kPrintingCompleted);
    }
    return summary;
}

}  // namespace zantor

#include "jobs/parttype_run.h"

#include <set>
#include <unordered_map>

#include "jobs/decal_source.h"
#include "jobs/parttype_decals.h"
#include "library/parttype.h"
#include "plot/index_frame.h"
#include "plot/parttype_page.h"

namespace zantor {
namespace {

// A selected parttype found in the file, with the pages it takes.
struct PlannedParttype {
    std::string name;
    ParttypePosition position;
    std::size_t pages = 1;
};

}  // namespace

ParttypeRun::ParttypeRun(PlotContext& context, PlotFrame& frame, PageOutput* target,
                         ParttypeRunInputs inputs, UserMessages& messages)
    : context_(context),
      frame_(frame),
      target_(target),
      inputs_(std::move(inputs)),
      messages_(messages) {}

void ParttypeRun::OpenPage() {
    if (target_ == nullptr) {
        return;
    }
    if (!target_->Printing()) {
        target_->NameLibrary(inputs_.inputPath);
        target_->BeginDocument();
        pageHasContent_ = false;
    } else if (pageHasContent_) {
        target_->NewPage();
    }
    pageHasContent_ = true;
}

// Even pages bind on the right with MirrorMargin, so their left edge comes from the right margin.
void ParttypeRun::PositionPage(int pageNumber) {
    const PageGeometry& page = inputs_.area.page;
    const bool mirrored = context_.PlotSettings.MirrorMargin && pageNumber % 2 == 0;
    frame_.Place(FrameAt({mirrored ? inputs_.area.mirroredLeft : page.left, page.bottom}));
}

ParttypeRunSummary ParttypeRun::Print(std::span<const std::string> selection,
                                      PrintProgress* progress) {
    const PlotSettings& settings = context_.PlotSettings;
    const PageGeometry& page = inputs_.area.page;
    const ParttypePageStyle style =
        ParttypePageStyleOf(settings, context_.ParttypeTextSizes.PTNameSize,
                            context_.ParttypeTextSizes.PTAttrSize, context_.AttributeList);
    const double band = IndexCommentBand(settings);
    ParttypeRunSummary summary;

    // First pass: where each selected parttype stands, its pages and the decals it shows.
    ParttypeReader reader(inputs_.inputPath);
    const bool pcbInput = reader.Header().pcbFile;
    const auto positions = reader.LocateAll();
    std::vector<PlannedParttype> plan;
    std::set<std::string> wantedDecals;
    std::size_t totalPages = 0;
    Parttype parttype;
    for (const std::string& selected : selection) {
        const std::string name = WantedDecalName(selected);
        const auto at = positions.find(name);
        if (at == positions.end()) {
            summary.notFound.push_back(name);
            continue;
        }
        reader.SeekTo(at->second);
        reader.Next(parttype);
        const ParttypePageLayout layout =
            LayOutParttype(parttype, style, page.usableWidth, page.usableHeight, band);
        plan.push_back({name, at->second, layout.pages});
        totalPages += layout.pages;
        for (std::size_t i = 0; i < layout.decalCells.size(); ++i) {
            wantedDecals.insert(std::string(CutTo(parttype.decals[i], kMaxDecalNameLength)));
        }
    }

    DecalShelf decals;
    UnknownPieceReports pieceReports;
    if (!wantedDecals.empty()) {
        std::vector<std::filesystem::path> files;
        if (pcbInput) {
            files.emplace_back(inputs_.inputPath);
        } else {
            files.assign(context_.DecalLibList.begin(), context_.DecalLibList.end());
        }
        decals.Fill(files, wantedDecals, messages_);
    }

    // Second pass: the pages.
    int pageNumber = 0;
    for (const PlannedParttype& planned : plan) {
        if (target_ != nullptr && target_->Aborted()) {
            break;
        }
        if (progress != nullptr) {
            progress->Looking(planned.name);
        }
        reader.SeekTo(planned.position);
        reader.Next(parttype);
        const ParttypePageLayout layout =
            LayOutParttype(parttype, style, page.usableWidth, page.usableHeight, band);
        std::vector<bool> found;
        for (std::size_t i = 0; i < layout.decalCells.size(); ++i) {
            found.push_back(decals.Find(std::string(
                                CutTo(parttype.decals[i], kMaxDecalNameLength))) != nullptr);
        }
        for (std::size_t k = 0; k < layout.pages; ++k) {
            ++pageNumber;
            OpenPage();
            if (target_ != nullptr) {
                target_->NamePage(k == 0 ? planned.name
                                         : planned.name + " (" + std::to_string(k + 1) + ")");
            }
            PositionPage(pageNumber);
            IndexFrameInputs frameInputs;
            frameInputs.width = page.usableWidth;
            frameInputs.height = page.usableHeight;
            frameInputs.inputPath = inputs_.inputPath;
            frameInputs.pcbInput = pcbInput;
            frameInputs.date = inputs_.date;
            frameInputs.pageNumber = pageNumber;
            frameInputs.pageCount = static_cast<int>(totalPages);
            DrawParttypeFrame(frame_, frameInputs);
            DrawParttypePage(frame_, parttype, style, layout, k, found, pcbInput);
            if (k == 0) {
                for (std::size_t i = 0; i < layout.decalCells.size(); ++i) {
                    const Decal* decal =
                        decals.Find(std::string(CutTo(parttype.decals[i], kMaxDecalNameLength)));
                    if (decal != nullptr) {
                        DrawDecalInCell(frame_, *decal, context_.StrokeFont, layout.decalCells[i],
                                        pieceReports);
                    }
                }
            }
            ++summary.pages;
            if (inputs_.firstPageOnly) {
                break;
            }
        }
        ++summary.printed;
        if (progress != nullptr) {
            progress->Position(summary.printed);
        }
        if (inputs_.firstPageOnly) {
            break;
        }
        if (target_ != nullptr && settings.SeperatePages && target_->Printing()) {
            target_->EndDocument();
        }
    }
    if (target_ != nullptr && target_->Printing() && !target_->Aborted()) {
        target_->EndDocument();
    }
    return summary;
}

}  // namespace zantor

#pragma once

// The PCB decals of a parttype run: found once per run in the files that hold them, and drawn
// fitted into the decal cells of parttype pages.

#include <filesystem>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "common/user_messages.h"
#include "font/stroke_font.h"
#include "library/decal.h"
#include "plot/parttype_page.h"
#include "plot/pieces.h"
#include "plot/plot_frame.h"

namespace zantor {

// The decals the parttypes of a run name, read from their files. Each file is read once, from
// start to end; the first file in order that holds a name gives its decal.
class DecalShelf {
  public:
    // Reads `files` in order and keeps the decals of the `wanted` names, each parsed once. A file
    // that cannot be opened or is not a decal source is reported through `messages` and passed
    // over, so that one stale entry of a library list does not stop the run; errors inside a decal
    // library end the run.
    void Fill(const std::vector<std::filesystem::path>& files, const std::set<std::string>& wanted,
              UserMessages& messages);

    // The decal of `name`, or nullptr when no file holds it.
    const Decal* Find(const std::string& name) const;

  private:
    std::unordered_map<std::string, Decal> decals_;
};

// Draws `decal` fitted into `cell` (page millimetres from the frame's bottom-left corner) as an
// index cell draws its decal: as large as fits in most of the cell, at most MaxScale, whole
// scales with PrintScale; origin marker, pieces, terminals with their pin numbers, texts. The
// frame's second origin and page height must be those of the page.
// Unknown piece kinds of newer files are reported once per `reports`, which the run keeps.
void DrawDecalInCell(PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                     const PageBox& cell, UnknownPieceReports& reports);

}  // namespace zantor

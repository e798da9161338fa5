#pragma once

// The text items of a decal: ordinary texts drawn with the stroke font, "$ " lines kept for the
// title block, and "@@" comment lines listed on a decal page.

#include <cstdint>
#include <string>

#include "font/stroke_font.h"
#include "library/decal.h"
#include "plot/extents.h"
#include "plot/plot_frame.h"

namespace zantor {

// What the page around the decal tells the text items.
struct TextItemsPage {
    bool decalRun = false;       // comments are listed on decal pages only
    bool printComments = false;  // the "Print @@-comments" option (PlotSettings::PrintComm)
    double commentTop = 0;       // page mm, set by the decal page frame
    double commentBase = 0;      // comment slots already taken below commentTop
    double rightLimit = 0;       // page mm, the right end of the comment separator
    std::string commentFont;     // system font of the comment lines (the formular font)
};

// What the text items leave for the title block.
struct TextItemsResult {
    std::string nameSlot;    // the first word of the last "$ " or drawn "@@" line, 16 at most
    double labelValue = 0;   // the number after the first word of the last "$ " line
    int largestComment = 0;  // the largest comment number drawn; 0 when none was drawn
};

inline constexpr std::size_t kNameSlotLength = 16;

// Draws the texts of `decal` in file order; a text whose fields do not read throws when it is met.
TextItemsResult DrawTextItems(PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                              const TextItemsPage& page);

// Widens `extents` by every text that DrawTextItems draws with the stroke font, whatever its pen:
// the box of its measured extent (StrokeFont::Extent) from the point its justification places,
// turned by its rotation and running to the left when mirrored. Title values and comments take
// no room on the decal. A text whose header does not read throws here.
void TextExtents(const Decal& decal, const StrokeFont& font, DecalExtents& extents);

}  // namespace zantor

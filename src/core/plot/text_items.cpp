#include "plot/text_items.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "plot/rotation.h"

namespace zantor {
namespace {

std::string NameSlot(std::string_view word) {
    return std::string(word.substr(0, kNameSlotLength));
}

double CommentLineY(const TextItemsPage& page, int n) {
    return page.commentTop - 4 * (page.commentBase + n);
}

// The left end of the baseline of a text whose header places another point of it: the drawn
// width (as the stroke text steps, mirrored texts to the left) and the text height shifted along
// the baseline and up, turned by the rotation.
std::pair<double, double> BaselineStart(const DecalText& header, const StrokeFont& font,
                                        std::string_view text) {
    if ((header.horizontal == 0 && header.vertical == 0) || font.H6() == 0) {
        return {header.x, header.y};
    }
    double advance = 0;
    for (const char c : text.substr(0, 80)) {
        advance += font.Advance16(font.MapChar(static_cast<unsigned char>(c))) + 4;
    }
    double width = advance * (16.0 / font.H6()) * header.size / 30.4;
    if (header.mirror) {
        width = -width;
    }
    const double along = -width * header.horizontal / 2;
    const double up = -header.size * header.vertical / 2;
    const double angle = std::numbers::pi * header.rotation / 180;
    return {header.x + along * std::cos(angle) - up * std::sin(angle),
            header.y + along * std::sin(angle) + up * std::cos(angle)};
}

// The four corners of the text's measured box, on the library plane.
void WidenByText(DecalExtents& extents, const DecalText& header, const StrokeFont& font,
                 std::string_view text) {
    const TextExtent measured = font.Extent(text, header.size);
    const double along = header.mirror ? -measured.width : measured.width;
    const auto [x, y] = BaselineStart(header, font, text);
    for (const double a : {0.0, along}) {
        for (const double up : {0.0, measured.height}) {
            const PlanePoint corner = RotateOffset(a, up, header.rotation);
            extents.Widen(x + corner.x, y + corner.y);
        }
    }
}

}  // namespace

void TextExtents(const Decal& decal, const StrokeFont& font, DecalExtents& extents) {
    for (const DecalText& text : decal.texts) {
        RaiseIfAny(text.fault);
        if (text.kind != TextKind::Drawn) {
            continue;
        }
        // A text of blanks draws nothing, so it holds no room either.
        if (const std::string_view trimmed = text.Trimmed(); !trimmed.empty()) {
            WidenByText(extents, text, font, trimmed);
        }
    }
}

TextItemsResult DrawTextItems(PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                              const TextItemsPage& page) {
    TextItemsResult result;
    for (const DecalText& text : decal.texts) {
        RaiseIfAny(text.fault);
        if (text.kind == TextKind::TitleValue) {
            RaiseIfAny(text.titleValueFault);
            result.nameSlot = NameSlot(text.firstWord);
            result.labelValue = text.titleValue;
            continue;
        }

        if (text.kind == TextKind::Comment) {
            const Colour colour = frame.PenFor(kPenFormText, 0);
            if (!page.decalRun || !page.printComments || colour == kNotPlotted) {
                continue;  // a comment that is not listed is not drawn as text either
            }
            frame.SetColour(colour);
            result.largestComment = std::max(result.largestComment, text.commentNumber);
            result.nameSlot = NameSlot(text.firstWord);
            frame.PageText(text.rest, 3.0, CommentLineY(page, text.commentNumber) + 1, 3.0,
                           page.commentFont);
            continue;
        }

        const Colour colour = frame.PenFor(kPenText, text.layer);
        if (colour == kNotPlotted) {
            continue;
        }
        frame.SetColour(colour);
        const std::string_view trimmed = text.Trimmed();
        const auto [x, y] = BaselineStart(text, font, trimmed);
        frame.StrokeText(font, text.mirror, trimmed, x, y, text.rotation, text.size,
                         text.lineWidth * frame.Placement().unitFactor);
    }

    if (result.largestComment > 0) {
        const Colour colour = frame.PenFor(kPenFormLine, 0);
        if (colour != kNotPlotted) {
            frame.SetColour(colour);
            frame.SetPenWidth(0.25);
            const double y = CommentLineY(page, result.largestComment);
            frame.PageMoveTo(0, y);
            frame.PageLineTo(page.rightLimit, y);
        }
    }
    return result;
}

}  // namespace zantor

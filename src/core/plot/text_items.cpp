#include "plot/text_items.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "library/words.h"
#include "plot/record_fields.h"

namespace zantor {
namespace {

std::string NameSlot(std::string_view word) {
    return std::string(word.substr(0, kNameSlotLength));
}

// The comment number of a layer-30 text ("@@1 ..." to "@@9 ..."), or 0 when the text is not a
// comment line and is drawn as an ordinary text.
int CommentNumber(const TextHeader& header, std::string_view text) {
    if (header.layer != kCommentLayer || text.size() <= 4 || text.substr(0, 2) != "@@") {
        return 0;
    }
    return text[2] >= '1' && text[2] <= '9' ? text[2] - '0' : 0;
}

double CommentLineY(const TextItemsPage& page, int n) {
    return page.commentTop - 4 * (page.commentBase + n);
}

// The left end of the baseline of a text whose header places another point of it: the drawn
// width (as the stroke text steps, mirrored texts to the left) and the text height shifted along
// the baseline and up, turned by the rotation.
std::pair<double, double> BaselineStart(const TextHeader& header, const StrokeFont& font,
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

}  // namespace

TextItemsResult DrawTextItems(PlotFrame& frame, const DecalRecord& record, const StrokeFont& font,
                              const TextItemsPage& page) {
    TextItemsResult result;
    std::size_t at = record.firstText;
    const std::size_t linesPerText = std::max<std::size_t>(record.header.dialect.linesPerText, 2);
    for (int item = 0; item < record.counts.texts && at < record.lines.size();
         ++item, at += linesPerText) {
        const TextHeader header = ReadTextHeader(record, at);
        const std::size_t textLine = TextLineOf(record, at);
        const std::string& text = BodyLine(record, textLine);

        if (text.starts_with("$ ")) {
            FieldReader reader(record, textLine);
            result.nameSlot = NameSlot(reader.Word());
            result.labelValue = reader.Real();
            continue;
        }

        if (const int n = CommentNumber(header, text); n > 0) {
            const Colour colour = frame.PenFor(kPenFormText, 0);
            if (!page.decalRun || !page.printComments || colour == kNotPlotted) {
                continue;  // a comment that is not listed is not drawn as text either
            }
            frame.SetColour(colour);
            result.largestComment = std::max(result.largestComment, n);
            FieldReader reader(record, textLine);
            result.nameSlot = NameSlot(reader.Word());
            frame.PageText(reader.Rest(), 3.0, CommentLineY(page, n) + 1, 3.0, page.commentFont);
            continue;
        }

        const Colour colour = frame.PenFor(kPenText, header.layer);
        if (colour == kNotPlotted) {
            continue;
        }
        frame.SetColour(colour);
        const std::string_view trimmed = TrimBlanks(text);
        const auto [x, y] = BaselineStart(header, font, trimmed);
        frame.StrokeText(font, header.mirror, trimmed, x, y, header.rotation, header.size,
                         header.lineWidth * frame.UnitFactor);
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

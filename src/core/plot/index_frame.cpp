#include "plot/index_frame.h"

#include <algorithm>

#include "common/errors.h"
#include "plot/decal_body.h"
#include "plot/decal_page.h"
#include "plot/fitted_text.h"
#include "plot/title_block.h"

namespace zantor {
namespace {

constexpr double kLabelSize = 2.8;
constexpr double kFooterSize = 1.7;
constexpr double kLibraryNameSize = 5.0;
constexpr double kLineWidth = 0.25;
// The comment stands this high above the frame's bottom, its rule 1 mm above the comment.
constexpr double kCommentBase = 11.5;
// The company name gets a box of this width, centred on this x, and at most this height,
// standing on this line.
constexpr double kCompanyBoxWidth = 60.0;
constexpr double kCompanyCentre = 48.0;
constexpr double kCompanyTextSize = 7.0;
constexpr double kCompanyBaseline = 2.0;
// Texts keep this far from the rules of their fields.
constexpr double kRuleGap = 0.5;

void Rule(PlotFrame& frame, double x1, double y1, double x2, double y2) {
    frame.PageMoveTo(x1, y1);
    frame.PageLineTo(x2, y2);
}

void DrawStripTexts(PlotFrame& frame, const IndexFrameInputs& inputs) {
    const PlotSettings& settings = frame.Settings();
    const std::string& font = settings.FormularFont;
    const double w = inputs.width;
    frame.PageText("COMPANY:", kLabelSize, 7, 2, font);
    frame.PageText(inputs.pcbInput ? "PCB:" : "LIBRARY:", kLabelSize, 7, 86.5, font);
    frame.PageText("PAGE", kLabelSize, 1.5, w - 39, font);
    frame.PageText("PLOTDATE:", kLabelSize, 6.5, w - 39, font);
    frame.PageText("ZANTOR 7.30 Brovik '96-'03", kFooterSize, -2, 0, font);

    if (!settings.GenComment.empty()) {
        const double size = settings.GenComSize;
        const TextField page{kRuleGap, w - kRuleGap};
        switch (settings.GenComAdjust) {
            case 1:
                PageTextInField(frame, settings.GenComment, size, kCommentBase, w / 2, font,
                                TextAlign::Centre, page);
                break;
            case 2:
                PageTextInField(frame, settings.GenComment, size, kCommentBase, w - 3, font,
                                TextAlign::Right, page);
                break;
            default:
                PageTextInField(frame, settings.GenComment, size, kCommentBase, 3, font,
                                TextAlign::Left, page);
                break;
        }
    }

    // The strip's fields: company up to the rule at 85, library name up to the one at W - 40,
    // plot date and page in the two rows right of it.
    PageTextInField(frame, inputs.date, kLabelSize, 6.5, w - 18, font, TextAlign::Left,
                    {AfterLabel("PLOTDATE:", font, kLabelSize, w - 39), w - kRuleGap});
    if (!settings.Company.empty()) {
        const double room = std::min(
            kCompanyBoxWidth, RoomAt({kRuleGap, 85 - kRuleGap}, kCompanyCentre, TextAlign::Centre));
        const double size =
            FittingTextSize(settings.Company, settings.CompanyFont, kCompanyTextSize, room);
        if (size > 0) {
            frame.PageText(settings.Company, size, kCompanyBaseline, kCompanyCentre,
                           settings.CompanyFont, TextAlign::Centre);
        }
    }
    PageTextInField(frame, LibraryNameOf(inputs.inputPath), kLibraryNameSize, 2, 118, font,
                    TextAlign::Centre, {85 + kRuleGap, w - 40 - kRuleGap});
    PageTextInField(frame, IndexPageText(inputs.pageNumber, inputs.pageCount), kLabelSize, 1.5,
                    w - 22, font, TextAlign::Left,
                    {AfterLabel("PAGE", font, kLabelSize, w - 39), w - kRuleGap});
}

void DrawFrameLines(PlotFrame& frame, const IndexFrameInputs& inputs, bool columnRules) {
    const PlotSettings& settings = frame.Settings();
    const double w = inputs.width;
    const double h = inputs.height;
    frame.SetPenWidth(kLineWidth);
    if (!settings.GenComment.empty()) {
        const double y = settings.GenComSize + kCommentBase + 1;
        Rule(frame, 0, y, w, y);
    }
    frame.PageMoveTo(0, 0);
    frame.PageLineTo(w, 0);
    frame.PageLineTo(w, h);
    frame.PageLineTo(0, h);
    frame.PageLineTo(0, 0);
    if (columnRules) {
        const double columnWidth = w / settings.Columns;
        const double bottom = IndexCommentBand(settings) + kIndexStripHeight;
        for (int k = settings.Columns - 1; k >= 1; --k) {
            const double x = w - k * columnWidth;
            Rule(frame, x, bottom, x, h);
        }
    }
    Rule(frame, 0, kIndexStripHeight, w, kIndexStripHeight);
    Rule(frame, 85, 0, 85, kIndexStripHeight);
    Rule(frame, w - 40, 0, w - 40, kIndexStripHeight);
    Rule(frame, w - 40, 5, w, 5);
}

void DrawPageFrame(PlotFrame& frame, const IndexFrameInputs& inputs, bool columnRules) {
    if (columnRules && frame.Settings().Columns < 1) {
        throw RangeError("Columns out of range: " + std::to_string(frame.Settings().Columns));
    }
    if (const Colour text = frame.PenFor(kPenFormText, 0); text != kNotPlotted) {
        frame.SetColour(text);
        DrawStripTexts(frame, inputs);
    }
    if (const Colour line = frame.PenFor(kPenFormLine, 0); line != kNotPlotted) {
        frame.SetColour(line);
        DrawFrameLines(frame, inputs, columnRules);
    }
}

}  // namespace

double IndexCommentBand(const PlotSettings& settings) {
    return settings.GenComment.empty() ? 0.0 : settings.GenComSize + 2.5;
}

std::string IndexPageText(int pageNumber, int pageCount) {
    return std::to_string(pageNumber) + "   OF  " + std::to_string(pageCount);
}

std::string IndexScaleText(double scale) {
    return "(" + ScaleText(scale) + ")";
}

void DrawIndexFrame(PlotFrame& frame, const IndexFrameInputs& inputs) {
    DrawPageFrame(frame, inputs, true);
}

void DrawParttypeFrame(PlotFrame& frame, const IndexFrameInputs& inputs) {
    DrawPageFrame(frame, inputs, false);
}

void DrawIndexCell(PlotFrame& frame, const IndexCellInputs& inputs) {
    const PlotSettings& settings = frame.Settings();
    if (settings.Columns < 1) {
        throw RangeError("Columns out of range: " + std::to_string(settings.Columns));
    }
    const IndexCellPlace& place = inputs.place;
    const double columns = settings.Columns;
    const double bottom = place.height - place.row * place.cellHeight - place.cellMargin;
    const double centre = bottom + place.cellHeight / 2;
    const double anchor = 40 / columns + (place.column - 1) * place.columnWidth;
    const double nameSize = 6 / columns;

    if (const Colour text = frame.PenFor(kPenFormText, 0); text != kNotPlotted) {
        frame.SetColour(text);
        // The name and the scale stand in the part of the cell left of the decal.
        const double columnLeft = (place.column - 1) * place.columnWidth;
        const double decalLeft = std::min(place.decalLeft, place.column * place.columnWidth);
        const TextField field{columnLeft + kRuleGap, decalLeft - kRuleGap};
        const double nameBase = centre - nameSize / 2 + (settings.PrintScale ? 3 / columns : 0);
        PageTextInField(frame, inputs.decal.name, nameSize, nameBase, anchor, settings.FormularFont,
                        TextAlign::Centre, field);
        if (settings.PrintScale) {
            PageTextInField(frame, IndexScaleText(frame.Placement().scale), 5 / columns,
                            centre - nameSize / 2 - 3 / columns, anchor, settings.FormularFont,
                            TextAlign::Centre, field);
        }
    }
    if (settings.PlotOrigins && settings.OriginSize > 0.01) {
        DrawOriginMarker(frame);
    }
    if (settings.PrintSepLines && place.row < settings.PartsEachColumn) {
        if (const Colour line = frame.PenFor(kPenFormLine, 0); line != kNotPlotted) {
            frame.SetColour(line);
            frame.SetPenWidth(kLineWidth);
            Rule(frame, (place.column - 1) * place.columnWidth, bottom,
                 place.column * place.columnWidth, bottom);
        }
    }

    DecalBodyPage page;
    page.texts.commentFont = settings.FormularFont;
    DrawDecalBody(frame, inputs.decal, inputs.font, inputs.pieceReports, page);
}

}  // namespace zantor

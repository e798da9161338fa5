#include "plot/index_frame.h"

#include <algorithm>

#include "common/errors.h"
#include "plot/decal_body.h"
#include "plot/decal_page.h"
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
// A generous average advance of a proportional font, in ems: a long company name is made
// smaller so that it stays inside its box without measuring it on the device.
constexpr double kAverageAdvance = 0.65;

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
        switch (settings.GenComAdjust) {
            case 1:
                frame.PageText(settings.GenComment, size, kCommentBase, w / 2, font,
                               TextAlign::Centre);
                break;
            case 2:
                frame.PageText(settings.GenComment, size, kCommentBase, w - 3, font,
                               TextAlign::Right);
                break;
            default:
                frame.PageText(settings.GenComment, size, kCommentBase, 3, font);
                break;
        }
    }

    frame.PageText(inputs.date, kLabelSize, 6.5, w - 18, font);
    if (!settings.Company.empty()) {
        const double fitting =
            kCompanyBoxWidth / (kAverageAdvance * static_cast<double>(settings.Company.size()));
        frame.PageText(settings.Company, std::min(kCompanyTextSize, fitting), kCompanyBaseline,
                       kCompanyCentre, settings.CompanyFont, TextAlign::Centre);
    }
    frame.PageText(LibraryNameOf(inputs.inputPath), kLibraryNameSize, 2, 118, font,
                   TextAlign::Centre);
    frame.PageText(IndexPageText(inputs.pageNumber, inputs.pageCount), kLabelSize, 1.5, w - 22,
                   font);
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
        const double nameBase = centre - nameSize / 2 + (settings.PrintScale ? 3 / columns : 0);
        frame.PageText(inputs.decal.name, nameSize, nameBase, anchor, settings.FormularFont,
                       TextAlign::Centre);
        if (settings.PrintScale) {
            frame.PageText(IndexScaleText(frame.Scale), 5 / columns,
                           centre - nameSize / 2 - 3 / columns, anchor, settings.FormularFont,
                           TextAlign::Centre);
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

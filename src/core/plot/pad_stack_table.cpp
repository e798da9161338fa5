#include "plot/pad_stack_table.h"

namespace zantor {
namespace {

constexpr double kRulePenWidth = 0.25;

TextAlign AlignOf(CellAlign align) {
    switch (align) {
        case CellAlign::Centre:
            return TextAlign::Centre;
        case CellAlign::Right:
            return TextAlign::Right;
        case CellAlign::Left:
            break;
    }
    return TextAlign::Left;
}

// The table's place on the page: its left edge and its top, rows counted down from the top (the
// title is row 0, the headings row 1, the stacks from row 2 on).
struct TablePlace {
    double left = 0.0;
    double top = 0.0;
    std::string_view fontName;

    double RowTop(int row) const { return top - row * kPadStackTableRowPitch; }
    // The lower edge of a text line centred in its row.
    double TextBase(int row) const {
        return RowTop(row + 1) + (kPadStackTableRowPitch - kPadStackTableTextHeight) / 2;
    }
};

void PrintCells(PlotFrame& frame, const TablePlace& place, int row,
                const std::vector<TableCell>& cells) {
    for (const TableCell& cell : cells) {
        frame.PageText(cell.text, kPadStackTableTextHeight, place.TextBase(row),
                       place.left + cell.x, place.fontName, AlignOf(cell.align));
    }
}

void DrawRules(PlotFrame& frame, const TablePlace& place, double bottom) {
    const double left = place.left;
    const double right = left + kPadStackTableWidth;
    frame.SetPenWidth(kRulePenWidth);
    frame.PageMoveTo(left, bottom);
    frame.PageLineTo(right, bottom);
    frame.PageLineTo(right, place.top);
    frame.PageLineTo(left, place.top);
    frame.PageLineTo(left, bottom);
    const double headingTop = place.RowTop(1);
    for (const double x : kPadStackTableRules) {
        frame.PageMoveTo(left + x, headingTop);
        frame.PageLineTo(left + x, bottom);
    }
    const double underHeadings = place.RowTop(2);
    frame.PageMoveTo(left, underHeadings);
    frame.PageLineTo(right, underHeadings);
}

}  // namespace

void PrintPadStackTable(PlotFrame& frame, const PadStackList& stacks, int lineCount, int placement,
                        double drawingWidth, char stackUnit, const LibraryUnits& units,
                        std::string_view fontName) {
    if (!frame.Settings().PlotPadstack || lineCount <= 0) {
        return;
    }
    const PadStackTable table = PadStackTableContent(stacks, lineCount, stackUnit, units);
    const double height = (table.rowCount + 2) * kPadStackTableRowPitch;

    TablePlace place;
    place.left = drawingWidth / 4 - kPadStackTableWidth / 2;
    if (placement > 1) {
        place.left += drawingWidth / 2;
    }
    place.top = kPadStackTableBottom + height;
    place.fontName = fontName;

    const Colour linePen = frame.PenFor(kPenFormLine, 0);
    if (linePen != kNotPlotted) {
        frame.SetColour(linePen);
        // The title has no column of its own: it stands over the middle of the table.
        frame.PageText(table.title, kPadStackTableTextHeight, place.TextBase(0),
                       place.left + kPadStackTableWidth / 2, fontName, TextAlign::Centre);
        PrintCells(frame, place, 1, table.headings);
    }
    const Colour textPen = frame.PenFor(kPenFormText, 0);
    if (textPen != kNotPlotted) {
        frame.SetColour(textPen);
        int row = 2;
        for (const PadStackTableRow& tableRow : table.rows) {
            PrintCells(frame, place, row++, tableRow.cells);
        }
    }
    if (linePen != kNotPlotted) {
        frame.SetColour(linePen);
        DrawRules(frame, place, kPadStackTableBottom);
    }
}

}  // namespace zantor

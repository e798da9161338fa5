#include "plot/decal_page.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

#include "plot/decal_attributes.h"
#include "plot/decal_body.h"
#include "plot/pad_stack_table.h"
#include "plot/title_block.h"

namespace zantor {
namespace {

constexpr double kMillimetresPerMil = 0.0254;
// The grid leaves the pad-stack table and the 1:1 view below this line alone.
constexpr double kGridBottom = 100.0;
// A grid finer than this many lines across the page is left out rather than drawn as a blot.
constexpr double kMaxGridLines = 4000.0;
// An origin this far from the page (1 km) is placed on the grid by its remainder.
constexpr double kFarOrigin = 1e6;
constexpr double kOriginMarkerWidth = 0.125;
constexpr double kFormLineWidth = 0.25;
constexpr double kListTextSize = 3.0;
constexpr double kListTextX = 3.0;

PenStyle GridPenStyle(int style) {
    switch (style) {
        case 1:
            return PenStyle::Dash;
        case 2:
            return PenStyle::Dot;
        default:
            return PenStyle::Solid;
    }
}

std::string TwoDecimals(double value) {
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::fixed, 2);
    return error == std::errc() ? std::string(buffer.data(), end) : std::string("?");
}

// The positions origin + k * step strictly between low and high: from the origin upwards, then
// downwards, so that a line always runs through the origin when it is inside.
std::vector<double> GridPositions(double origin, double step, double low, double high) {
    std::vector<double> positions;
    if (!std::isfinite(origin) || !std::isfinite(step) || !(step > 0) || !(high > low) ||
        (high - low) / step > kMaxGridLines) {
        return positions;
    }
    // Far off the page origin + k * step no longer moves by whole steps (k itself stops counting
    // near 1e16); a line of the same grid then stands at the origin's remainder, which fmod
    // gives exactly. Every k below is then small, and the loops run at most a few thousand times.
    const bool far = std::abs(origin) > kFarOrigin;
    const double anchor = far ? std::fmod(origin, step) : origin;
    const double first = std::ceil((low - anchor) / step);
    const double last = std::floor((high - anchor) / step);
    // The first k of the upward run: the origin's own, or all of them (or none) when the origin
    // lies below (or above) the area.
    const double split = !far ? 0.0 : (origin < low ? first : last + 1);
    const auto take = [&](double k) {
        const double p = anchor + k * step;
        if (p > low && p < high) {
            positions.push_back(p);
        }
    };
    for (double k = std::max(first, split); k <= last; k += 1) {
        take(k);
    }
    for (double k = std::min(last, split - 1); k >= first; k -= 1) {
        take(k);
    }
    return positions;
}

// Puts back the frame's placement when the 1:1 view is done with it.
class SavedPlacement {
  public:
    explicit SavedPlacement(PlotFrame& frame) : frame_(frame), saved_(frame.Placement()) {}
    ~SavedPlacement() { frame_.Place(saved_); }
    SavedPlacement(const SavedPlacement&) = delete;
    SavedPlacement& operator=(const SavedPlacement&) = delete;

  private:
    PlotFrame& frame_;
    DecalPlacement saved_;
};

void DrawViewBox(PlotFrame& frame, const DecalPageInputs& inputs, UnknownPieceReports& reports) {
    const double x0 = inputs.width - kViewBoxWidth - 3;
    const double y0 = kViewBoxBottom;
    if (const Colour colour = frame.PenFor(kPenFormLine, 0); colour != kNotPlotted) {
        frame.SetColour(colour);
        frame.SetPenWidth(kFormLineWidth);
        frame.PageMoveTo(x0, y0);
        frame.PageLineTo(x0 + kViewBoxWidth, y0);
        frame.PageLineTo(x0 + kViewBoxWidth, y0 + kViewBoxHeight);
        frame.PageLineTo(x0, y0 + kViewBoxHeight);
        frame.PageLineTo(x0, y0);
    }
    const Colour text = frame.PenFor(kPenFormText, 0);
    const std::string& font = frame.Settings().FormularFont;
    if (text != kNotPlotted) {
        frame.SetColour(text);
        frame.PageText("(1 : 1)", 2.0, y0 + kViewBoxHeight - 2.5, x0 + 2, font);
    }
    // At 2 : 1 or less the page itself is nearly life size; a 1:1 copy would not fit the box.
    if (1 / frame.Placement().scale >= 0.5) {
        if (text != kNotPlotted) {
            frame.PageText("(picture too big)", 4.0, y0 + kViewBoxHeight / 2 - 2,
                           x0 + 78.806 / 2 - 10, font);
        }
        return;
    }
    const SavedPlacement saved(frame);
    // Centred with the pin numbers at the size they have at 1 : 1.
    const DecalExtents e = WithPinNumbers(frame, inputs.decal, inputs.font, inputs.extents, 1.0);
    const double cx = e.Empty() ? 0.0 : (e.xmin + e.xmax) / 2;
    const double cy = e.Empty() ? 0.0 : (e.ymin + e.ymax) / 2;
    DecalPlacement lifeSize = frame.Placement();
    lifeSize.scale = 1;
    lifeSize.origin = {x0 + kViewBoxWidth / 2 - cx * lifeSize.unitFactor,
                       y0 + kViewBoxHeight / 2 - cy * lifeSize.unitFactor};
    frame.Place(lifeSize);
    // The page's measurements come from the main picture, and comments are listed once, by it.
    DecalBodyPage page;
    page.texts.commentFont = font;
    DrawDecalBody(frame, inputs.decal, inputs.font, reports, page);
}

// "Name: value" lines at the top of the page, one per checked attribute in list order.
void DrawAttributeLines(PlotFrame& frame, const DecalPageInputs& inputs,
                        const std::vector<DecalAttribute>& values) {
    const Colour colour = frame.PenFor(kPenFormText, 0);
    if (colour == kNotPlotted) {
        return;
    }
    frame.SetColour(colour);
    int line = 0;
    for (const AttributeEntry& entry : inputs.attributes) {
        if (!entry.checked) {
            continue;
        }
        ++line;
        const std::string value = AttributeValue(values, entry.name);
        const std::string text = value.empty() ? entry.name + ":" : entry.name + ": " + value;
        frame.PageText(text, kListTextSize, inputs.height - kListLinePitch * line + 1, kListTextX,
                       frame.Settings().FormularFont);
    }
}

}  // namespace

void DrawGrid(PlotFrame& frame, double width, double height, int attributeLines) {
    const Colour colour = frame.PenFor(kPenOrigin, 0);
    if (colour == kNotPlotted) {
        return;
    }
    const PlotSettings& settings = frame.Settings();
    frame.SetColour(colour);
    frame.SetPenWidth(settings.GridLineWidth);
    frame.SetPenStyle(GridPenStyle(settings.GridLineStyle));

    const bool mils = settings.GridUnit == 1;
    const DecalPlacement& placement = frame.Placement();
    const double step = settings.GridSize * placement.scale * (mils ? kMillimetresPerMil : 1.0);
    const double left = settings.XBorder / 2;
    const double right = width - settings.XBorder / 2;
    const double bottom = settings.YBorder / 2 + kGridBottom;
    const double top = height - settings.YBorder / 2 - kListLinePitch * attributeLines;
    // The decal origin's place on the page, in the frame's page millimetres.
    for (const double y : GridPositions(placement.origin.y, step, bottom, top)) {
        frame.PageMoveTo(left, y);
        frame.PageLineTo(right, y);
    }
    for (const double x : GridPositions(placement.origin.x, step, left, right)) {
        frame.PageMoveTo(x, bottom);
        frame.PageLineTo(x, top);
    }
    if (settings.ShowGridSize) {
        const std::string label =
            "Grid = " + TwoDecimals(settings.GridSize) + (mils ? " mils" : " mm");
        frame.PageText(label, kFormularTextSize, bottom, left, settings.FormularFont);
    }
    frame.SetPenStyle(PenStyle::Solid);
}

void DrawOriginMarker(PlotFrame& frame) {
    const Colour colour = frame.PenFor(kPenOrigin, 0);
    if (colour == kNotPlotted) {
        return;
    }
    const double r =
        frame.Settings().OriginSize / frame.Placement().unitFactor / frame.Placement().scale / 2;
    if (!std::isfinite(r)) {
        return;
    }
    frame.SetColour(colour);
    frame.SetPenWidth(kOriginMarkerWidth);
    frame.Circle(0, 0, r, kOriginMarkerWidth);
    frame.MoveTo(-r, 0);
    frame.LineTo(r, 0);
    frame.MoveTo(0, -r);
    frame.LineTo(0, r);
}

void DrawDecalPage(PlotFrame& frame, const DecalPageInputs& inputs) {
    const PlotSettings& settings = frame.Settings();
    const Decal& decal = inputs.decal;
    const double w = inputs.width;
    const double h = inputs.height;
    const int attributeLines = ListedAttributeCount(settings.PrintAttr, inputs.attributes);
    UnknownPieceReports ownReports;
    UnknownPieceReports& reports = inputs.pieceReports ? *inputs.pieceReports : ownReports;

    TitleBlockInputs title;
    title.decalName = decal.name;
    title.inputPath = inputs.inputPath;
    title.pcbInput = inputs.inputKind.decalSource && inputs.inputKind.parttypeSource;
    title.terminalCount = decal.counts.terminals;
    title.date = inputs.date;
    title.width = w;
    title.height = h;
    DrawTitleBlock(frame, title);

    if (settings.PlotOrigins && settings.OriginSize > 0.01) {
        DrawOriginMarker(frame);
    }
    const bool gridInFront = settings.GridPosition == 1;
    DecalBodyPage page;
    if (settings.ShowGrid && !gridInFront) {
        page.grid = GridBehind{w, h, attributeLines};
    }
    // Comment lines are listed at the top of the page, under the attribute lines.
    page.texts.decalRun = true;
    page.texts.printComments = settings.PrintComm;
    page.texts.commentTop = h;
    page.texts.commentBase = attributeLines;
    page.texts.rightLimit = w;
    page.texts.commentFont = settings.FormularFont;
    const DecalBodyResult body = DrawDecalBody(frame, decal, inputs.font, reports, page);

    if (settings.View1_1) {
        DrawViewBox(frame, inputs, reports);
    }
    if (attributeLines > 0) {
        DrawAttributeLines(frame, inputs, decal.attributes);
    }
    if (settings.ShowGrid && gridInFront) {
        DrawGrid(frame, w, h, attributeLines);
    }
    const LibraryUnits units = LibraryUnitsOf(decal);
    if (settings.PlotPadstack) {
        // In the left half: the right one is the 1:1 view's.
        const PadStackList& stacks = decal.Stacks();
        PrintPadStackTable(frame, stacks, PadStackTableLineCount(stacks), 1, w, settings.StackUnit,
                           units, settings.FormularFont);
    }

    MeasurementInputs measurements;
    measurements.terminal1X = body.marks.terminal1X;
    measurements.terminal1Y = body.marks.terminal1Y;
    measurements.terminal2X = body.marks.terminal2X;
    measurements.terminal2Y = body.marks.terminal2Y;
    measurements.heightValue = body.texts.labelValue;
    measurements.heightAttribute = AttributeValue(decal.attributes, "Geometry.Height");
    measurements.units = units;
    measurements.width = w;
    DrawMeasurements(frame, measurements);
}

}  // namespace zantor

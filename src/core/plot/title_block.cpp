#include "plot/title_block.h"

#include <QDate>
#include <QLocale>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "plot/fitted_text.h"

namespace zantor {
namespace {

constexpr std::size_t kLibraryNameLength = 50;
constexpr double kNameTextSize = 5.0;
constexpr double kFooterTextSize = 1.7;
constexpr double kFormLineWidth = 0.25;
// The company name gets a box of this width and at most this height, standing on this line.
constexpr double kCompanyBoxWidth = 70.0;
constexpr double kCompanyTextSize = 10.0;
constexpr double kCompanyBaseline = 18.5;
// Values keep this far from the rules of their fields.
constexpr double kRuleGap = 0.5;

struct Label {
    const char* text;
    double x;
    double y;
};

// A number as short as it can be written: whole numbers without decimals, others with up to
// three (never the locale's decimal comma).
std::string ShortNumber(double value) {
    const double whole = std::round(value);
    if (std::abs(value - whole) < 1e-6) {
        value = whole;
    }
    std::array<char, 64> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::fixed, 3);
    if (error != std::errc()) {
        return "?";
    }
    std::string text(buffer.data(), end);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

void DrawRules(PlotFrame& frame, double w, double h) {
    const Colour colour = frame.PenFor(kPenFormLine, 0);
    if (colour == kNotPlotted) {
        return;
    }
    frame.SetColour(colour);
    frame.SetPenWidth(kFormLineWidth);
    frame.PageMoveTo(0, 0);
    frame.PageLineTo(w, 0);
    frame.PageLineTo(w, h);
    frame.PageLineTo(0, h);
    frame.PageLineTo(0, 0);

    const auto rule = [&frame](double x1, double y1, double x2, double y2) {
        frame.PageMoveTo(x1, y1);
        frame.PageLineTo(x2, y2);
    };
    // Horizontal rules.
    rule(0, kTitleBlockHeight, w, kTitleBlockHeight);
    rule(0, 22, 100, 22);
    rule(0, 17, 70, 17);
    rule(0, 13, 70, 13);
    rule(0, 5, 70, 5);
    rule(70, 11, 100, 11);
    rule(100, 15, w, 15);
    rule(100, 5, w, 5);
    // Vertical rules.
    rule(100, 0, 100, kTitleBlockHeight);
    rule(70, 0, 70, 22);
    rule(32.5, 17, 32.5, 22);
    rule(33, 0, 33, 5);
    rule(w - 36, 0, w - 36, 5);
    rule(85, 11, 85, 17);
    rule(85, 0, 85, 6);
    rule(36, 5, 36, 15);
    rule(53, 5, 53, 15);
}

void DrawLabels(PlotFrame& frame, const TitleBlockInputs& inputs) {
    const double w = inputs.width;
    const Label labels[] = {
        {"DECAL:", 2, 30},
        {"COMPANY:", 102, 30},
        {inputs.pcbInput ? "PCB:" : "LIBRARY:", 102, 12},
        {"FORM.NO:", 102, 1.5},
        {"PAGE", w - 34, 1.5},
        {"DRAWING  DATE:", 71.5, 19},
        {"APPROVED DATE:", 71, 8},
        {"PLOTDATE:", 34, 1.5},
        {"SCALE:", 2, 1.5},
        {"MEASUREMENTS", 2, 14},
        {"X", 44.5, 14},
        {"Y", 60, 14},
        {"Origin to term.1", 2, 10},
        {"Term.1 to term.2", 2, 6.5},
        {"TERMS:", 2, 18.5},
        {"HEIGTH:", 33.7, 18.5},
    };
    const std::string& font = frame.Settings().FormularFont;
    for (const Label& label : labels) {
        frame.PageText(label.text, kFormularTextSize, label.y, label.x, font);
    }
    frame.PageText("ZANTOR 7.30 Brovik '96-'03", kFooterTextSize, -2, 0, font);
}

void DrawCompany(PlotFrame& frame, double w) {
    const PlotSettings& settings = frame.Settings();
    if (settings.Company.empty()) {
        return;
    }
    const double room = std::min(kCompanyBoxWidth, w - 100 - 2 * kRuleGap);
    const double size =
        FittingTextSize(settings.Company, settings.CompanyFont, kCompanyTextSize, room);
    if (size > 0) {
        frame.PageText(settings.Company, size, kCompanyBaseline, (w - 110) / 2 + 105,
                       settings.CompanyFont, TextAlign::Centre);
    }
}

// The field between two rules, less the gap the text keeps from them.
TextField Between(double leftRule, double rightRule) {
    return {leftRule + kRuleGap, rightRule - kRuleGap};
}

// The field right of a label drawn at `labelX` up to the rule at `rightRule`.
TextField AfterLabelUpTo(const std::string& font, std::string_view label, double labelX,
                         double rightRule) {
    return {AfterLabel(label, font, kFormularTextSize, labelX), rightRule - kRuleGap};
}

void DrawValues(PlotFrame& frame, const TitleBlockInputs& inputs) {
    const PlotSettings& settings = frame.Settings();
    const std::string& font = settings.FormularFont;
    const double w = inputs.width;
    PageTextInField(frame, inputs.decalName, kNameTextSize, 24, 50, font, TextAlign::Centre,
                    Between(0, 100));
    PageTextInField(frame, std::to_string(inputs.terminalCount), kFormularTextSize, 18.5, 27, font,
                    TextAlign::Right, AfterLabelUpTo(font, "TERMS:", 2, 32.5));
    PageTextInField(frame, ScaleText(frame.Placement().scale), kFormularTextSize, 1.5, 20, font,
                    TextAlign::Left, Between(0, 33));
    PageTextInField(frame, inputs.date, kFormularTextSize, 1.5, 54, font, TextAlign::Left,
                    Between(33, 70));
    DrawCompany(frame, w);
    PageTextInField(frame, LibraryNameOf(inputs.inputPath), kNameTextSize, 7, (w - 100) / 2 + 105,
                    font, TextAlign::Centre, Between(100, w));
    const std::string& formNo = settings.DecalAsFormNo ? inputs.decalName : settings.FormNo;
    PageTextInField(frame, formNo, kFormularTextSize, 1.5, w - 54, font, TextAlign::Centre,
                    AfterLabelUpTo(font, "FORM.NO:", 102, w - 36));
    PageTextInField(frame, "1    OF    1", kFormularTextSize, 1.5, w - 18, font, TextAlign::Left,
                    Between(w - 36, w));
}

std::string HeightText(const PlotSettings& settings, const MeasurementInputs& inputs) {
    if (settings.HeightInfo == 1) {
        return inputs.heightAttribute;
    }
    return FormatMeasure(settings.MeasUnit, inputs.heightValue, inputs.units);
}

}  // namespace

void DrawTitleBlock(PlotFrame& frame, const TitleBlockInputs& inputs) {
    DrawRules(frame, inputs.width, inputs.height);
    const Colour colour = frame.PenFor(kPenFormText, 0);
    if (colour == kNotPlotted) {
        return;
    }
    frame.SetColour(colour);
    DrawLabels(frame, inputs);
    DrawValues(frame, inputs);
}

void DrawMeasurements(PlotFrame& frame, const MeasurementInputs& inputs) {
    const Colour colour = frame.PenFor(kPenFormText, 0);
    if (colour == kNotPlotted) {
        return;
    }
    frame.SetColour(colour);
    const PlotSettings& settings = frame.Settings();
    const std::string& font = settings.FormularFont;
    const char unit = settings.MeasUnit;
    // The X column runs from the rule at 36 to the one at 53, the Y column on to the one at 70.
    const auto measure = [&](double value, double x, double y) {
        PageTextInField(frame, FormatMeasure(unit, value, inputs.units), kFormularTextSize, y, x,
                        font, TextAlign::Right, Between(x < 53 ? 36 : 53, x < 53 ? 53 : 70));
    };
    measure(inputs.terminal1X, 51, 10);
    measure(inputs.terminal1Y, 68, 10);
    measure(inputs.terminal2X - inputs.terminal1X, 51, 6.5);
    measure(inputs.terminal2Y - inputs.terminal1Y, 68, 6.5);
    // The unit of the measurements (and of the height) in the free end of the heading row.
    PageTextInField(frame, "(" + UnitSuffix(unit, inputs.units.mils) + ")", 2.0, 14, 35, font,
                    TextAlign::Right,
                    {AfterLabel("MEASUREMENTS", font, kFormularTextSize, 2), 36 - kRuleGap});
    PageTextInField(frame, HeightText(settings, inputs), kFormularTextSize, 18.5, 68, font,
                    TextAlign::Right, AfterLabelUpTo(font, "HEIGTH:", 33.7, 70));

    if (settings.GenComment.empty()) {
        return;
    }
    const double size = settings.GenComSize;
    const TextField page = Between(0, inputs.width);
    switch (settings.GenComAdjust) {
        case 1:
            PageTextInField(frame, settings.GenComment, size, 34.5, inputs.width / 2, font,
                            TextAlign::Centre, page);
            break;
        case 2:
            PageTextInField(frame, settings.GenComment, size, 34.5, inputs.width - 3, font,
                            TextAlign::Right, page);
            break;
        default:
            PageTextInField(frame, settings.GenComment, size, 34.5, 3, font, TextAlign::Left, page);
            break;
    }
}

std::string ScaleText(double scale) {
    if (scale < 1 && scale > 0) {
        return "1 : " + ShortNumber(1 / scale);
    }
    return ShortNumber(scale) + " : 1";
}

std::string LibraryNameOf(std::string_view path) {
    const std::size_t slash = path.find_last_of("\\/");
    std::string name(slash == std::string_view::npos ? path : path.substr(slash + 1));
    if (name.size() > kLibraryNameLength) {
        name.resize(kLibraryNameLength);
    }
    // Takes out the extension of a usual "NAME.D" but, deliberately, only the first dot's.
    if (const std::size_t dot = name.find('.'); dot != std::string::npos) {
        name.erase(dot, 4);
    }
    return name;
}

std::string TodayShortDate() {
    const QString date = QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat);
    // The canvas takes page texts as 8-bit text.
    return date.toLatin1().toStdString();
}

}  // namespace zantor

#include "shell/settings_io.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <system_error>

#include "common/errors.h"
#include "shell/settings_numbers.h"
#include "shell/settings_values.h"

namespace zantor {
namespace {

std::string PenLayerName(int row) {
    return "PenSelect" + std::to_string(row) + "Layer";
}

std::string PenColourName(int row, int pen) {
    return "PenSelect" + std::to_string(row) + "Color" + std::to_string(pen);
}

std::string Numbered(std::string_view name, std::size_t number) {
    return std::string(name) + std::to_string(number);
}

// Undoing the size conversion leaves noise in the last digits (1.7 comes back as
// 1.6999999999999997); 15 significant digits give the value the user entered.
double WithoutConversionNoise(double value) {
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                            std::chars_format::general, 15);
    if (error != std::errc()) {
        return value;
    }
    const auto cleaned = ParseSettingsReal(std::string_view(text.data(), end - text.data()));
    return cleaned ? *cleaned : value;
}

// What the page drawing can work with: lengths on paper, the largest enlargement, the grid pitch
// and the cells of an index page. Anything beyond is a mistyped or damaged value.
constexpr NumberRange kPaperLength{0, 1000};
constexpr NumberRange kMaxScaleRange{0, 1000, true};
constexpr NumberRange kGridSizeRange{0, 1e6, true};
constexpr NumberRange kIndexCountRange{1, 1000};

void LoadGeneral(PlotSettings& s, const SettingsReader& general) {
    const PlotSettings d;
    s.Inputfile = general.Text("Inputfile", d.Inputfile, kFileNameCapacity);
    s.Fontfile = general.Text("Fontfile", d.Fontfile, kFileNameCapacity);
    s.Company = general.Text("Company", d.Company, kCompanyCapacity);
    s.CompanyFont = general.Text("CompanyFont", d.CompanyFont, kFontNameCapacity);
    s.RightMargin = general.Real("RightMargin", d.RightMargin, kPaperLength);
    s.LeftMargin = general.Real("LeftMargin", d.LeftMargin, kPaperLength);
    s.TopMargin = general.Real("TopMargin", d.TopMargin, kPaperLength);
    s.BotMargin = general.Real("BotMargin", d.BotMargin, kPaperLength);
    s.MirrorMargin = general.Flag("MirrorMargin", d.MirrorMargin);
    s.XBorder = general.Real("XBorder", d.XBorder, kPaperLength);
    s.YBorder = general.Real("YBorder", d.YBorder, kPaperLength);
    s.MaxPinCenterMark = general.Real("MaxPinCenterMark", d.MaxPinCenterMark, kPaperLength);
    s.MaxPin1Mark = general.Real("MaxPin1Mark", d.MaxPin1Mark, kPaperLength);
    s.MinPinnoSize = general.Real("MinPinnoSize", d.MinPinnoSize, kPaperLength);
    s.MinLineWidth = general.Real("MinLineWidth", d.MinLineWidth, kPaperLength);
    s.SeperatePages = general.Flag("SeperatePages", d.SeperatePages);
}

void LoadPenTable(PenTableRows& table, const SettingsReader& kind) {
    const PenTableRows defaults = DefaultPenTable();
    for (int row = 0; row < kPenRows; ++row) {
        const auto r = static_cast<std::size_t>(row);
        table[r].layer = kind.Integer(PenLayerName(row), defaults[r].layer);
        for (int pen = 1; pen <= kPenKinds; ++pen) {
            const auto p = static_cast<std::size_t>(pen);
            table[r].colour[p] = kind.Integer(PenColourName(row, pen), defaults[r].colour[p]);
        }
    }
}

void LoadKind(PlotSettings& s, const SettingsReader& kind) {
    const PlotSettings d;
    s.MeasUnit = kind.Letter("MeasUnit", d.MeasUnit);
    s.StackUnit = kind.Letter("StackUnit", d.StackUnit);
    s.PinNoStyle = kind.Letter("PinNoStyle", d.PinNoStyle);
    s.PlotPinNo = kind.Flag("PlotPinNo", d.PlotPinNo);
    s.PlotPadstack = kind.Flag("PlotPadstack", d.PlotPadstack);
    s.PlotOrigins = kind.Flag("PlotOrigins", d.PlotOrigins);
    s.ShowPinCenter = kind.Flag("ShowPinCenter", d.ShowPinCenter);
    s.ShowDrill = kind.Flag("ShowDrill", d.ShowDrill);
    s.OnlyNPDrill = kind.Flag("OnlyNPDrill", d.OnlyNPDrill);
    s.MarkPin1 = kind.Flag("MarkPin1", d.MarkPin1);
    s.View1_1 = kind.Flag("View1_1", d.View1_1);
    s.FormNo = kind.Text("FormNo", d.FormNo, kFormNoCapacity);
    s.MaxScale = kind.Real("MaxScale", d.MaxScale, kMaxScaleRange);
    s.OriginSize = kind.Real("OriginSize", d.OriginSize, kPaperLength);
    s.PartsEachColumn = kind.TextInteger("PartsEachColumn", d.PartsEachColumn, kIndexCountRange);
    // Read a second time, as always; the result is the same.
    s.FormNo = kind.Text("FormNo", d.FormNo, kFormNoCapacity);
    s.FormularFont = kind.Text("FormularFont", d.FormularFont, kFontNameCapacity);
    s.DecalAsFormNo = kind.Flag("DecalAsFormNo", d.DecalAsFormNo);
    s.GenComment = kind.Text("GenComment", d.GenComment, kGenCommentCapacity);
    s.GenComSize = kind.Real("GenComSize", d.GenComSize, kPaperLength);
    s.GenComAdjust = kind.Integer("GenComAdjust", d.GenComAdjust);
    s.HeightInfo = kind.Integer("HeightInfo", d.HeightInfo);
    LoadPenTable(s.PenTable, kind);
    s.PinNoSize = kind.Real("PinNoSize", d.PinNoSize, kPaperLength);
    s.ScalePinNo = kind.Flag("ScalePinNo", d.ScalePinNo);
    s.Columns = kind.Integer("Columns", d.Columns, kIndexCountRange);
    s.PrintSepLines = kind.Flag("PrintSepLines", d.PrintSepLines);
    s.PrintScale = kind.Flag("PrintScale", d.PrintScale);
    s.ShowDecal = kind.Flag("ShowDecal", d.ShowDecal);
    s.ShowDecalName = kind.Flag("ShowDecalName", d.ShowDecalName);
    s.ListPinnames = kind.Flag("ListPinnames", d.ListPinnames);
    s.PrintComm = kind.Flag("PrintComm", d.PrintComm);
    s.PrintAttr = kind.Flag("PrintAttr", d.PrintAttr);
    s.ShowGrid = kind.Flag("ShowGrid", d.ShowGrid);
    s.GridLineStyle = kind.Integer("GridLineStyle", d.GridLineStyle);
    s.GridPosition = kind.Integer("GridPosition", d.GridPosition);
    s.GridUnit = kind.Integer("GridUnit", d.GridUnit);
    s.GridSize = kind.Real("GridSize", d.GridSize, kGridSizeRange);
    s.GridLineWidth = kind.Real("GridLineWidth", d.GridLineWidth, kPaperLength);
    s.ShowGridSize = kind.Flag("ShowGridSize", d.ShowGridSize);
}

void SaveGeneral(const PlotSettings& s, SettingsWriter& general) {
    general.Text("Inputfile", s.Inputfile);
    general.Text("Fontfile", s.Fontfile);
    general.Text("Company", s.Company);
    general.Text("CompanyFont", s.CompanyFont);
    general.Real("RightMargin", s.RightMargin);
    general.Real("LeftMargin", s.LeftMargin);
    general.Real("TopMargin", s.TopMargin);
    general.Real("BotMargin", s.BotMargin);
    general.Real("XBorder", s.XBorder);
    general.Real("YBorder", s.YBorder);
    general.Real("MaxPinCenterMark", s.MaxPinCenterMark);
    general.Real("MaxPin1Mark", s.MaxPin1Mark);
    general.Real("MinPinnoSize", s.MinPinnoSize);
    general.Real("MinLineWidth", s.MinLineWidth);
    general.Flag("SeperatePages", s.SeperatePages);
    general.Flag("MirrorMargin", s.MirrorMargin);
}

void SavePenTable(const PenTableRows& table, SettingsWriter& kind) {
    for (int row = 0; row < kPenRows; ++row) {
        const auto r = static_cast<std::size_t>(row);
        kind.Integer(PenLayerName(row), table[r].layer);
        for (int pen = 1; pen <= kPenKinds; ++pen) {
            kind.Integer(PenColourName(row, pen), table[r].colour[static_cast<std::size_t>(pen)]);
        }
    }
}

void SaveKind(const PlotSettings& s, SettingsWriter& kind) {
    kind.Letter("MeasUnit", s.MeasUnit);
    kind.Letter("StackUnit", s.StackUnit);
    kind.Letter("PinNoStyle", s.PinNoStyle);
    kind.Flag("PlotPinNo", s.PlotPinNo);
    kind.Flag("PlotPadstack", s.PlotPadstack);
    kind.Flag("PlotOrigins", s.PlotOrigins);
    kind.Flag("ShowPinCenter", s.ShowPinCenter);
    kind.Flag("ShowDrill", s.ShowDrill);
    kind.Flag("OnlyNPDrill", s.OnlyNPDrill);
    kind.Flag("MarkPin1", s.MarkPin1);
    kind.Flag("View1_1", s.View1_1);
    kind.Text("FormNo", s.FormNo);
    kind.Real("MaxScale", s.MaxScale);
    kind.Real("OriginSize", s.OriginSize);
    kind.TextInteger("PartsEachColumn", s.PartsEachColumn);
    kind.Text("FormularFont", s.FormularFont);
    kind.Flag("DecalAsFormNo", s.DecalAsFormNo);
    kind.Text("GenComment", s.GenComment);
    kind.Real("GenComSize", s.GenComSize);
    kind.Integer("GenComAdjust", s.GenComAdjust);
    kind.Integer("HeightInfo", s.HeightInfo);
    SavePenTable(s.PenTable, kind);
    kind.Real("PinNoSize", s.PinNoSize);
    kind.Flag("ScalePinNo", s.ScalePinNo);
    kind.Integer("Columns", s.Columns);
    kind.Flag("PrintSepLines", s.PrintSepLines);
    kind.Flag("PrintScale", s.PrintScale);
    kind.Flag("ShowDecal", s.ShowDecal);
    kind.Flag("ShowDecalName", s.ShowDecalName);
    kind.Flag("ListPinnames", s.ListPinnames);
    kind.Flag("PrintComm", s.PrintComm);
    kind.Flag("PrintAttr", s.PrintAttr);
}

// The list ends at the first empty name when it is read back, so a list shorter than the
// largest one gets an empty name after its last entry.
void SaveAttributeList(const AttributeList& attributes, SettingsWriter& kind) {
    for (std::size_t n = 1; n <= attributes.size(); ++n) {
        kind.Flag(Numbered("ListAttr", n), attributes[n - 1].checked);
        kind.Text(Numbered("Attr", n), attributes[n - 1].name);
    }
    if (attributes.size() < kMaxAttributes) {
        kind.Text(Numbered("Attr", attributes.size() + 1), "");
    }
}

void SaveGrid(const PlotSettings& s, SettingsWriter& kind) {
    kind.Flag("ShowGrid", s.ShowGrid);
    kind.Integer("GridLineStyle", s.GridLineStyle);
    kind.Integer("GridPosition", s.GridPosition);
    kind.Integer("GridUnit", s.GridUnit);
    kind.Real("GridSize", s.GridSize);
    kind.Real("GridLineWidth", s.GridLineWidth);
    kind.Flag("ShowGridSize", s.ShowGridSize);
}

}  // namespace

std::string_view SettingsSection(PlotKind kind) {
    switch (kind) {
        case PlotKind::Parttype:
            return "Parttype";
        case PlotKind::Decal:
            return "Decalplot";
        case PlotKind::Index:
            return "Indexplot";
    }
    throw RangeError("Print kind " + std::to_string(static_cast<int>(kind)) + " is outside 0 to 2");
}

void LoadSettings(PlotSettings& settings, PlotKind kind, const SettingsStore& store) {
    const SettingsReader kindReader(store, SettingsSection(kind));
    LoadGeneral(settings, SettingsReader(store, kGeneralSection));
    LoadKind(settings, kindReader);
}

void SaveSettings(const PlotSettings& settings, PlotKind kind, const AttributeList& attributes,
                  SettingsStore& store) {
    SettingsWriter general(store, kGeneralSection);
    SettingsWriter kindWriter(store, SettingsSection(kind));
    SaveGeneral(settings, general);
    SaveKind(settings, kindWriter);
    SaveAttributeList(attributes, kindWriter);
    SaveGrid(settings, kindWriter);
    store.Sync();
}

void LoadRecentFiles(std::vector<std::string>& recentFiles, ParttypeTextSizes& sizes,
                     const SettingsStore& store) {
    const SettingsReader general(store, kGeneralSection);
    for (std::size_t n = 1;; ++n) {
        std::string file = general.Text(Numbered("Inputfile", n), "");
        if (file.empty()) {
            break;
        }
        recentFiles.push_back(std::move(file));
    }
    sizes.PTNameSize = general.Real("PTNameSize", "4") + kPTNameSizeOffset;
    sizes.PTAttrSize = general.Real("PTAttrSize", "3") * kPTAttrSizeFactor;
}

void SaveRecentFiles(const std::vector<std::string>& recentFiles, const ParttypeTextSizes& sizes,
                     SettingsStore& store) {
    SettingsWriter general(store, kGeneralSection);
    for (std::size_t n = recentFiles.size(); n >= 1; --n) {
        general.Text(Numbered("Inputfile", n), recentFiles[n - 1]);
    }
    general.Real("PTNameSize", WithoutConversionNoise(sizes.PTNameSize - kPTNameSizeOffset));
    general.Real("PTAttrSize", WithoutConversionNoise(sizes.PTAttrSize / kPTAttrSizeFactor));
    store.Sync();
}

void LoadAttributeList(AttributeList& attributes, PlotKind kind, const SettingsStore& zantorStore) {
    const SettingsReader kindReader(zantorStore, SettingsSection(kind));
    attributes.clear();
    for (std::size_t n = 1; n <= kMaxAttributes; ++n) {
        std::string name = kindReader.Text(Numbered("Attr", n), "");
        if (name.empty()) {
            break;
        }
        const bool checked = kindReader.Flag(Numbered("ListAttr", n), false);
        attributes.push_back({std::move(name), checked});
    }
}

}  // namespace zantor

#pragma once

// The settings record every part of the program reads. It holds the "General" values and the
// plot options of one print kind at a time (the kind chosen last); see settings_io.h for how it
// is loaded and saved.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "shell/default_font.h"

namespace zantor {

// The print kind; its value indexes the settings sections "Parttype", "Decalplot", "Indexplot".
enum class PlotKind : std::uint8_t { Parttype = 0, Decal = 1, Index = 2 };

// Capacities of the text fields; longer texts are cut when stored into the record.
inline constexpr std::size_t kFileNameCapacity = 60;
inline constexpr std::size_t kFontNameCapacity = 30;
inline constexpr std::size_t kCompanyCapacity = 30;
inline constexpr std::size_t kFormNoCapacity = 16;
inline constexpr std::size_t kGenCommentCapacity = 80;

// Item kinds: the pen colour index of a pen table row.
enum PenKind : int {
    kPenPads = 1,
    kPenCopper = 2,
    kPenOutline = 3,
    kPenText = 4,
    kPenCutout = 5,
    kPenKeepout = 6,
    kPenPinNo = 7,
    kPenOrigin = 8,
    kPenFormText = 9,
    kPenFormLine = 10,
    kPenReserved = 11,
};
inline constexpr int kPenKinds = 11;
inline constexpr int kPenRows = 13;
inline constexpr std::int32_t kNotPlotted = 0xFFFFFF;  // white: the item is not drawn

// One row of the pen table: the layer the row is bound to ("PenSelect<L>Layer", -1 = none) and
// the colours (0x00BBGGRR) of item kinds 1 to 11 (index 0 unused).
struct PenRow {
    std::int32_t layer = -1;
    std::array<std::int32_t, kPenKinds + 1> colour{};

    friend bool operator==(const PenRow&, const PenRow&) = default;
};

using PenTableRows = std::array<PenRow, kPenRows>;

// Row 0 starts black (every item plotted), the others white (nothing plotted).
PenTableRows DefaultPenTable();

struct PlotSettings {
    // "General"
    std::string Inputfile = "*.d";
    std::string Fontfile = DefaultFontfile();
    std::string CompanyFont = "Arial";
    std::string Company;
    double RightMargin = 6;
    double LeftMargin = 12;
    double TopMargin = 6;
    double BotMargin = 6;
    double XBorder = 20;
    double YBorder = 20;
    bool SeperatePages = false;
    bool MirrorMargin = false;
    double MaxPinCenterMark = 3;
    double MaxPin1Mark = 3;
    double MinPinnoSize = 1;
    double MinLineWidth = 0;
    // the section of the current print kind
    std::string FormNo;
    std::string FormularFont = "Arial";
    char MeasUnit = 'M';
    char StackUnit = 'X';
    char PinNoStyle = 'M';
    bool PlotPinNo = true;
    bool PlotPadstack = true;
    bool PlotOrigins = true;
    bool ShowPinCenter = false;
    bool ShowDrill = false;
    bool OnlyNPDrill = false;
    bool MarkPin1 = true;
    bool View1_1 = false;
    double MaxScale = 10;
    double OriginSize = 6;
    bool DecalAsFormNo = false;
    PenTableRows PenTable = DefaultPenTable();
    double PinNoSize = 2;
    bool ScalePinNo = true;
    int Columns = 2;
    int PartsEachColumn = 12;
    bool PrintSepLines = false;
    bool PrintScale = false;
    std::string GenComment;
    double GenComSize = 2;
    int GenComAdjust = 0;
    int HeightInfo = 0;
    bool ShowGrid = false;
    double GridSize = 100;
    double GridLineWidth = 4;
    int GridLineStyle = 0;
    int GridPosition = 0;
    int GridUnit = 1;
    bool ShowGridSize = true;
    bool ListPinnames = true;
    bool ShowDecal = true;
    bool ShowDecalName = true;
    bool PrintAttr = false;
    bool PrintComm = false;

    friend bool operator==(const PlotSettings&, const PlotSettings&) = default;
};

// `text` cut to at most `capacity` characters, the way a text field of the record holds it. Text
// from the settings store and the dialogs is UTF-8, so a character is never cut in half.
std::string CutToCapacity(std::string_view text, std::size_t capacity);

}  // namespace zantor

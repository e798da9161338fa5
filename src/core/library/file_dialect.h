#pragma once

// How a decal record is laid out in one kind and version of PADS file. All decisions that differ
// between the formats a reader meets (the counts in a decal header and their order, which lines
// come before the pieces, how many lines a text or label takes, where the layer of a piece and the
// drill of a pad stack are written, how records are framed) are made here, from the file's first
// line, and nowhere else.
//
// Versions 3 and 4 keep the layout the program has always read. Every later release (V5.0,
// V2005.0, V2007, V9, V9.5, V10.0, ...) is read the way the files of that release are written.

#include <array>
#include <compare>
#include <cstddef>
#include <span>
#include <string_view>

namespace zantor {

enum class FileProduct { DecalLibrary, ParttypeLibrary, PcbDatabase, Unknown };

// A PADS release as a header writes it after "-V": "V9.5" is release 9.5, "V2005.0" the year
// 2005, "V9" release 9.0. Releases and years compare as numbers (major first), so a year is
// larger than every release; the rules below say where years fall among the releases.
struct FormatRelease {
    int major = 0;  // 0: not known
    int minor = 0;

    bool Known() const { return major > 0; }
    bool IsYear() const { return major >= 1000; }
    friend auto operator<=>(const FormatRelease&, const FormatRelease&) = default;
};

// "V9.5" -> {9, 5}; "V2005.0" -> {2005, 0}; "V9" and "V9." -> {9, 0}; anything without a number
// after the "V" -> {0, 0}. Only the digits right after "V" and after the first "." count.
FormatRelease ParseRelease(std::string_view versionText);

// The counts a decal header can carry.
enum class CountField { Attributes, Labels, Pieces, Texts, Terminals, Stacks };

// Where the label records of a decal stand in its body.
enum class LabelPlace {
    BeforePieces,  // with the attribute lines, before the first piece (libraries)
    AfterTexts,    // between the texts and the terminals
    Unread,        // not in the body as the reader sees it: the count is not used
};

// Where a pad stack gives its drill, drill slot and plated flag.
enum class DrillPlace {
    StackHeader,     // after the line count on the "PAD" header line (plated, drill, slot)
    EveryStackLine,  // at the end of every stack line, for that line only
    // After the shape fields of a stack line (normally the stack's first): drill, plated flag,
    // slot orientation, length and offset, each optional. It holds for the whole stack; a
    // drill without a plated flag is plated.
    AfterShapeFields,
    Nowhere,  // not read: stacks have no drill
};

// Where the fields of a piece header stand after keyword, corner count and width.
enum class PieceLayout {
    Layer,               // layer, then [pin] (versions 3 and 4; PCB files before 9.4)
    LayerThenLineStyle,  // layer, line style, then [pin] (libraries after version 4)
    LineStyleThenLayer,  // line style, layer, then [pin] (PCB files from 9.4 and after 2007)
};

// Where the corner radius of "S" and "RF" pad shapes is written.
enum class CornerPlace {
    None,          // there is none
    BeforeFinger,  // right after the shape: "S corner", "RF corner ori length offset"
    AfterFinger,   // after the finger fields: "S corner", "RF ori length offset corner"
};

// Which way a finger pad ("OF", "RF") and a slotted drill run at orientation 0.
enum class FingerAxis {
    AlongYAtZero,  // the length runs up the page at 0 degrees (how versions 3 and 4 are drawn)
    AlongXAtZero,  // the length runs to the right at 0 degrees, as PADS itself draws
};

// How the corners of a circle piece give its circle.
enum class CircleRule {
    // Versions 3 and 4: the radius is half the larger axis distance of the two corners, and the
    // extents reserve that whole distance above and below the second corner.
    AxisDistance,
    // The two corners are the ends of a diameter; the extents take the circle's own box.
    Diameter,
};

// Where a text header says which point of the text its position is.
enum class TextJustification {
    None,   // versions 3 and 4: the position is the left end of the baseline
    Code,   // one number: horizontal (0 left, 1 centre, 2 right) + 16 x vertical (0 bottom,
            // 1 middle, 2 top) (libraries)
    Words,  // LEFT, CENTER or RIGHT, then DOWN, CENTER or UP (PCB files)
};

// How a record's end is found.
enum class Framing {
    BlankLines,  // a blank line or the end of the file ends a record
    // The header's counts say how many lines the body has; once they are read, the next decal
    // header may follow without a blank line. A blank line still ends a short record.
    Counts,
};

struct FileDialect {
    // The counts of a decal header after name, unit letter and the two origin words, in order.
    std::array<CountField, 6> countOrder{};
    std::size_t countCount = 0;
    // Lines between the decal header and the attribute lines (none so far).
    std::size_t leadingLines = 0;
    // A "TIMESTAMP ..." line may follow the decal header; it is passed over when it does.
    bool timestampLine = false;
    // Attribute lines, one each, stand before the pieces (libraries only).
    bool attributesBeforePieces = false;
    LabelPlace labelPlace = LabelPlace::Unread;
    std::size_t linesPerLabel = 2;
    // Lines of one text record; the text itself is its last line (a font line may come before).
    std::size_t linesPerText = 2;
    DrillPlace drillPlace = DrillPlace::Nowhere;
    // A line that starts with "*" ends a record even without a blank line before it (some
    // writers put "*END*" right after the last pad-stack line). Otherwise only a blank line or
    // the end of the file does.
    bool starLineEndsRecord = false;
    Framing framing = Framing::BlankLines;

    PieceLayout pieceLayout = PieceLayout::Layer;
    // Arc angles of corner lines are written in tenths of a degree.
    bool arcAnglesInTenths = false;
    // The piece kinds of releases after version 4 (TAG, BRDCIR, BRDCUT, BRDCCO, COPCCO) are
    // drawn, and an unknown kind is passed over with one message per job. Versions 3 and 4
    // stop the pieces of a decal at an unknown kind.
    bool newerPieceKinds = false;
    CircleRule circleRule = CircleRule::AxisDistance;
    // The word of a text header (its 7th) that marks a mirrored text.
    std::string_view mirrorWord = "M";
    // How a text header gives the text's justification after the mirror word.
    TextJustification textJustification = TextJustification::None;

    CornerPlace cornerPlace = CornerPlace::None;
    FingerAxis fingerAxis = FingerAxis::AlongYAtZero;
    // Terminal lines may carry the pin's name (alphanumeric: "1", "MH2", "FRM-2") as a fifth
    // word; a terminal without one is named by its number in file order. Versions 3 and 4 keep
    // how they have always been read.
    bool pinNamesOnTerminals = false;

    std::span<const CountField> Counts() const { return {countOrder.data(), countCount}; }
};

// The dialect of versions 3 and 4 (and of files whose header names no known product, read as
// they always have been): `version` 3 or 4 chooses the drill place, anything else has none.
FileDialect DialectFor(int version, bool pcbFile);

// The dialect of a file: `version` is 3, 4 or 5 as the header analysis gives it. Versions 3 and
// 4, parttype libraries and unknown files get DialectFor(version, pcbFile); decal libraries and
// PCB files of version 5 get the layout of their release (an unknown release is the newest).
FileDialect DialectFor(FileProduct product, int version, const FormatRelease& release);

// A unit vector along the length of a finger pad or slot at orientation `ori` (degrees,
// counter-clockwise) in library coordinates, by the dialect's finger axis.
struct Direction {
    double x = 0;
    double y = 0;
};
Direction FingerDirection(const FileDialect& dialect, double ori);

}  // namespace zantor

#include "library/file_dialect.h"

#include <charconv>
#include <cmath>
#include <numbers>

namespace zantor {
namespace {

constexpr std::array<CountField, 6> kLibraryCounts = {CountField::Attributes, CountField::Labels,
                                                      CountField::Pieces,     CountField::Texts,
                                                      CountField::Terminals,  CountField::Stacks};
constexpr std::array<CountField, 6> kPcbCounts = {CountField::Pieces, CountField::Terminals,
                                                  CountField::Stacks, CountField::Texts,
                                                  CountField::Labels};

// The leading digits of `text` as a number (0 when there are none or too many).
int LeadingNumber(std::string_view text) {
    int value = 0;
    auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc{} ? value : 0;
}

// Years after 2007 are newer than every release number; 2005 and 2007 came between V5 and V9.
bool AfterYear2007(const FormatRelease& release) {
    return release.IsYear() && release.major > 2007;
}

bool ReleaseAtLeast(const FormatRelease& release, int major, int minor) {
    return !release.IsYear() && release >= FormatRelease{major, minor};
}

FileDialect NewerLibraryDialect() {
    FileDialect dialect;
    dialect.countOrder = kLibraryCounts;
    dialect.countCount = 6;
    dialect.timestampLine = true;
    dialect.attributesBeforePieces = true;
    dialect.labelPlace = LabelPlace::BeforePieces;
    dialect.linesPerLabel = 2;  // the font is quoted on the label line itself
    dialect.linesPerText = 2;
    dialect.drillPlace = DrillPlace::StackHeader;
    dialect.starLineEndsRecord = true;
    dialect.framing = Framing::Counts;
    dialect.pieceLayout = PieceLayout::LayerThenLineStyle;
    dialect.arcAnglesInTenths = true;
    dialect.newerPieceKinds = true;
    dialect.circleRule = CircleRule::Diameter;
    dialect.mirrorWord = "1";
    dialect.textJustification = TextJustification::Code;
    dialect.cornerPlace = CornerPlace::BeforeFinger;
    dialect.fingerAxis = FingerAxis::AlongXAtZero;
    dialect.pinNamesOnTerminals = true;
    return dialect;
}

FileDialect NewerPcbDialect(FormatRelease release) {
    if (!release.Known()) {
        release = {9999, 0};  // a release nobody wrote down is read as the newest
    }
    // Text and label records gained their font line after V5; the 9.4 releases put the line
    // style before the level, and the V9 releases the corner radius into the stack lines.
    const bool fontLine = release >= FormatRelease{6, 0};
    const bool lineStyleFirst = ReleaseAtLeast(release, 9, 4) || AfterYear2007(release);
    const bool cornerRadius = ReleaseAtLeast(release, 9, 0) || AfterYear2007(release);

    FileDialect dialect;
    dialect.countOrder = kPcbCounts;
    dialect.countCount = 5;
    dialect.labelPlace = LabelPlace::AfterTexts;
    dialect.linesPerLabel = fontLine ? 3 : 2;
    dialect.linesPerText = fontLine ? 3 : 2;
    dialect.drillPlace = DrillPlace::AfterShapeFields;
    dialect.starLineEndsRecord = true;
    dialect.framing = Framing::Counts;
    dialect.pieceLayout = lineStyleFirst ? PieceLayout::LineStyleThenLayer : PieceLayout::Layer;
    dialect.arcAnglesInTenths = true;
    dialect.newerPieceKinds = true;
    dialect.circleRule = CircleRule::Diameter;
    dialect.mirrorWord = "M";
    dialect.textJustification = TextJustification::Words;
    dialect.cornerPlace = cornerRadius ? CornerPlace::AfterFinger : CornerPlace::None;
    dialect.fingerAxis = FingerAxis::AlongXAtZero;
    dialect.pinNamesOnTerminals = true;
    return dialect;
}

}  // namespace

FormatRelease ParseRelease(std::string_view versionText) {
    if (versionText.starts_with('V') || versionText.starts_with('v')) {
        versionText.remove_prefix(1);
    }
    FormatRelease release;
    release.major = LeadingNumber(versionText);
    if (release.major <= 0) {
        return {};
    }
    const std::size_t dot = versionText.find('.');
    if (dot != std::string_view::npos) {
        release.minor = LeadingNumber(versionText.substr(dot + 1));
    }
    return release;
}

FileDialect DialectFor(int version, bool pcbFile) {
    FileDialect dialect;
    if (pcbFile) {
        // A board's decals carry no attributes; its label records are not read.
        dialect.countOrder = kPcbCounts;
        dialect.countCount = 5;
        dialect.labelPlace = LabelPlace::Unread;
    } else {
        dialect.countOrder = kLibraryCounts;
        dialect.countCount = 6;
        dialect.attributesBeforePieces = true;
        dialect.labelPlace = LabelPlace::BeforePieces;
    }
    // Version 4 writes the drill on the stack header, version 3 on each stack line.
    if (version == 4) {
        dialect.drillPlace = DrillPlace::StackHeader;
    } else if (version == 3) {
        dialect.drillPlace = DrillPlace::EveryStackLine;
    } else {
        dialect.drillPlace = DrillPlace::Nowhere;
    }
    return dialect;
}

FileDialect DialectFor(FileProduct product, int version, const FormatRelease& release) {
    if (version == 3 || version == 4) {
        return DialectFor(version, product == FileProduct::PcbDatabase);
    }
    switch (product) {
        case FileProduct::DecalLibrary:
            return NewerLibraryDialect();
        case FileProduct::PcbDatabase:
            return NewerPcbDialect(release);
        case FileProduct::ParttypeLibrary:
        case FileProduct::Unknown:
            break;
    }
    return DialectFor(version, false);
}

Direction FingerDirection(const FileDialect& dialect, double ori) {
    const double angle = std::numbers::pi * ori / 180;
    if (dialect.fingerAxis == FingerAxis::AlongXAtZero) {
        return {std::cos(angle), std::sin(angle)};
    }
    return {-std::sin(angle), std::cos(angle)};
}

}  // namespace zantor

#include "library/decal_reader.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "common/errors.h"
#include "library/words.h"

namespace zantor {
namespace {

constexpr std::string_view kDecalSection = "*PARTDECAL*";
constexpr std::string_view kRemark = "*REMARK*";

const char* CountName(CountField field) {
    switch (field) {
        case CountField::Attributes:
            return "attribute";
        case CountField::Labels:
            return "label";
        case CountField::Pieces:
            return "piece";
        case CountField::Texts:
            return "text";
        case CountField::Terminals:
            return "terminal";
        case CountField::Stacks:
            return "pad-stack";
    }
    return "";
}

std::uint16_t& CountSlot(DecalCounts& counts, CountField field) {
    switch (field) {
        case CountField::Attributes:
            return counts.attributes;
        case CountField::Labels:
            return counts.labels;
        case CountField::Pieces:
            return counts.pieces;
        case CountField::Texts:
            return counts.texts;
        case CountField::Terminals:
            return counts.terminals;
        case CountField::Stacks:
            break;
    }
    return counts.stacks;
}

std::uint16_t ReadCount(std::string_view word, CountField field, const std::string& decal,
                        const TextPlace& place) {
    std::string what = std::string("the ") + CountName(field) + " count of decal " + decal;
    long long value = 0;
    try {
        value = WholeNumber(word, place);
    } catch (const ConversionError&) {
        throw ConversionError(what + " is not a number: \"" + std::string(word) + "\"",
                              std::string(place.file), place.line);
    } catch (const RangeError&) {
        value = -1;  // reported below with the other counts out of range
    }
    if (value < 0 || value > std::numeric_limits<std::uint16_t>::max()) {
        throw RangeError(what + " is outside 0 to 65535: \"" + std::string(word) + "\"",
                         std::string(place.file), place.line);
    }
    return static_cast<std::uint16_t>(value);
}

// `position` moved on by `count` lines, but not past `size`.
std::size_t Skip(std::size_t position, unsigned long long count, std::size_t size) {
    if (position >= size) {
        return size;
    }
    return position +
           static_cast<std::size_t>(std::min<unsigned long long>(count, size - position));
}

// The line count that word `wordNumber` (1-based) of a body line gives: corner lines of a piece,
// stack lines of a pad stack. A negative count has no lines.
unsigned long long LinesFollowing(const DecalRecord& record, std::size_t index, int wordNumber,
                                  const char* what) {
    std::string_view rest = record.lines[index];
    std::string_view word;
    for (int i = 0; i < wordNumber; ++i) {
        word = TakeWord(rest);
    }
    const TextPlace place{record.fileName, record.LineNumberOf(index)};
    long long count = 0;
    try {
        count = WholeNumber(word, place);
    } catch (const ConversionError&) {
        throw ConversionError(std::string("the ") + what + " of decal " + record.name +
                                  " is not a number: \"" + std::string(word) + "\"",
                              record.fileName, place.line);
    }
    return count < 0 ? 0 : static_cast<unsigned long long>(count);
}

std::string_view FirstWord(std::string_view line) {
    return TakeWord(line);
}

}  // namespace

double UnitFactorFor(std::string_view unitLetter, bool basicUnits) {
    if (basicUnits) {
        return kBasicUnitFactor;
    }
    return unitLetter == "I" ? kMilUnitFactor : kMillimetreUnitFactor;
}

void LocateSections(DecalRecord& record) {
    const FileDialect& dialect = record.header.dialect;
    const DecalCounts& counts = record.counts;
    const std::size_t size = record.lines.size();

    std::size_t position = Skip(0, dialect.leadingLines, size);
    if (dialect.attributesBeforePieces) {
        position = Skip(position, counts.attributes, size);
    }
    if (dialect.labelPlace == LabelPlace::BeforePieces) {
        position = Skip(position, 1ULL * counts.labels * dialect.linesPerLabel, size);
    }
    record.firstPiece = position;
    for (unsigned piece = 0; piece < counts.pieces && position < size; ++piece) {
        position = Skip(position + 1,
                        LinesFollowing(record, position, 2, "corner count of a piece"), size);
    }
    record.firstText = position;
    position = Skip(position, 1ULL * counts.texts * dialect.linesPerText, size);
    if (dialect.labelPlace == LabelPlace::AfterTexts) {
        position = Skip(position, 1ULL * counts.labels * dialect.linesPerLabel, size);
    }
    record.firstTerminal = position;
    position = Skip(position, counts.terminals, size);
    record.firstStack = position;
    for (unsigned stack = 0; stack < counts.stacks && position < size; ++stack) {
        position = Skip(position + 1,
                        LinesFollowing(record, position, 3, "line count of a pad stack"), size);
    }
    record.endOfStacks = position;
}

DecalReader::DecalReader(const std::filesystem::path& file) : lines_(file) {
    Advance();
    header_ = AnalyseHeader(line_);
}

bool DecalReader::Advance() {
    if (ended_ || !lines_.ReadLine(line_)) {
        line_.clear();
        ended_ = true;
        return false;
    }
    return true;
}

void DecalReader::Rewind() {
    lines_.Rewind();
    ended_ = false;
    found_ = false;
    iterating_ = false;
    Advance();
}

void DecalReader::PositionAtDecals() {
    if (!header_.pcbFile) {
        return;
    }
    while (line_.find(kDecalSection) == std::string::npos) {
        if (!Advance()) {
            return;
        }
    }
    if (!Advance()) {
        return;
    }
    while (line_.find(kRemark) != std::string::npos || IsBlankLine(line_)) {
        if (!Advance()) {
            return;
        }
    }
}

void DecalReader::RestartAtDecals() {
    Rewind();
    PositionAtDecals();
}

bool DecalReader::FindDecal(std::string_view name) {
    found_ = false;
    const std::string_view wanted = CutTo(name, kMaxDecalNameLength);
    for (;;) {
        std::string_view rest = line_;
        if (CutTo(TakeWord(rest), kMaxDecalNameLength) == wanted) {
            if (IsBlankLine(rest)) {
                return false;
            }
            found_ = true;
            foundName_ = wanted;
            foundRest_ = rest;
            foundLine_ = lines_.LineNumber();
            return true;
        }
        if (!Advance()) {
            return false;
        }
    }
}

bool DecalReader::FindDecalFromStart(std::string_view name) {
    StartAtFirstRecord();
    const std::string_view wanted = CutTo(name, kMaxDecalNameLength);
    for (;;) {
        SkipBlankLines();
        if (ended_) {
            return false;
        }
        std::string_view rest = line_;
        if (CutTo(TakeWord(rest), kMaxDecalNameLength) == wanted) {
            return FindDecal(name);
        }
        // Pass over the record: its end is the first line without a first word.
        while (Advance() && !TrimBlanks(FirstWord(line_)).empty()) {
        }
    }
}

void DecalReader::ReadRecord(DecalRecord& record) {
    if (!found_) {
        throw std::logic_error("DecalReader::ReadRecord called without a found decal header");
    }
    found_ = false;
    record.header = header_;
    record.fileName = FileName();
    record.name = foundName_;
    record.headerLineNumber = foundLine_;

    std::string_view rest = foundRest_;
    record.unitLetter = TakeWord(rest);
    record.unitFactor = UnitFactorFor(record.unitLetter, header_.basicUnits);
    TakeWord(rest);  // the origin is not used: decals are drawn around their extents
    TakeWord(rest);
    record.counts = {};
    const TextPlace place{FileName(), foundLine_};
    for (CountField field : header_.dialect.Counts()) {
        CountSlot(record.counts, field) = ReadCount(TakeWord(rest), field, record.name, place);
    }
    ReadBody(record);
    LocateSections(record);
}

void DecalReader::ReadBody(DecalRecord& record) {
    record.lines.clear();
    const bool starLineEnds = header_.dialect.starLineEndsRecord;
    while (Advance() && !IsBlankLine(line_) && !(starLineEnds && line_.starts_with('*'))) {
        record.lines.emplace_back(CutTo(line_, kMaxBodyLineLength));
    }
}

bool DecalReader::NextRecord(DecalRecord& record) {
    if (!iterating_) {
        StartAtFirstRecord();
        iterating_ = true;
    }
    SkipBlankLines();
    if (ended_ || line_.starts_with('*')) {
        return false;
    }
    std::string_view rest = line_;
    found_ = true;
    foundName_ = CutTo(TakeWord(rest), kMaxDecalNameLength);
    foundRest_ = rest;
    foundLine_ = lines_.LineNumber();
    ReadRecord(record);
    return true;
}

void DecalReader::StartAtFirstRecord() {
    RestartAtDecals();
    // A library's first line is its file header, unless the library has none and starts right
    // away with a decal header.
    if (!header_.pcbFile && (line_.starts_with('*') || line_.starts_with('!'))) {
        Advance();
    }
}

void DecalReader::SkipBlankLines() {
    while (!ended_ && IsBlankLine(line_)) {
        Advance();
    }
}

}  // namespace zantor

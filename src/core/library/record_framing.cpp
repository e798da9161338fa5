#include "library/record_framing.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <limits>

#include "common/errors.h"

namespace zantor {
namespace {

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

std::uint16_t ReadCount(std::string_view word, CountField field, std::string_view decal,
                        const TextPlace& place) {
    const std::string what =
        std::string("the ") + CountName(field) + " count of decal " + std::string(decal);
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

bool IsWholeNumber(std::string_view word) {
    if (word.starts_with('+')) {
        word.remove_prefix(1);
    }
    long long value = 0;
    auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc{} && end == word.data() + word.size();
}

bool IsRealNumber(std::string_view word) {
    if (word.starts_with('+')) {
        word.remove_prefix(1);
    }
    double value = 0;
    auto [end, error] =
        std::from_chars(word.data(), word.data() + word.size(), value, std::chars_format::fixed);
    return error == std::errc{} && end == word.data() + word.size();
}

// What the counts of a record expect as its next body line.
enum class Expected { PieceHeader, Terminal, StackHeader };

const char* ExpectedName(Expected expected) {
    switch (expected) {
        case Expected::PieceHeader:
            return "the header of a piece";
        case Expected::Terminal:
            return "a terminal";
        case Expected::StackHeader:
            break;
    }
    return "the header of a pad stack";
}

// "T-50", "T0.8": a terminal's first word, the letter T and the x coordinate.
bool IsTerminalWord(std::string_view word) {
    return word.size() > 1 && word.front() == 'T' && IsRealNumber(word.substr(1));
}

// Whether `line` can be the item the counts expect. Only the first word is judged: a piece
// header starts with its keyword (letters and digits, "OPEN", "COPCLS", "ARWLN1"), a terminal
// with T and its x, a stack with "PAD".
bool LineFits(std::string_view line, Expected expected) {
    const std::string_view word = TakeWord(line);
    switch (expected) {
        case Expected::PieceHeader:
            return !word.empty() && std::isalpha(static_cast<unsigned char>(word.front())) != 0 &&
                   !IsTerminalWord(word) && word != "PAD";
        case Expected::Terminal:
            return IsTerminalWord(word);
        case Expected::StackHeader:
            break;
    }
    return word == "PAD";
}

std::string Plural(unsigned count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

DecalHeaderFields ReadDecalHeaderAfterName(std::string_view name, std::string_view rest,
                                           const FileDialect& dialect, const TextPlace& place) {
    DecalHeaderFields header;
    header.name = CutTo(name, kMaxDecalNameLength);
    header.unitLetter = TakeWord(rest);
    TakeWord(rest);  // the origin is not used: decals are drawn around their extents
    TakeWord(rest);
    for (CountField field : dialect.Counts()) {
        CountSlot(header.counts, field) = ReadCount(TakeWord(rest), field, header.name, place);
    }
    return header;
}

DecalHeaderFields ReadDecalHeader(std::string_view line, const FileDialect& dialect,
                                  const TextPlace& place) {
    const std::string_view name = TakeWord(line);
    return ReadDecalHeaderAfterName(name, line, dialect, place);
}

BodyLayout::BodyLayout(const FileDialect& dialect, const DecalCounts& counts,
                       std::string_view decalName, std::string_view fileName)
    : dialect_(dialect), counts_(counts), decalName_(decalName), fileName_(fileName) {
    left_ = SizeOf(Part::Lead);
    entered_[0] = true;
    Settle();
}

unsigned long long BodyLayout::SizeOf(Part part) const {
    switch (part) {
        case Part::Lead:
            return dialect_.leadingLines;
        case Part::Attributes:
            return dialect_.attributesBeforePieces ? counts_.attributes : 0;
        case Part::LabelsBefore:
            return dialect_.labelPlace == LabelPlace::BeforePieces
                       ? 1ULL * counts_.labels * dialect_.linesPerLabel
                       : 0;
        case Part::Pieces:
            return counts_.pieces;
        case Part::Texts:
            return 1ULL * counts_.texts * dialect_.linesPerText;
        case Part::LabelsAfter:
            return dialect_.labelPlace == LabelPlace::AfterTexts
                       ? 1ULL * counts_.labels * dialect_.linesPerLabel
                       : 0;
        case Part::Terminals:
            return counts_.terminals;
        case Part::Stacks:
            return counts_.stacks;
        case Part::Done:
            break;
    }
    return 0;
}

void BodyLayout::Settle() {
    while (part_ != Part::Done && left_ == 0 && itemLeft_ == 0) {
        part_ = static_cast<Part>(static_cast<int>(part_) + 1);
        left_ = SizeOf(part_);
        const auto index = static_cast<std::size_t>(part_);
        starts_[index] = taken_;
        entered_[index] = true;
    }
}

unsigned long long BodyLayout::ItemLines(std::string_view line, long lineNumber) const {
    const bool piece = part_ == Part::Pieces;
    const int wordNumber = piece ? 2 : 3;
    const char* what = piece ? "corner count of a piece" : "line count of a pad stack";
    std::string_view word;
    for (int i = 0; i < wordNumber; ++i) {
        word = TakeWord(line);
    }
    long long count = 0;
    try {
        count = WholeNumber(word, TextPlace{fileName_, lineNumber});
    } catch (const ConversionError&) {
        throw ConversionError(std::string("the ") + what + " of decal " + decalName_ +
                                  " is not a number: \"" + std::string(word) + "\"",
                              fileName_, lineNumber);
    } catch (const RangeError&) {
        count = -1;  // a count beyond 64 bits announces nothing the file could hold
    }
    return count < 0 ? 0 : static_cast<unsigned long long>(count);
}

void BodyLayout::Take(std::string_view line, long lineNumber) {
    if (taken_ == 0 && dialect_.timestampLine && !timestampSeen_ &&
        TrimBlanks(line).starts_with("TIMESTAMP")) {
        // Every section entered so far starts at the line after it.
        timestampSeen_ = true;
        ++taken_;
        for (std::size_t i = 0; i < kParts; ++i) {
            starts_[i] = entered_[i] ? taken_ : starts_[i];
        }
        return;
    }
    if (part_ != Part::Done) {
        if (part_ == Part::Pieces || part_ == Part::Stacks) {
            if (itemLeft_ == 0) {
                itemLeft_ = ItemLines(line, lineNumber);
                --left_;
            } else {
                --itemLeft_;
            }
        } else {
            --left_;
        }
    }
    ++taken_;
    Settle();
}

void BodyLayout::CheckAgainstCounts(std::string_view line, long lineNumber) const {
    // Corner and stack lines are numbers of any kind; the item headers tell the sections apart.
    Expected expected = Expected::Terminal;
    if (part_ == Part::Pieces && itemLeft_ == 0) {
        expected = Expected::PieceHeader;
    } else if (part_ == Part::Stacks && itemLeft_ == 0) {
        expected = Expected::StackHeader;
    } else if (part_ != Part::Terminals) {
        return;  // free text, item lines, or lines beyond the counts
    }
    if (LineFits(line, expected)) {
        return;
    }
    throw FormatError("decal " + decalName_ + " does not hold what its header counts (" +
                          Plural(counts_.pieces, "piece", "pieces") + ", " +
                          Plural(counts_.texts, "text", "texts") + ", " +
                          Plural(counts_.terminals, "terminal", "terminals") + ", " +
                          Plural(counts_.stacks, "pad stack", "pad stacks") +
                          "): " + ExpectedName(expected) + " was due here, not \"" +
                          std::string(TrimBlanks(line)) + "\"",
                      fileName_, lineNumber);
}

std::size_t BodyLayout::StartOf(Part part) const {
    const auto index = static_cast<std::size_t>(part);
    return entered_[index] ? starts_[index] : taken_;
}

BodySections BodyLayout::Sections() const {
    BodySections sections{StartOf(Part::Pieces), StartOf(Part::Texts), StartOf(Part::Terminals),
                          StartOf(Part::Stacks), StartOf(Part::Done)};
    sections.firstAttribute = StartOf(Part::Attributes);
    switch (dialect_.labelPlace) {
        case LabelPlace::BeforePieces:
            sections.firstLabel = StartOf(Part::LabelsBefore);
            sections.endOfLabels = sections.firstPiece;
            break;
        case LabelPlace::AfterTexts:
            sections.firstLabel = StartOf(Part::LabelsAfter);
            sections.endOfLabels = sections.firstTerminal;
            break;
        case LabelPlace::Unread:
            break;
    }
    return sections;
}

bool BodyLayout::WantsFreeText() const {
    switch (part_) {
        case Part::Attributes:
        case Part::LabelsBefore:
        case Part::Texts:
        case Part::LabelsAfter:
            return true;
        case Part::Lead:
        case Part::Pieces:
        case Part::Terminals:
        case Part::Stacks:
        case Part::Done:
            break;
    }
    return false;
}

bool LooksLikeDecalHeader(std::string_view line, const FileDialect& dialect) {
    if (TakeWord(line).empty()) {
        return false;
    }
    const std::string_view unit = TakeWord(line);
    if (unit.size() != 1 || std::isalpha(static_cast<unsigned char>(unit[0])) == 0) {
        return false;
    }
    for (int origin = 0; origin < 2; ++origin) {
        if (!IsRealNumber(TakeWord(line))) {
            return false;
        }
    }
    for (std::size_t count = 0; count < dialect.countCount; ++count) {
        const std::string_view word = TakeWord(line);
        if (!IsWholeNumber(word) || word.starts_with('-')) {
            return false;
        }
    }
    return true;
}

bool EndsRecord(std::string_view line, const FileDialect& dialect, const BodyLayout& body) {
    if (IsBlankLine(line)) {
        return true;
    }
    if (dialect.starLineEndsRecord && line.starts_with('*') && !body.WantsFreeText()) {
        return true;
    }
    return dialect.framing == Framing::Counts && !body.WantsMore() &&
           LooksLikeDecalHeader(line, dialect);
}

}  // namespace zantor

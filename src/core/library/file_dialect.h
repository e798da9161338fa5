#pragma once

// How a decal record is laid out in one kind and version of PADS file. All decisions that differ
// between the formats a reader meets (the counts in a decal header and their order, which lines
// come before the pieces, how many lines a text or label takes, where the drill of a pad stack is
// written) are made here, from the file's first line, and nowhere else.

#include <array>
#include <cstddef>
#include <span>

namespace zantor {

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
    StackHeader,     // after the line count on the "PAD" header line
    EveryStackLine,  // at the end of every stack line
    Nowhere,         // not read: stacks have no drill
};

struct FileDialect {
    // The counts of a decal header after name, unit letter and the two origin words, in order.
    std::array<CountField, 6> countOrder{};
    std::size_t countCount = 0;
    // Lines between the decal header and the attribute lines (none so far).
    std::size_t leadingLines = 0;
    // Attribute lines, one each, stand before the pieces (libraries only).
    bool attributesBeforePieces = false;
    LabelPlace labelPlace = LabelPlace::Unread;
    std::size_t linesPerLabel = 2;
    std::size_t linesPerText = 2;
    DrillPlace drillPlace = DrillPlace::Nowhere;
    // A line that starts with "*" ends a record even without a blank line before it (some
    // writers put "*END*" right after the last pad-stack line). Otherwise only a blank line or
    // the end of the file does.
    bool starLineEndsRecord = false;

    std::span<const CountField> Counts() const { return {countOrder.data(), countCount}; }
};

// The dialect of a file from the facts of its first line.
FileDialect DialectFor(int version, bool pcbFile);

}  // namespace zantor

#include "library/terminals.h"

#include <string_view>

#include "common/errors.h"
#include "library/words.h"

namespace zantor {
namespace {

std::string Where(const DecalRecord& record, int index) {
    return "Terminal " + std::to_string(index) + " of decal \"" + record.name + "\": ";
}

// A real number of the line; failures keep their file and line and gain the decal's name.
double Number(std::string_view word, const DecalRecord& record, int index, const TextPlace& place) {
    try {
        return RealNumber(word, place);
    } catch (const ConversionError& error) {
        throw ConversionError(Where(record, index) + error.message(), error.file(), error.line());
    } catch (const RangeError& error) {
        throw RangeError(Where(record, index) + error.message(), error.file(), error.line());
    }
}

TerminalLine ReadTerminal(const DecalRecord& record, std::size_t lineIndex, int index) {
    std::string_view rest = record.lines[lineIndex];
    const TextPlace place{record.fileName, record.LineNumberOf(lineIndex)};

    std::string_view first = TakeWord(rest);
    if (!first.starts_with('T')) {
        throw FormatError(Where(record, index) + "the line begins with \"" + std::string(first) +
                              "\" instead of \"T\"",
                          record.fileName, place.line);
    }
    first.remove_prefix(1);
    // The T is glued to x in every file seen; a blank after it only moves x one word on.
    const std::string_view xWord = first.empty() ? TakeWord(rest) : first;

    TerminalLine terminal;
    terminal.index = index;
    terminal.x = Number(xWord, record, index, place);
    terminal.y = Number(TakeWord(rest), record, index, place);
    terminal.labelX = Number(TakeWord(rest), record, index, place);
    terminal.labelY = Number(TakeWord(rest), record, index, place);
    const std::string_view name = TakeWord(rest);
    const bool named = record.header.dialect.pinNamesOnTerminals && !name.empty();
    terminal.pinName = named ? std::string(name) : std::to_string(index);
    return terminal;
}

}  // namespace

std::vector<TerminalLine> ReadTerminals(const DecalRecord& record) {
    std::vector<TerminalLine> terminals;
    for (int n = 0; n < record.counts.terminals; ++n) {
        const std::size_t lineIndex = record.firstTerminal + static_cast<std::size_t>(n);
        if (lineIndex >= record.lines.size()) {
            break;
        }
        terminals.push_back(ReadTerminal(record, lineIndex, n + 1));
    }
    return terminals;
}

}  // namespace zantor

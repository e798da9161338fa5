#include "library/terminals.h"

#include <string_view>

#include "library/field_reader.h"

namespace zantor {
namespace {

TerminalLine ReadTerminal(const DecalRecord& record, std::size_t lineIndex, int index) {
    FieldReader fields(record.lines[lineIndex], FieldPlace{record.fileName,
                                                           record.LineNumberOf(lineIndex),
                                                           record.name,
                                                           "terminal",
                                                           index,
                                                           {},
                                                           0});
    std::string_view first = fields.Word();
    if (!first.starts_with('T')) {
        fields.Fail(FieldFault::Kind::Format, "first word", "\"T\" with the x after it", first);
    }
    first.remove_prefix(1);

    TerminalLine terminal;
    terminal.index = index;
    terminal.line = fields.Place().line;
    // The T is glued to x in every file seen; a blank after it only moves x one word on.
    if (first.empty()) {
        terminal.x = fields.Real("x");
    } else {
        FieldReader glued(first, fields.Place());
        terminal.x = glued.Real("x");
    }
    terminal.y = fields.Real("y");
    terminal.labelX = fields.Real("label x");
    terminal.labelY = fields.Real("label y");
    const std::string_view name = fields.Word();
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

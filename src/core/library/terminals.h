#pragma once

// The terminals of a decal: one line per pin with the pin's position and where its number is
// printed. Terminal i (1-based, in file order) is the pin that the pad stack of pin i describes;
// newer files also write the pin's own name, which need not be a number ("A1", "FRM-2", "MH2").

#include <string>
#include <vector>

#include "library/decal_record.h"

namespace zantor {

struct TerminalLine {
    int index = 0;  // 1-based position in the file: the pin number the pad stacks use
    double x = 0.0;
    double y = 0.0;
    double labelX = 0.0;  // where the pin number is printed
    double labelY = 0.0;
    // The pin name as the file writes it; terminals without one get the index as text.
    std::string pinName;
    long line = 0;  // in its file; 0 when unknown

    bool operator==(const TerminalLine& other) const {
        return index == other.index && x == other.x && y == other.y && labelX == other.labelX &&
               labelY == other.labelY && pinName == other.pinName;
    }
};

// Reads the record's counts.terminals lines from record.firstTerminal: "T<x> <y> <nx> <ny>"
// with the T glued to x, and, in files whose dialect writes pin names on terminal lines, an
// optional fifth word, the pin's name (else the pin is named by its index). A missing number
// reads as 0; a body that ends before the count is reached ends the list there. A word that is
// not a number is a ConversionError (a number too large for a double a RangeError), a line that
// does not begin with "T" a FormatError, in the words of BadFieldMessage.
std::vector<TerminalLine> ReadTerminals(const DecalRecord& record);

}  // namespace zantor

#pragma once

// The contents of a parttype page inside its frame (DrawParttypeFrame): the parttype's name, logic
// family and decal list at the top, the checked attributes with their values, a row of cells for
// the parttype's PCB decals, and the table of its pins, which fills the rest of the page in as
// many column groups as fit and goes on over further pages when the page cannot hold it.
//
// Every text is page text in the formular font, so that a PDF of a run can be searched for a
// parttype, an attribute value or a pin name. Positions are page millimetres from the frame's
// bottom-left corner, as for the frame itself.

#include <cstddef>
#include <string>
#include <vector>

#include "library/parttype.h"
#include "plot/plot_frame.h"
#include "shell/attribute_list.h"

namespace zantor {

// One row of the pin table: a gate pin, or a signal pin (gate "SIGPIN").
struct PinTableRow {
    std::string pin;
    std::string gate;
    std::string swap;
    std::string type;
    std::string name;
};

// The pin table of a parttype: every gate pin in gate order (gates lettered A, B, C, ...;
// connector and other gates by their keyword), then the signal pins.
std::vector<PinTableRow> PinTableOf(const Parttype& parttype);

// What the page shows and how large, from the settings of the parttype kind.
struct ParttypePageStyle {
    double nameSize = 5.0;  // the in-memory PTNameSize
    double attrSize = 3.0;  // the in-memory PTAttrSize
    bool listPins = true;   // ListPinnames
    bool showDecals = true;
    bool showDecalNames = true;
    bool printAttributes = false;
    int decalCells = 2;  // Columns: "No of decals"
    // Checked names of the attribute list, in list order (PrintAttr).
    std::vector<std::string> attributes;
};

ParttypePageStyle ParttypePageStyleOf(const PlotSettings& settings, double nameSize,
                                      double attrSize, const AttributeList& attributes);

// A box on the page in millimetres.
struct PageBox {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

// Where the parts of one parttype's pages stand.
struct ParttypePageLayout {
    double width = 0;   // W
    double height = 0;  // H
    double headTop = 0;
    double firstTableTop = 0;  // the pin table's top on the first page
    double nextTableTop = 0;   // and on the pages after it
    double tableBottom = 0;
    std::vector<PageBox> decalCells;  // the first page's decal cells, left to right
    // Column groups of the table across the page, and the width of each group's columns.
    int groups = 1;
    double columnWidths[5] = {};
    std::size_t rowsFirstPage = 0;  // pins the first page's table holds
    std::size_t rowsNextPage = 0;   // and each further page's
    std::size_t pages = 1;
};

// The layout of `parttype` on frames of `width` x `height` mm above a comment band of
// `commentBand` mm.
ParttypePageLayout LayOutParttype(const Parttype& parttype, const ParttypePageStyle& style,
                                  double width, double height, double commentBand);

// Page `page` (from 0) of the parttype's pages: the head, on the first page the attributes,
// decal names and decal cell outlines, and the rows of the pin table that belong to the page.
// `found[i]` says whether the decal of cell i was found; a cell without it gets a note. The
// decals themselves are drawn by the caller into the cells.
void DrawParttypePage(PlotFrame& frame, const Parttype& parttype, const ParttypePageStyle& style,
                      const ParttypePageLayout& layout, std::size_t page,
                      const std::vector<bool>& found, bool pcbInput);

// The note in a decal cell whose decal is not found.
std::string MissingDecalNote(bool pcbInput);

}  // namespace zantor

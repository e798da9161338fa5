#include "output/paper.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QRectF>

#include <array>
#include <cctype>

namespace zantor {
namespace {

struct PaperEntry {
    PaperSize paper;
    std::string_view name;
    PaperMillimetres size;
};

constexpr std::array<PaperEntry, 4> kPapers = {{
    {PaperSize::A4, "A4", {210.0, 297.0}},
    {PaperSize::A3, "A3", {297.0, 420.0}},
    {PaperSize::Letter, "Letter", {215.9, 279.4}},
    {PaperSize::Legal, "Legal", {215.9, 355.6}},
}};

bool SameIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i]))) {
            return false;
        }
    }
    return true;
}

const PaperEntry& EntryOf(PaperSize paper) {
    for (const PaperEntry& entry : kPapers) {
        if (entry.paper == paper) {
            return entry;
        }
    }
    return kPapers.front();
}

}  // namespace

std::optional<PaperSize> ParsePaperSize(std::string_view name) {
    for (const PaperEntry& entry : kPapers) {
        if (SameIgnoringCase(entry.name, name)) {
            return entry.paper;
        }
    }
    return std::nullopt;
}

std::string_view PaperSizeName(PaperSize paper) {
    return EntryOf(paper).name;
}

PaperMillimetres PaperSizeMillimetres(PaperSize paper) {
    return EntryOf(paper).size;
}

PaperArea PaperAreaOf(const QPageLayout& layout) {
    const QRectF full = layout.fullRect(QPageLayout::Millimeter);
    const QRectF paint = layout.paintRect(QPageLayout::Millimeter);
    PaperArea paper;
    paper.width = paint.width();
    paper.height = paint.height();
    paper.leftOffset = paint.left() - full.left();
    paper.topOffset = paint.top() - full.top();
    paper.rightOffset = full.width() - paper.width - paper.leftOffset;
    paper.bottomOffset = full.height() - paper.height - paper.topOffset;
    return paper;
}

PaperArea PaperAreaOf(const QPagedPaintDevice& device) {
    return PaperAreaOf(device.pageLayout());
}

}  // namespace zantor

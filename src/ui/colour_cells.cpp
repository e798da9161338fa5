#include "ui/colour_cells.h"

#include <QMouseEvent>
#include <QPainter>

#include "ui/setup_rules.h"

namespace zantor {
namespace {

constexpr std::int32_t Rgb(int r, int g, int b) {
    return r | (g << 8) | (b << 16);
}

}  // namespace

QColor ColourOfPen(std::int32_t stored) {
    const auto value = static_cast<std::uint32_t>(stored);
    return QColor(static_cast<int>(value & 0xFF), static_cast<int>((value >> 8) & 0xFF),
                  static_cast<int>((value >> 16) & 0xFF));
}

std::int32_t PenOfColour(const QColor& colour) {
    return Rgb(colour.red(), colour.green(), colour.blue());
}

ColourPalette::ColourPalette(QWidget* parent)
    : QWidget(parent),
      // The sixteen colours of a classic system palette.
      colours_{Rgb(0, 0, 0),       Rgb(128, 0, 0),   Rgb(0, 128, 0),   Rgb(128, 128, 0),
               Rgb(0, 0, 128),     Rgb(128, 0, 128), Rgb(0, 128, 128), Rgb(128, 128, 128),
               Rgb(192, 192, 192), Rgb(255, 0, 0),   Rgb(0, 255, 0),   Rgb(255, 255, 0),
               Rgb(0, 0, 255),     Rgb(255, 0, 255), Rgb(0, 255, 255), Rgb(255, 255, 255)} {
    setFixedSize(4 * kCell + 1, 4 * kCell + 1);
}

void ColourPalette::Choose(int index) {
    if (index >= 0 && index < kColours) {
        chosen_ = index;
        update();
    }
}

void ColourPalette::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    for (int i = 0; i < kColours; ++i) {
        const QRect cell((i % 4) * kCell, (i / 4) * kCell, kCell, kCell);
        painter.fillRect(cell, ColourOfPen(colours_[static_cast<std::size_t>(i)]));
        painter.setPen(Qt::gray);
        painter.drawRect(cell);
    }
    // The chosen colour is framed twice, black and white, so it shows on every colour.
    const QRect chosen((chosen_ % 4) * kCell, (chosen_ / 4) * kCell, kCell, kCell);
    painter.setPen(QPen(Qt::black, 2));
    painter.drawRect(chosen.adjusted(1, 1, -1, -1));
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(chosen.adjusted(3, 3, -3, -3));
}

void ColourPalette::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const int column = at.x() / kCell;
    const int row = at.y() / kCell;
    if (column >= 0 && column < 4 && row >= 0 && row < 4) {
        Choose(row * 4 + column);
    }
}

PenColourCells::PenColourCells(PenTableRows& table, const ColourPalette& palette, QWidget* parent)
    : QWidget(parent), table_(table), palette_(palette) {
    setFixedSize(kLayerColumns * kColourCellWidth, kColourRows * kColourCellHeight);
}

void PenColourCells::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(Qt::black);
    for (int column = 0; column < kLayerColumns; ++column) {
        for (int colour = 1; colour <= kColourRows; ++colour) {
            if (!HasColourCell(column, colour)) {
                continue;
            }
            const QRect cell(kColourCellWidth * column + 1, kColourCellHeight * (colour - 1), 30,
                             18);
            painter.setBrush(ColourOfPen(
                table_[static_cast<std::size_t>(column)].colour[static_cast<std::size_t>(colour)]));
            painter.drawRect(cell);
        }
    }
}

void PenColourCells::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const std::optional<ColourCell> cell = ColourCellAt(at.x(), at.y());
    if (!cell) {
        return;
    }
    table_[static_cast<std::size_t>(cell->column)].colour[static_cast<std::size_t>(cell->colour)] =
        palette_.Chosen();
    update();
}

}  // namespace zantor

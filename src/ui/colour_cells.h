#pragma once

// The colour widgets of the decal setup's "Layers/items" page: the palette a colour is chosen
// from ("ColorGrid"), and the cells of the pen table ("PaintBox"), ten columns of layers by ten
// item rows, where a click places the chosen colour.

#include <QColor>
#include <QWidget>
#include <array>
#include <cstdint>

#include "shell/plot_settings.h"

namespace zantor {

// Pen table colours are stored as 0x00BBGGRR.
QColor ColourOfPen(std::int32_t stored);
std::int32_t PenOfColour(const QColor& colour);

// Sixteen colours in a 4 x 4 grid; a click chooses one.
class ColourPalette : public QWidget {
    Q_OBJECT

  public:
    explicit ColourPalette(QWidget* parent = nullptr);

    std::int32_t Chosen() const { return colours_[static_cast<std::size_t>(chosen_)]; }
    // The colour at `index` (0 to 15, row by row) becomes the chosen one.
    void Choose(int index);
    static constexpr int kColours = 16;
    static constexpr int kCell = 20;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    std::array<std::int32_t, kColours> colours_;
    int chosen_ = 0;
};

class PenColourCells : public QWidget {
    Q_OBJECT

  public:
    // Paints and edits `table`, which must outlive the widget; a click takes the palette's colour.
    PenColourCells(PenTableRows& table, const ColourPalette& palette, QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    PenTableRows& table_;
    const ColourPalette& palette_;
};

}  // namespace zantor

#pragma once

// Page images written as PNG: most pages hold few colours (black, white and the grey levels of
// their smoothed edges), and an 8-bit palette image of them is a quarter of the data to compress.

#include <QImage>

namespace zantor {

// Writes the pixels of `page` (Format_RGB32) into `indexed` as an 8-bit palette image of the
// same size and resolution, reusing the memory `indexed` holds when its size fits. False, and
// `indexed` unusable, when the page has more than 256 colours; the page must then be written as
// it is.
bool ToPaletteImage(const QImage& page, QImage& indexed);

}  // namespace zantor

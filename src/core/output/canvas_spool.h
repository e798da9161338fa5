#pragma once

// A canvas that keeps the drawing calls of a printer document in a temporary file, to be played
// onto the printer when the document is complete. Some print systems take a document only
// whole and cannot withdraw one once it is begun (Qt hands a CUPS job over when its painter
// ends, whatever happens); spooling first makes an aborted document print nothing at all, while
// memory stays bounded however long the document is.

#include <QDataStream>
#include <QTemporaryFile>
#include <functional>
#include <memory>

#include "plot/plot_canvas.h"

namespace zantor {

class CanvasSpool : public PlotCanvas {
  public:
    // Starts an empty spool. An IoError when no temporary file can be made.
    void Open();
    // Ends the page being spooled; the next calls belong to the next page.
    void PageBreak();
    // Plays every call since Open onto `canvas`, calling `newPage` at each page break; `canvas`
    // gets each call's pen, fill and text state. An IoError when the spool cannot be read back.
    void Replay(PlotCanvas& canvas, const std::function<void()>& newPage);
    // Throws the spool away.
    void Close() noexcept;
    bool IsOpen() const { return file_ != nullptr; }

    void MoveTo(std::int32_t x, std::int32_t y) override;
    void LineTo(std::int32_t x, std::int32_t y) override;
    void Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::int32_t sx,
             std::int32_t sy, std::int32_t ex, std::int32_t ey) override;
    void RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                   std::int32_t cornerWidth, std::int32_t cornerHeight) override;
    void Polygon(std::span<const DevicePoint> points) override;
    void Text(std::int32_t x, std::int32_t y, std::string_view text, std::string_view fontName,
              std::int32_t height, TextAlign align = TextAlign::Left) override;

  private:
    // Writes the call's code and the state it is drawn with.
    void Begin(std::uint8_t code);
    void Check();

    std::unique_ptr<QTemporaryFile> file_;
    QDataStream out_;
};

}  // namespace zantor

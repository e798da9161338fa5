#pragma once

// Shared set-up of the plot tests: a frame over a recording canvas whose mapping is easy to
// follow by hand, and decal records built line by line.

#include <string>
#include <vector>

#include "common/user_messages.h"
#include "library/decal_record.h"
#include "plot/plot_frame.h"
#include "plot/recording_canvas.h"
#include "shell/plot_settings.h"
#include "support/recording_messages.h"

namespace zantor::test {

// Printer surface, scale 1, millimetre units, 0.01 mm device units, page top at y = 0: a library
// coordinate of 1 is 100 device units, y up. Row 0 of the pen table gives item kind k the colour
// k, so a recorded "pen=00000K" names the pen kind.
struct PlotBench {
    PlotSettings settings;
    RecordingCanvas canvas;
    RecordingMessages messages;
    PlotFrame frame;

    explicit PlotBench(const DeviceMapping& mapping = {})
        : frame(canvas, mapping, settings, messages) {
        for (int kind = 1; kind <= kPenKinds; ++kind) {
            settings.PenTable[0].colour[kind] = kind;
        }
    }

    // The frame's placement with a new scale (and unit factor); corner and decal origin stay.
    void Rescale(double scale, double unitFactor) {
        DecalPlacement placement = frame.Placement();
        placement.scale = scale;
        placement.unitFactor = unitFactor;
        frame.Place(placement);
    }
    void Rescale(double scale) { Rescale(scale, frame.Placement().unitFactor); }
    // The decal origin at `origin` page millimetres from the corner; the rest stays.
    void MoveOrigin(PagePoint origin) {
        DecalPlacement placement = frame.Placement();
        placement.origin = origin;
        frame.Place(placement);
    }
};

// A record whose body is `lines`, with `pieces` piece records from the first line and `texts`
// text records after them at line `firstText`.
inline DecalRecord MakeRecord(std::vector<std::string> lines, int pieces, int texts = 0,
                              std::size_t firstText = 0) {
    DecalRecord record;
    record.lines = std::move(lines);
    record.counts.pieces = static_cast<std::uint16_t>(pieces);
    record.counts.texts = static_cast<std::uint16_t>(texts);
    record.firstPiece = 0;
    record.firstText = firstText;
    record.firstTerminal = record.lines.size();
    record.firstStack = record.lines.size();
    return record;
}

// The recorded lines that begin with `op` (e.g. "arc").
inline std::vector<std::string> LinesOf(const RecordingCanvas& canvas, const std::string& op) {
    std::vector<std::string> found;
    for (const std::string& line : canvas.Lines()) {
        if (line.rfind(op + " ", 0) == 0) {
            found.push_back(line);
        }
    }
    return found;
}

}  // namespace zantor::test

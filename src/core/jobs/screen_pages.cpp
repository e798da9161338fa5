#include "jobs/screen_pages.h"

#include "jobs/print_job.h"
#include "plot/qpainter_canvas.h"

namespace zantor {
namespace {

void PaintBlankBox(QPainter& painter, const ScreenBox& box) {
    painter.save();
    painter.setPen(QPen(Qt::black, 0));
    painter.setBrush(Qt::white);
    painter.drawRect(0, 0, box.width - 1, box.height - 1);
    painter.restore();
}

void PaintJob(QPainter& painter, const ScreenBox& box, PlotSurface surface, PlotContext& context,
              std::span<const std::string> selection, UserMessages& messages) {
    QPainterCanvas canvas(painter, CanvasMapping::Pixels);
    PrintJob job(context, surface, canvas, box, messages);
    job.PrintDecals(selection);
}

// A parttype has no picture of its own in the view box: grey with a black outline.
void PaintGreyBox(QPainter& painter, const ScreenBox& box) {
    painter.save();
    painter.setPen(QPen(Qt::black, 0));
    painter.setBrush(QColor(128, 128, 128));
    painter.drawRect(0, 0, box.width - 1, box.height - 1);
    painter.restore();
}

}  // namespace

const char* PreviewCaption(PlotKind kind) {
    switch (kind) {
        case PlotKind::Index:
            return "Indexpage";
        case PlotKind::Parttype:
            return "Parttypepage";
        case PlotKind::Decal:
            break;
    }
    return "Decalpage";
}

void PaintViewBox(QPainter& painter, const ScreenBox& box, PlotContext& context,
                  std::span<const std::string> selection, UserMessages& messages) {
    context.OutputTarget = PlotSurface::ViewBox;
    if (context.PlotKind == PlotKind::Parttype) {
        PaintGreyBox(painter, box);
        return;
    }
    PaintBlankBox(painter, box);
    if (selection.size() == 1) {
        PaintJob(painter, box, PlotSurface::ViewBox, context, selection, messages);
    }
}

void PaintPreview(QPainter& painter, const ScreenBox& box, PlotContext& context,
                  std::span<const std::string> selection, UserMessages& messages) {
    PaintBlankBox(painter, box);
    context.OutputTarget = PlotSurface::PreviewWindow;
    PaintJob(painter, box, PlotSurface::PreviewWindow, context, selection, messages);
}

}  // namespace zantor

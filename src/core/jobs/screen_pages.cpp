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

}  // namespace

const char* PreviewCaption(PlotKind kind) {
    return kind == PlotKind::Index ? "Indexpage" : "Decalpage";
}

void PaintViewBox(QPainter& painter, const ScreenBox& box, PlotContext& context,
                  std::span<const std::string> selection, UserMessages& messages) {
    PaintBlankBox(painter, box);
    context.OutputTarget = PlotSurface::ViewBox;
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

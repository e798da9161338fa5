// One whole decal page from fuzzed input, drawn as the preview window draws it, on the recording
// canvas: the first decal of the file with the bundled stroke font, the grid, the 1:1 view, the
// pad-stack table and the listed attributes switched by leading option bytes.

#include <QGuiApplication>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "common/errors.h"
#include "fuzz_input.h"
#include "jobs/plot_context.h"
#include "jobs/print_job.h"
#include "library/decal_reader.h"
#include "plot/recording_canvas.h"

namespace {

// Lives to the end of the process: destroyed among the static objects, it would outlive parts of
// Qt it needs.
QGuiApplication* gApp = nullptr;
zantor::StrokeFont* gFont = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    gApp = new QGuiApplication(*argc, *argv);
    static zantor::StrokeFont font;
    zantor::fuzz::SilentMessages messages;
    if (!font.Load(ZANTOR_FUZZ_FONT, messages)) {
        std::abort();
    }
    gFont = &font;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zantor;
    fuzz::Options options(data, size);
    PlotContext context;
    PlotSettings& settings = context.PlotSettings;
    settings.ShowGrid = options.Flag();
    settings.GridPosition = options.Byte() % 2;
    settings.GridUnit = options.Byte() % 2;
    settings.GridSize = 1 + options.Byte();
    settings.View1_1 = options.Flag();
    settings.PlotPadstack = options.Flag();
    settings.PrintAttr = options.Flag();
    settings.ShowPinCenter = options.Flag();
    settings.ShowDrill = options.Flag();
    settings.HeightInfo = options.Byte() % 3;
    settings.MaxScale = 1 + options.Byte() % 50;
    context.AttributeList = {{"Geometry.Height", true}, {"Value", true}};
    const auto file = fuzz::WriteInput(data, size);
    settings.Inputfile = file.string();
    context.StrokeFont = *gFont;

    std::string name;
    try {
        DecalReader reader(file);
        DecalRecord record;
        if (!reader.NextRecord(record)) {
            return 0;
        }
        name = record.name;
    } catch (const Error&) {
        return 0;
    }
    fuzz::SilentMessages messages;
    RecordingCanvas canvas;
    const ScreenBox box{800, 1130, 96, 96};
    try {
        PrintJob job(context, PlotSurface::PreviewWindow, canvas, box, messages);
        job.PlotDate = "23.11.2026";
        const std::vector<std::string> selection = {name};
        (void)job.PrintDecals(selection);
    } catch (const Error&) {
    }
    return 0;
}

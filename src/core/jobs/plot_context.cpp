#include "jobs/plot_context.h"

#include "shell/decal_lib_list.h"
#include "shell/settings_io.h"

namespace zantor {

bool PreparePrintCommand(PlotContext& context, PlotKind kind, const std::string& inputFile,
                         const SettingsStore& mainStore, const SettingsStore& zantorStore,
                         SettingsStore* saveTo, UserMessages& messages) {
    context.PlotKind = kind;
    LoadSettings(context.PlotSettings, kind, mainStore);
    context.PlotSettings.Inputfile = inputFile;
    // The index kind lists no attributes; the list in hand is saved with its settings as it is.
    if (kind == PlotKind::Decal || kind == PlotKind::Parttype) {
        LoadAttributeList(context.AttributeList, kind, zantorStore);
    }
    if (kind == PlotKind::Parttype) {
        context.DecalLibList = LoadDecalLibList(mainStore);
    }
    if (saveTo != nullptr) {
        SaveSettings(context.PlotSettings, kind, context.AttributeList, *saveTo);
    }
    // A font of an earlier command is let go first, so that a failed load leaves none behind.
    context.StrokeFont.Free();
    return context.StrokeFont.Load(context.PlotSettings.Fontfile, messages);
}

}  // namespace zantor

#pragma once

// What the program holds for as long as it runs and every print command works on: the settings
// record, the print kind, the surface a drawing goes to, the stroke font and the user's
// attribute list. The application owns one and passes it by reference; nothing of it is global.

#include <string>
#include <vector>

#include "common/user_messages.h"
#include "font/stroke_font.h"
#include "plot/plot_frame.h"
#include "shell/attribute_list.h"
#include "shell/parttype_text_sizes.h"
#include "shell/plot_settings.h"
#include "shell/settings_store.h"

namespace zantor {

struct PlotContext {
    zantor::PlotSettings PlotSettings;
    zantor::PlotKind PlotKind = PlotKind::Decal;
    // The surface the last drawing went to: a print job sets it to the printer, the preview
    // window's paint to the preview window, the view box's paint to the view box.
    PlotSurface OutputTarget = PlotSurface::Printer;
    // Loaded for one print command and freed after it.
    zantor::StrokeFont StrokeFont;
    // The attribute list whose checked names a decal or parttype page lists.
    zantor::AttributeList AttributeList;
    // The text heights of parttype pages, in their in-memory form (LoadRecentFiles).
    zantor::ParttypeTextSizes ParttypeTextSizes;
    // The decal libraries a parttype run searches, in order (the Decal_LibList subkey).
    std::vector<std::string> DecalLibList;
};

// The first steps of the print commands, in their order: the print kind, its settings
// (`LoadSettings` from `mainStore`), the input file, the attribute list of the ZANTOR store (decal
// and parttype kinds; an index page lists no attributes), for the parttype kind the decal library
// list of `mainStore`, the settings saved back to `saveTo`
// when it is given, and the stroke font from `Fontfile`. False when the font cannot be loaded
// ("FONT-file missing." through `messages`): the command ends there. Settings that cannot be read
// and a font file that cannot be read throw as LoadSettings and StrokeFont::Load do.
bool PreparePrintCommand(PlotContext& context, PlotKind kind, const std::string& inputFile,
                         const SettingsStore& mainStore, const SettingsStore& zantorStore,
                         SettingsStore* saveTo, UserMessages& messages);

}  // namespace zantor

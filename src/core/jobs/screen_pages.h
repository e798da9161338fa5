#pragma once

// The two on-screen pictures of a print job, painted with a QPainter on a box of the screen: the
// selection dialog's view box (one decal alone, fitted into the box) and the preview window (the
// job's first decal page or first index page, laid out like paper). The dialogs call these from
// their paint handlers; tests paint into images.

#include <QPainter>
#include <span>
#include <string>

#include "common/user_messages.h"
#include "jobs/plot_context.h"
#include "jobs/screen_geometry.h"

namespace zantor {

// The preview window's caption for the job of `kind`: "Decalpage", "Indexpage" or
// "Parttypepage".
const char* PreviewCaption(PlotKind kind);

// The view box for the names selected in the dialog: white with a black outline, and when
// exactly one name is selected, that decal of the settings' Inputfile fitted into the box. For
// the parttype kind the box is grey with a black outline and shows nothing. Sets
// the context's OutputTarget to the view box. Errors of the file or the decal throw.
void PaintViewBox(QPainter& painter, const ScreenBox& box, PlotContext& context,
                  std::span<const std::string> selection, UserMessages& messages);

// The preview window's paint box: white with a black outline, and the job of the context's
// PlotKind on it: the page of the first selected decal found, or the first index page. Sets the
// context's OutputTarget to the preview window. Errors of the file or a decal throw.
void PaintPreview(QPainter& painter, const ScreenBox& box, PlotContext& context,
                  std::span<const std::string> selection, UserMessages& messages);

}  // namespace zantor

#pragma once

// The program's help: small HTML pages shipped with it (share/zantor/help), one topic per window,
// found by the help context numbers the windows carry.

#include <QString>
#include <filesystem>

class QWidget;

namespace zantor {

// Help contexts of the windows and controls.
enum HelpContext : int {
    kHelpIntroduction = 1,
    kHelpContents = 2,
    kHelpMainWindow = 10,
    kHelpSelectDecals = 31,
    kHelpSelectAll = 36,
    kHelpDecalLibList = 47,
    kHelpNamelist = 56,
    kHelpPreview = 60,
    kHelpProgress = 70,
    kHelpFontFile = 77,
};

// The page of a help context ("select_decals.html"); the contents page for an unknown one.
QString HelpPage(int context);

// The help folder: next to the installed program or in the build tree; empty when none is there.
std::filesystem::path HelpDir();

// Shows the help page of `context` in the help window (one window, raised when open already).
void ShowHelp(QWidget* parent, int context);

// The about box: the program's name and version and the stroke font's acknowledgement.
void ShowAbout(QWidget* parent);
QString AboutText();

}  // namespace zantor

#!/usr/bin/env bash
# Pictures of the desktop program's windows for people to look at: the main window, the selection
# dialog with a decal in its view box, the preview of a decal page and of an index page, the
# progress window (out/screenshots/*.png) and every page of the setup dialogs
# (out/screenshots/setup/*.png), drawn in a real X server (Xvfb).
#
#   bash scripts/screenshots.sh [BUILD_DIR] [LIBRARY]
#
# The program runs with settings of its own (a temporary XDG_CONFIG_HOME), so the user's
# settings are neither used nor changed.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
library=${2:-$root/data/samples/sample.d}
out=$root/out/screenshots

if [ ! -x "$build/src/app/zantor" ]; then
    bash "$root/scripts/build.sh" "$build"
fi
command -v xvfb-run >/dev/null || {
    echo "screenshots: xvfb-run is missing (bash scripts/setup-debian.sh installs it)" >&2
    exit 1
}

config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
mkdir -p "$out"
XDG_CONFIG_HOME=$config QT_QPA_PLATFORM=xcb \
    xvfb-run -a -s "-screen 0 1280x1024x24" \
    "$build/src/app/zantor" --screenshots "$out" "$library"
# Every page of the setup dialogs, and the library list, paper, options and font file dialogs.
cmake --build "$build" --target zantor_setup_screens >/dev/null
mkdir -p "$out/setup"
XDG_CONFIG_HOME=$config QT_QPA_PLATFORM=xcb \
    xvfb-run -a -s "-screen 0 1280x1024x24" \
    "$build/tools/zantor_setup_screens" "$out/setup" "$library" >/dev/null
echo "screenshots: written to $out"

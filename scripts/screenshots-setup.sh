#!/usr/bin/env bash
# PNGs of every page of the setup dialogs, made under Xvfb with settings of their own.
# Usage: scripts/screenshots-setup.sh [BUILD_DIR] [OUTDIR]
set -euo pipefail
cd "$(dirname "$0")/.."
build_dir=${1:-build}
out_dir=${2:-$build_dir/screenshots/setup}
mkdir -p "$out_dir"
cmake --build "$build_dir" --target zantor_setup_screens >/dev/null
config=$(mktemp -d)
trap 'rm -rf "$config"' EXIT
XDG_CONFIG_HOME=$config xvfb-run -a -s "-screen 0 1280x1024x24" \
    "$build_dir/tools/zantor_setup_screens" "$out_dir" "$PWD/data/samples/sample.d"

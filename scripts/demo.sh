#!/usr/bin/env bash
# Installs what is missing, builds, and runs the main job on the bundled sample library.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup-debian.sh
bash scripts/build.sh build
./build/src/app/zantor info data/samples/sample.d

#!/usr/bin/env bash
# Installs what is missing, builds, and prints the bundled sample library to PDF with the bundled
# stroke font: its decal pages (out/sample-decals.pdf) and an index page (out/sample-index.pdf).
# The user's settings apply; on a fresh machine there are none and the defaults print A4 pages.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup-debian.sh
bash scripts/build.sh build
mkdir -p out
./build/src/app/zantor print data/samples/sample.d --output out/sample-decals.pdf
./build/src/app/zantor print data/samples/sample.d --kind index --output out/sample-index.pdf

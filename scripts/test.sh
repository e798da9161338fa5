#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
# Usage: scripts/test.sh            the normal build (build/)
#        scripts/test.sh --sanitize the AddressSanitizer + UBSan build (build-asan/)
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup-debian.sh

build_dir=build
options=()
if [ "${1:-}" = "--sanitize" ]; then
    build_dir=build-asan
    options=(-DZANTOR_SANITIZE=ON)
    export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=0:halt_on_error=1}
    export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$PWD/scripts/lsan.supp:print_suppressions=0}
    export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
fi

bash scripts/build.sh "$build_dir" "${options[@]}"
# The system printer tests print to a CUPS queue; without one they report themselves skipped.
bash scripts/setup-cups.sh
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$build_dir" --output-on-failure -j"$(nproc)"

#!/usr/bin/env bash
# Configures and builds Zantor. Usage: scripts/build.sh [BUILD_DIR] [extra cmake options...]
set -euo pipefail
cd "$(dirname "$0")/.."
build_dir=${1:-build}
shift || true
werror=OFF
if [ "${CI:-}" = "true" ]; then
    werror=ON
fi
launcher=()
if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B "$build_dir" "${launcher[@]}" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZANTOR_WERROR="$werror" "$@" >/dev/null
cmake --build "$build_dir" -j"$(nproc)"

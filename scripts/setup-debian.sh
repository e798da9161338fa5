#!/usr/bin/env bash
# Installs the Debian packages Zantor needs to build, test and print, when any is missing.
# Without root (and without password-less sudo) it cannot install anything: it then stops when
# something the build or the tests need is missing, and only notes what the printer tests and
# the benchmark would need.
set -euo pipefail

# clang-14 and its runtime libraries build the fuzz targets that CI runs (scripts/fuzz.sh).
required=(
    cmake g++ make
    qt6-base-dev qt6-svg-dev libgl-dev
    libgtest-dev
    fonts-liberation
    hershey-fonts-data
    poppler-utils
    desktop-file-utils appstream man-db
    clang-14 libclang-rt-14-dev
    libqpdf-dev qpdf
)
# The system printer tests (a CUPS queue backed by cups-pdf), the benchmark, and the desktop
# program in an X server for scripts/screenshots.sh.
optional=(
    xvfb xauth
    cups cups-daemon cups-client cups-filters printer-driver-cups-pdf ghostscript
    python3 time
)

missing_of() {
    local package
    for package in "$@"; do
        if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
            echo "$package"
        fi
    done
}

mapfile -t missing_required < <(missing_of "${required[@]}")
mapfile -t missing_optional < <(missing_of "${optional[@]}")
missing=("${missing_required[@]}" "${missing_optional[@]}")
if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
    if command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
        sudo_cmd=(sudo -n)
    elif command -v sudo >/dev/null && [ -t 0 ]; then
        sudo_cmd=(sudo)
    else
        if [ ${#missing_required[@]} -gt 0 ]; then
            echo "Missing packages (install them as root): ${missing_required[*]}" >&2
            exit 1
        fi
        echo "Not installed (the printer tests will be skipped, the benchmark needs them):" \
            "${missing_optional[*]}" >&2
        exit 0
    fi
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"

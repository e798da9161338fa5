#!/usr/bin/env bash
# Installs the Debian packages Zantor needs to build, test and print, when any is missing.
set -euo pipefail

packages=(
    cmake g++ make
    qt6-base-dev qt6-svg-dev libgl-dev
    libgtest-dev
    fonts-liberation
    hershey-fonts-data
    poppler-utils
    cups cups-client printer-driver-cups-pdf
)

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done

if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    sudo_cmd=()
    if [ "$(id -u)" -ne 0 ]; then
        sudo_cmd=(sudo)
    fi
    export DEBIAN_FRONTEND=noninteractive
    "${sudo_cmd[@]}" apt-get update -qq
    "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

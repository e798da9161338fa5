#!/usr/bin/env bash
# Builds the Debian package, installs it with apt-get, prints the bundled sample through the
# installed /usr/bin/zantor to PDF, and removes the package again. Needs root (run by .ci/run
# when it is root). Refuses to run over a zantor package that is installed already.
# Usage: check_deb.sh BUILD_DIR
set -euo pipefail
build_dir=$(cd "$1" && pwd)
source_dir=$(cd "$(dirname "$0")/../.." && pwd)
if [ "$(id -u)" -ne 0 ]; then
    echo "check_deb.sh needs root" >&2
    exit 1
fi
if dpkg-query -W -f='${Status}' zantor 2>/dev/null | grep -q "install ok installed"; then
    echo "a zantor package is installed already; not touching it" >&2
    exit 1
fi
work=$(mktemp -d)
installed=no
cleanup() {
    if [ "$installed" = yes ]; then
        DEBIAN_FRONTEND=noninteractive apt-get remove -y -qq zantor >/dev/null || true
    fi
    rm -rf "$work"
}
trap cleanup EXIT
fail() {
    echo "FAIL: $*" >&2
    exit 1
}

(cd "$work" && cpack --config "$build_dir/CPackConfig.cmake" -G DEB -B "$work/package" >/dev/null)
deb=$(ls "$work"/package/zantor_*.deb)
depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
for package in libqt6core6 libqt6gui6 libqt6widgets6 libqt6printsupport6 libqt6svg6 \
    fonts-liberation; do
    grep -qE "(^|, )$package( |,|$)" <<<"$depends" || fail "the package does not depend on $package"
done

export DEBIAN_FRONTEND=noninteractive
installed=yes
(cd "$work/package" && apt-get install -y -qq --no-install-recommends ./zantor_*.deb >/dev/null)
[ -x /usr/bin/zantor ] || fail "/usr/bin/zantor is not installed"
[ -f /usr/share/zantor/romans.fnt ] || fail "the font is not installed"
(cd "$work" && env -u QT_QPA_PLATFORM HOME="$work" /usr/bin/zantor print \
    "$source_dir/data/samples/sample.d" --output "$work/sample.pdf" >"$work/print.txt")
pdfinfo "$work/sample.pdf" | grep -qE "^Pages: +[1-9]" || fail "the printed PDF has no pages"
man -w zantor >/dev/null || fail "man zantor finds no manual page"

apt-get remove -y -qq zantor >/dev/null
installed=no
[ ! -e /usr/bin/zantor ] || fail "/usr/bin/zantor is left after removing the package"
echo "Debian package checked: $(basename "$deb")"

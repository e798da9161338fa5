#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks the tree a user gets: the program, its
# font and help, the desktop entry, icons, AppStream metainfo and the manual page, and that the
# installed program prints with the font from its own prefix.
# Usage: check_install.sh BUILD_DIR SOURCE_DIR
set -euo pipefail
build_dir=$1
source_dir=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

cmake --install "$build_dir" --prefix "$prefix" >/dev/null

for file in bin/zantor share/zantor/romans.fnt share/zantor/help/index.html \
    share/zantor/zantor.svg share/applications/zantor.desktop \
    share/icons/hicolor/scalable/apps/zantor.svg share/icons/hicolor/48x48/apps/zantor.png \
    share/icons/hicolor/256x256/apps/zantor.png share/metainfo/com.brovik.Zantor.metainfo.xml \
    share/man/man1/zantor.1 share/doc/zantor/README.md share/doc/zantor/romans.fnt.README.md; do
    [ -s "$prefix/$file" ] || fail "$file is not installed"
done
[ -x "$prefix/bin/zantor" ] || fail "bin/zantor is not executable"
for page in "$source_dir"/data/help/*.html; do
    [ -f "$prefix/share/zantor/help/$(basename "$page")" ] || fail "help page $(basename "$page") missing"
done
grep -q "Hershey" "$prefix/share/doc/zantor/romans.fnt.README.md" || fail "font acknowledgement missing"

# The PNG icons are the size their folder names.
for size in 16 32 48 128 256; do
    png=$prefix/share/icons/hicolor/${size}x${size}/apps/zantor.png
    [ "$(head -c 8 "$png" | od -An -tx1 | tr -d ' ')" = "89504e470d0a1a0a" ] || fail "$png is no PNG"
    width=$(od -An -tu1 -j16 -N4 "$png" | awk '{print $1*16777216+$2*65536+$3*256+$4}')
    [ "$width" = "$size" ] || fail "$png is $width pixels wide"
done

desktop-file-validate "$prefix/share/applications/zantor.desktop" || fail "desktop entry invalid"
appstreamcli validate --no-net --explain "$prefix/share/metainfo/com.brovik.Zantor.metainfo.xml" \
    >"$work/appstream.txt" || { cat "$work/appstream.txt" >&2; fail "metainfo invalid"; }

# The manual page renders without complaint and says what --help says.
MANWIDTH=100 man -l "$prefix/share/man/man1/zantor.1" >"$work/man.txt" 2>"$work/man.err" \
    || fail "man -l failed"
[ ! -s "$work/man.err" ] || { cat "$work/man.err" >&2; fail "man -l complains"; }
"$prefix/bin/zantor" --help >"$work/help.txt"
for phrase in "zantor COMMAND ARGUMENTS" "Show this help." "Exit status: 0 when the command"; do
    grep -qF -- "$phrase" "$work/help.txt" || fail "--help lacks \"$phrase\""
    grep -qF -- "$phrase" "$work/man.txt" || fail "manual page lacks \"$phrase\""
done
while read -r command; do
    grep -qE "^ +$command " "$work/man.txt" || fail "manual page lacks the command $command"
done < <(grep -oE '^  (attributes|info|list|print) ' "$work/help.txt" | tr -d ' ')
grep -q "^NAME" "$work/man.txt" && grep -q "^SYNOPSIS" "$work/man.txt" || fail "manual page sections"

# Moved elsewhere, the installed program still finds its font and help in its own prefix.
mv "$prefix" "$work/moved"
out=$work/sample.pdf
(cd "$work" && "$work/moved/bin/zantor" print "$source_dir/data/samples/sample.d" --output "$out" \
    >"$work/print.txt" 2>"$work/print.err") || { cat "$work/print.err" >&2; fail "print failed"; }
[ -s "$out" ] || fail "no PDF written"
! grep -qi "font" "$work/print.err" || { cat "$work/print.err" >&2; fail "font not found"; }
echo "installed tree checked"

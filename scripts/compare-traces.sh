#!/usr/bin/env bash
# Prints the bundled sample, the handmade library fixtures and the shared real files (when the
# folder is there) as decal and index pages to .trace files, with the messages of each run, so
# that a change of the drawing code can be checked against the pages it drew before.
#
#   scripts/compare-traces.sh ZANTOR OUT_DIR            writes OUT_DIR/<file>.<kind>.trace/.err
#   scripts/compare-traces.sh ZANTOR OUT_DIR BASELINE   ... and compares OUT_DIR with BASELINE
#
# The traces and messages must stay byte for byte the same through a change of design; the
# output folder's name is taken out of the messages so that two folders compare.
#
# Every run uses a fresh settings folder: the default settings, then a second set with the
# optional parts of a page switched on (grid, 1:1 view, comments, attributes, pin numbers).
set -uo pipefail
cd "$(dirname "$0")/.."
zantor=$(realpath "$1")
out=$2
baseline=${3:-}
mkdir -p "$out"
out=$(realpath "$out")

files=(data/samples/sample.d)
while IFS= read -r f; do files+=("$f"); done < <(find tests/data/library -type f \( -name '*.d' -o -name '*.asc' \) | sort)
shared=../shared/pads-samples
if [ -d /work/shared/pads-samples ]; then shared=/work/shared/pads-samples; fi
if [ -d "$shared" ]; then
    while IFS= read -r f; do files+=("$f"); done < <(find "$shared" -type f \( -name '*.d' -o -name '*.asc' \) | sort)
fi

settings_all() {
    mkdir -p "$1/Brovik"
    for section in Decalplot Indexplot; do
        cat <<CONF
[$section]
ShowGrid=true
ShowGridSize=true
View1_1=true
PrintComm=true
PrintAttr=true
PlotPinNo=true
PinNoStyle=A
ShowDrill=true
MarkPin1=true
ShowPinCenter=true
PlotPadstack=true
PrintScale=true
PrintSepLines=true

CONF
    done > "$1/Brovik/Zantor.conf"
    for section in Decalplot Indexplot; do
        printf '[%s]\nAttr1=Geometry.Height\nListAttr1=true\nAttr2=Description\nListAttr2=true\n\n' "$section"
    done > "$1/ZANTOR.conf"
}

for variant in default all; do
    for f in "${files[@]}"; do
        base=$(basename "$f")
        for kind in decal index; do
            config=$(mktemp -d)
            if [ "$variant" = all ]; then settings_all "$config"; fi
            name="$out/$base.$kind.$variant"
            XDG_CONFIG_HOME=$config QT_QPA_PLATFORM=offscreen "$zantor" print "$f" --kind "$kind" \
                --output "$name.trace" > "$name.out" 2> "$name.err"
            echo "exit $?" >> "$name.err"
            sed -i "s|$out/||g" "$name.out" "$name.err"
            rm -rf "$config"
        done
    done
done

if [ -n "$baseline" ]; then
    if diff -r -q "$baseline" "$out"; then
        echo "traces and messages identical"
    else
        exit 1
    fi
fi

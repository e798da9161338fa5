#!/usr/bin/env bash
# Checks that a change leaves the printed pages as they were: prints the bundled sample, the
# library fixtures under tests/data and the shared real files (when that folder is there) with a
# reference build and with this tree's build, as decal, index and parttype pages to PDF, SVG and
# PNG, and compares the pages pixel by pixel (PDF drawn with pdftoppm, SVG with Qt SVG, PNG at the
# resolution it was written in), along with the files written, the messages and the exit status.
#
#   scripts/compare-pages.sh [REF]     REF: a commit (default: main)
#
# The reference is checked out and built outside the repository (COMPARE_DIR, default
# /tmp/zantor-compare-<worktree>), and both stay there for the next run. This tree is built in
# NEW_BUILD (default: build, configured by scripts/build.sh when missing).
# Environment: COMPARE_PDF_DPI (default 100): the resolution PDF pages are drawn at;
#              COMPARE_SVG_SCALE (default 0.4): SVG pages are drawn at this times their size;
#              COMPARE_FORMATS (default "pdf svg png"); COMPARE_VARIANTS (default "default all":
#              the default settings, and the optional parts of a page switched on).
# Prints a summary; the status is 1 when anything differs.
set -euo pipefail
cd "$(dirname "$0")/.."
tree=$PWD
ref=${1:-main}
ref_commit=$(git rev-parse --verify "$ref^{commit}")
work=${COMPARE_DIR:-/tmp/zantor-compare-$(basename "$tree")}
new_build=${NEW_BUILD:-build}
pdf_dpi=${COMPARE_PDF_DPI:-100}
svg_scale=${COMPARE_SVG_SCALE:-0.4}
formats=${COMPARE_FORMATS:-pdf svg png}
variants=${COMPARE_VARIANTS:-default all}
mkdir -p "$work"

# The reference: a clone sharing this repository's objects, so that moving it to another commit
# rewrites only the files that changed and the build after it stays incremental.
ref_src=$work/ref-src
ref_build=$work/ref-build
if [ ! -d "$ref_src/.git" ]; then
    git clone --quiet --shared --no-checkout "$(git rev-parse --git-common-dir)" "$ref_src"
fi
git -C "$ref_src" checkout --quiet --force --detach "$ref_commit"
echo "reference: $(git -C "$ref_src" log -1 --format='%h %s' | cut -c1-80)"
launcher=()
if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
if ! { cmake -S "$ref_src" -B "$ref_build" "${launcher[@]}" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DZANTOR_BUILD_TESTS=OFF && cmake --build "$ref_build" --target zantor -j2; } \
    >"$work/ref-build.log" 2>&1; then
    tail -30 "$work/ref-build.log" >&2
    exit 1
fi
if [ ! -f "$new_build/CMakeCache.txt" ]; then
    bash scripts/build.sh "$new_build" >/dev/null
fi
# One target at a time: building the first brings the build files up to date for the second.
if ! { cmake --build "$new_build" --target zantor -j2 &&
    cmake --build "$new_build" --target pagecompare -j2; } >"$work/new-build.log" 2>&1; then
    tail -30 "$work/new-build.log" >&2
    exit 1
fi
old_zantor=$ref_build/src/app/zantor
new_zantor=$(realpath "$new_build/src/app/zantor")
pagecompare=$(realpath "$new_build/tools/pagecompare")

# What the catalogue reads: decal libraries (.d), parttype libraries (.p) and PCB files (.asc).
files=(data/samples/sample.d)
while IFS= read -r f; do files+=("$f"); done < <(find tests/data/library -type f \
    \( -name '*.d' -o -name '*.p' -o -name '*.asc' \) | sort)
shared=/work/shared/pads-samples
if [ -d "$shared" ]; then
    while IFS= read -r f; do files+=("$f"); done < <(find "$shared" -type f \
        \( -name '*.d' -o -name '*.p' -o -name '*.asc' \) | sort)
else
    echo "($shared is not there: its files are left out)"
fi

settings_all() {
    mkdir -p "$1/Brovik"
    for section in Decalplot Indexplot Parttype; do
        printf '[%s]\n' "$section"
        printf '%s=true\n' ShowGrid ShowGridSize View1_1 PrintComm PrintAttr PlotPinNo ShowDrill \
            MarkPin1 ShowPinCenter PlotPadstack PrintScale PrintSepLines
        printf 'PinNoStyle=A\n\n'
    done >"$1/Brovik/Zantor.conf"
    for section in Decalplot Indexplot; do
        printf '[%s]\nAttr1=Geometry.Height\nListAttr1=true\nAttr2=Description\nListAttr2=true\n\n' \
            "$section"
    done >"$1/ZANTOR.conf"
}

# print BINARY OUT_DIR: every file, kind, format and settings variant into OUT_DIR, with the
# files written, the messages and the status of each run in NAME.log.
print_all() {
    local zantor=$1 out=$2
    rm -rf "$out"
    mkdir -p "$out"
    local f base kinds kind format variant config name libs
    for f in "${files[@]}"; do
        base=$(basename "$f")
        case $f in
        *.d) kinds="decal index" ;;
        *.p) kinds="parttype" ;;
        *) kinds="decal index parttype" ;;
        esac
        # A parttype library takes its decals from the decal libraries beside it.
        libs=()
        if [[ $f == *.p ]]; then
            while IFS= read -r lib; do libs+=(--decal-lib "$lib"); done < <(find "$(dirname "$f")" \
                -maxdepth 1 -name '*.d' | sort)
        fi
        for variant in $variants; do
            config=$(mktemp -d)
            if [ "$variant" = all ]; then settings_all "$config"; fi
            for kind in $kinds; do
                for format in $formats; do
                    name=$base.$kind.$variant
                    mkdir -p "$out/$name"
                    local status=0
                    XDG_CONFIG_HOME=$config QT_QPA_PLATFORM=offscreen "$zantor" print "$f" \
                        --kind "$kind" "${libs[@]}" --output "$out/$name/page.$format" \
                        >"$out/$name.$format.log" 2>&1 || status=$?
                    echo "exit $status" >>"$out/$name.$format.log"
                    sed -i "s|$out/||g" "$out/$name.$format.log"
                done
            done
            rm -rf "$config"
        done
    done
    # PDF pages are compared as the pictures pdftoppm draws of them.
    local pdf
    while IFS= read -r pdf; do
        pdftoppm -r "$pdf_dpi" -png "$pdf" "$pdf"
    done < <(find "$out" -name '*.pdf')
}

start=$(date +%s)
print_all "$old_zantor" "$work/old"
print_all "$new_zantor" "$work/new"
pages=$(find "$work/new" -name '*.png' -o -name '*.svg' | wc -l)
status=0
QT_QPA_PLATFORM=offscreen "$pagecompare" "$work/old" "$work/new" "$svg_scale" >"$work/compare.txt" || status=$?
grep -v 'files compared' "$work/compare.txt" | head -40 || true
echo "${#files[@]} files, formats: $formats; $pages pages and logs in $work/new;" \
    "$(tail -1 "$work/compare.txt") ($(($(date +%s) - start)) s)"
if [ "$status" -ne 0 ]; then
    echo "pages differ from $(git rev-parse --short "$ref_commit")" >&2
    exit 1
fi
echo "pages identical to $(git rev-parse --short "$ref_commit")"
